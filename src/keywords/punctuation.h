#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace snippetarium {

// What separates the words of a keyword string, besides blanks. The texts that are searched for it
// have their single quotes doubled already, because that is how they go into a statement.

/// What an entry is replaced by: one blank, or as many as it has bytes, so that every place in the
/// text stays where it was.
enum class BlankWidth : std::uint8_t { One, Same };

/// The text with one of the 40 entries (punctuation.cpp) after the other replaced wherever it
/// occurs, letter case counting. An entry also meets the blanks that entries before it have left.
std::string ReplacePunctuation(std::string_view doubledText, BlankWidth width);

/// A copy of a keyword string in which all punctuation is blanks of the same width: a word stands
/// there exactly where it stands in the string.
std::string BlankOutPunctuation(std::string_view doubledKeyword);

}  // namespace snippetarium
