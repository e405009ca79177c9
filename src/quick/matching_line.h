#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "quick/byte_range.h"
#include "quick/word_pattern.h"

namespace snippetarium {

/// A line of a text in which words were found.
struct MatchingLine {
    /// Without its line break; a long line is cut around the first place.
    std::string text;
    /// From 1. 0 where there is none.
    std::size_t number = 0;
    /// The first place: its byte in the whole text, from 1.
    std::size_t place = 0;
    /// What was found in `text`, in order and apart from each other.
    std::vector<ByteRange> matches;
};

/// The line with the first place of one of the patterns that are sought. In it, others are marked
/// too.
MatchingLine FindMatchingLine(std::string_view text, const std::vector<const WordPattern*>& sought,
                              const std::vector<const WordPattern*>& marked);

/// The places of the patterns in a text, those that touch or overlap joined.
std::vector<ByteRange> FindAll(std::string_view text,
                               const std::vector<const WordPattern*>& patterns);

}  // namespace snippetarium
