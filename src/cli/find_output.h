#pragma once

#include "cli/json.h"

namespace snippetarium {

class CommandContext;
class QuickSearch;

/// Prints the hits of a search, best first, each with its key in the contents tree, its place and
/// the line in which it was found. On a terminal, what was found is set off.
void PrintHits(CommandContext& context, const QuickSearch& search);

/// The same as an object with the list "hits" and the "total", null where that is not known.
Json HitsDocument(const QuickSearch& search);

}  // namespace snippetarium
