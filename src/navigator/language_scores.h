#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "navigator/delivered_languages.h"

namespace snippetarium {

// What the parts of the guessing of languages share (language_guess.cpp).

/// Something that speaks for a language.
struct LanguageEvidence {
    std::int32_t languageID;
    int weight;
    std::string_view text;
};

/// The weights that each language has collected.
class LanguageScores {
  public:
    void Add(std::int32_t languageID, int weight) {
        scores_[static_cast<std::size_t>(languageID)] += weight;
    }
    /// The language that has enough, if no other comes near; 0 for none.
    std::int32_t Best() const {
        constexpr int kEnough = 3;
        constexpr int kLead = 2;
        std::array<int, kLanguages> sorted = scores_;
        std::ranges::sort(sorted, std::ranges::greater());
        if (sorted[0] < kEnough || sorted[0] - sorted[1] < kLead) return 0;
        return static_cast<std::int32_t>(std::ranges::find(scores_, sorted[0]) - scores_.begin());
    }

  private:
    static constexpr std::size_t kLanguages = 10;
    std::array<int, kLanguages> scores_{};
};

/// The lines that are not blank, without the blanks around them.
std::vector<std::string_view> LinesWithText(std::string_view text);

/// For a text with braces: C, C++, Java, C# or JavaScript; 0 where it does not tell.
std::int32_t GuessBraceLanguage(std::string_view text);

}  // namespace snippetarium
