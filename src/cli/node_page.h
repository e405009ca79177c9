#pragma once

#include <iosfwd>

#include "support/node_key.h"

namespace snippetarium {

class Database;

/// Prints the page of a node that is there: a heading (what it is, where it belongs, language,
/// authors, dates, keywords and the first line of the comment), then its texts, then what is below
/// it with its keys.
void PrintNodePage(std::ostream& output, Database& db, const NodeIDs& node);

}  // namespace snippetarium
