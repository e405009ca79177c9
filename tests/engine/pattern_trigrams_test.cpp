#include "engine/pattern_trigrams.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace snippetarium::test {
namespace {

TEST(PatternTrigramsTest, HoldForEveryTextThatThePatternMatches) {
    // Few characters, so that texts and patterns meet; one of two bytes, and one that is malformed.
    constexpr std::array<std::string_view, 6> kCharacters = {"a", "B",        "c",
                                                             "-", "\xC3\xA9", "\xE9"};
    constexpr std::array<std::string_view, 9> kOthers = {"%",
                                                         "_",
                                                         "[a-c]",
                                                         "[ab]",
                                                         "[!a]",
                                                         "[c-a]",
                                                         "[-]",
                                                         "[\xC3\xA9"
                                                         "b]",
                                                         "[!-~]"};
    std::mt19937 random(7);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    DistinctTrigrams distinct;
    int matches = 0;
    int choices = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string pattern = below(2) == 0 ? "%" : "";
        for (std::size_t left = 1 + below(6); left > 0; --left)
            pattern += below(3) == 0 ? kOthers[below(kOthers.size())]
                                     : kCharacters[below(kCharacters.size())];
        const LikePattern like(pattern);
        const auto sets = TrigramChoicesOf(like);
        for (int texts = 0; texts < 40; ++texts) {
            std::string text;
            for (std::size_t left = below(7); left > 0; --left)
                text += kCharacters[below(kCharacters.size())];
            if (!like.Match(text)) continue;
            ++matches;
            const auto& held = distinct.Of(text);
            for (const auto& set : sets) {
                choices += set.size() > 1 ? 1 : 0;
                ASSERT_TRUE(std::ranges::any_of(set,
                                                [&](Trigram trigram) {
                                                    return std::ranges::find(held, trigram) !=
                                                           held.end();
                                                }))
                    << pattern << " matches " << text;
            }
        }
    }
    EXPECT_GT(matches, 10'000);
    EXPECT_GT(choices, 200);
}

TEST(PatternTrigramsTest, AreOnesToChooseFromWhereASetStandsAmongCharacters) {
    const auto choices = [](std::string_view pattern) {
        return TrigramChoicesOf(LikePattern(pattern));
    };
    EXPECT_EQ(choices("%gri[dp]%"), (std::vector<std::vector<Trigram>>{
                                        {TrigramOf('g', 'r', 'i')},
                                        {TrigramOf('r', 'i', 'd'), TrigramOf('r', 'i', 'p')}}));
    EXPECT_EQ(choices("gr%id"), choices("")) << "no three in a row";
    EXPECT_EQ(choices("gr_d").size(), 0U);
    EXPECT_EQ(choices("[a-z][a-z]d").size(), 0U) << "too many to be of use";
    EXPECT_EQ(choices("gr[z-a]").size(), 0U) << "accepts nothing, so nothing can be told";
}

}  // namespace
}  // namespace snippetarium::test
