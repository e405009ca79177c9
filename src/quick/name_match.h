#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "quick/byte_range.h"
#include "quick/word_pattern.h"

namespace snippetarium {

/// How good a hit is, the best first. Hits are listed in this order.
enum class QuickTier : std::uint8_t {
    /// The word is the name, or what stands before its parameter list.
    ExactName,
    NamePrefix,
    /// Where a word inside the name starts: "year" in "isLeapYear" or "leap_year".
    WordStart,
    NamePart,
    Keyword,
    Comment,
    Code,
    /// The name, but for a slip of one letter.
    Slip,
    /// Found by filters alone.
    Filter,
};

/// True where a word of the name starts: a letter or digit behind something else, a capital behind
/// a small letter, the last of several capitals before a small letter ("HTTP|Server"), and where
/// letters and digits meet. `position` is where a character starts.
bool IsWordStart(std::string_view name, std::size_t position);

/// True at the name's end, behind a word's last letter, and where the next word starts.
bool IsWordEnd(std::string_view name, std::size_t position);

/// The name without a parameter list: "Grid::Draw(int x)" gives "Grid::Draw".
std::string_view BareName(std::string_view name);

/// How the pattern fits a name, and its best place there.
struct NameMatch {
    QuickTier tier = QuickTier::NamePart;
    ByteRange range;
};

/// Nothing where the pattern does not fit.
std::optional<NameMatch> MatchName(const WordPattern& pattern, std::string_view name);

/// The tier of a plain pattern that stands at this place of the name.
QuickTier TierOfPlace(std::string_view name, const ByteRange& place);

}  // namespace snippetarium
