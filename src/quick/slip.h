#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "engine/substring_search.h"
#include "quick/byte_range.h"

namespace snippetarium {

// A typing slip: one letter left out, one too many, one replaced, or two neighbours swapped.
//
// A name is found in spite of a slip where a stretch of whole words of it ("LeapYear" in
// "IsLeapYear", or all of it) is what was typed but for one slip. Names that cannot be are ruled
// out by a plain search: a slip in one half of the typed word leaves the other half as it is, and
// only a swap across the middle touches both.

/// A typed word that may hold a slip.
class SlipPattern {
  public:
    /// Of shorter words nearly everything would be a slip.
    static constexpr std::size_t kShortest = 4;
    static constexpr std::size_t kNeedles = 3;

    /// `word` has at least kShortest characters.
    explicit SlipPattern(std::string_view word);

    /// True where the word is long enough.
    static bool IsLongEnough(std::string_view word);

    /// The first stretch of whole words that differs from the typed word by one slip or none.
    std::optional<ByteRange> Find(std::string_view name) const;

    /// Every name in which the pattern is found holds one of these.
    const std::array<FoldedNeedle, kNeedles>& Needles() const { return needles_; }

  private:
    bool MayStandAt(std::string_view name, std::size_t place) const;
    std::optional<std::size_t> EndOfStretch(std::string_view name, std::size_t start) const;

    std::u32string word_;
    std::array<FoldedNeedle, kNeedles> needles_;
};

}  // namespace snippetarium
