#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/case_fold.h"

namespace snippetarium {

/// Three characters in a row, folded, as a number below 2 to the power of kTrigramBits. Those of
/// ASCII characters have a number of their own; among the others, two may share one.
using Trigram = std::uint32_t;
inline constexpr unsigned kTrigramBits = 22;
inline constexpr unsigned kAsciiBits = 7;
inline constexpr char32_t kAsciiCharacters = char32_t{1} << kAsciiBits;
/// From here on, and up to the end, are those with other characters.
inline constexpr Trigram kBehindAsciiTrigrams = Trigram{1} << (3 * kAsciiBits);

constexpr Trigram TrigramOf(char32_t first, char32_t second, char32_t third) {
    if ((first | second | third) >> kAsciiBits == 0) {
        return first << (2 * kAsciiBits) | second << kAsciiBits | third;
    }
    // The upper bits of a product depend on all bits of its factors.
    constexpr std::uint64_t kOddNumber = 0x9E3779B97F4A7C15U;
    const std::uint64_t all =
        (std::uint64_t{first} << 42U) ^ (std::uint64_t{second} << 21U) ^ third;
    return kBehindAsciiTrigrams |
           static_cast<Trigram>((all * kOddNumber) >> (64U - 3 * kAsciiBits));
}

/// Calls `visit` with each trigram of the text, in its order.
template <typename Visit>
void ForEachTrigram(std::string_view text, Visit&& visit) {
    char32_t first = 0;
    char32_t second = 0;
    int count = 0;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t third = NextFolded(text, position);
        if (count == 2) {
            visit(TrigramOf(first, second, third));
        } else {
            ++count;
        }
        first = second;
        second = third;
    }
}

/// Finds the different trigrams of one text after the other. Half a megabyte.
class DistinctTrigrams {
  public:
    DistinctTrigrams() : seen_((std::size_t{1} << kTrigramBits) / kWordBits, 0) {}

    /// Each trigram of the text once, in no particular order, until the next call.
    const std::vector<Trigram>& Of(std::string_view text) {
        for (const Trigram trigram : found_)
            seen_[trigram / kWordBits] = 0;
        found_.clear();
        ForEachTrigram(text, [this](Trigram trigram) {
            std::uint64_t& word = seen_[trigram / kWordBits];
            const std::uint64_t bit = std::uint64_t{1} << trigram % kWordBits;
            if ((word & bit) != 0) return;
            word |= bit;
            found_.push_back(trigram);
        });
        return found_;
    }

  private:
    static constexpr unsigned kWordBits = 64;

    std::vector<std::uint64_t> seen_;  // a bit for each trigram
    std::vector<Trigram> found_;
};

}  // namespace snippetarium
