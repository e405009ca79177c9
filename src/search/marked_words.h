#pragma once

#include <string>
#include <vector>

#include "search/search_pane.h"

namespace snippetarium {

/// What to mark in the page of a topic that these fields found: the words and phrases of the entry,
/// without operators, brackets, quotation marks and what stands behind "not", each in the longest
/// piece that holds no wildcard. None for a search by dates.
///
///     grid and not "old view"   ->  grid
///     "grid view" or (paint%er) ->  grid view, paint
std::vector<std::string> MarkedWords(const SearchFields& fields);

}  // namespace snippetarium
