#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

struct QuickHit;

/// What to mark in the page of a hit: the words and phrases of the entry, but for those behind a
/// "not", and what was found in the hit's name and line, where wildcards and slips stand for more
/// than was typed. In any letter case, each once.
std::vector<std::string> WordsToMark(std::string_view entry, const QuickHit& hit);

}  // namespace snippetarium
