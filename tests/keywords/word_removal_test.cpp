#include "keywords/word_removal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "keywords/words.h"
#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

TEST(WordRemoval, TakesOutWholeWordsAndWhatTheyLeaveEmpty) {
    const std::vector<std::string> words = {"the", "Grid", "it's"};
    const NoiseWords noise(words);
    const struct {
        std::string_view keyword;
        std::string_view separator;
        std::string_view expected;
    } cases[] = {
        {"the grid", " ", ""},
        {"form the view", " ", "form view"},
        {"form  view", " ", "form  view"},
        {" form ", " ", " form "},
        {" form the ", " ", "form"},
        {"THE form", " ", "form"},
        {"other theme subgrid grid3", " ", "other theme subgrid grid3"},
        {"The grid, the, Form_Load", ",", "Form_Load"},
        {"The form, the, Form_Load", ",", "form, Form_Load"},
        {"form, the grid", ",", "form"},
        {"form,the,grid,view", ",", "form,view"},
        {"form the, view", ",", "form, view"},
        {"form,,the,view", ",", "form,,view"},
        {"form / grid / view", "/", "form / view"},
        {"form, grid, view", ";", "form, , view"},
        {"form grid-view", " ", "form -view"},
        {"'the' form", " ", "'' form"},
        {"it's mine", " ", "mine"},
        {"it''s the", " ", "it''s"},
        {"\u201Cthe\u201D form", " ", "\u201C\u201D form"},
        {"form the view", "", "form view"},
        {"\u00C9t\u00E9 the \u043C\u0438\u0440", " ", "\u00C9t\u00E9 \u043C\u0438\u0440"},
        {"the xgrid", "x", "xgrid"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(RemoveWords(test.keyword, test.separator, noise), test.expected) << test.keyword;
}

/// The words of a keyword string, a blank behind each.
std::string WordsOf(std::string_view keyword) {
    std::string words;
    const std::string separated = SeparateWords(keyword);
    for (const std::string_view word : SplitWords(separated))
        words.append(word).append(" ");
    return words;
}

TEST(WordRemoval, KeepsEveryOtherWordAndNoNoiseWord) {
    const std::vector<std::string> words = {"a"};
    const NoiseWords noise(words);
    for (const std::string_view separator : {"", " ", ",", "-", "b"}) {
        ForEveryText("abA ,-", 5, [&](const std::string& keyword) {
            std::string expected;
            const std::string all = WordsOf(keyword);
            for (const std::string_view word : SplitWords(all)) {
                if (word != "a" && word != "A") expected.append(word).append(" ");
            }
            const std::string removed = RemoveWords(keyword, separator, noise);
            ASSERT_EQ(WordsOf(removed), expected)
                << "'" << keyword << "' separator '" << separator << "'";
            if (all == expected) {
                ASSERT_EQ(removed, keyword);
            }
        });
    }
}

TEST(WordRemoval, NeverAddsAnythingWhateverTheQuotesAndSeparators) {
    const std::vector<std::string> words = {"a", "'a", "a'"};
    const NoiseWords noise(words);
    for (const std::string_view separator : {"'", "''", "' ", ",'"}) {
        ForEveryText("a', \\", 6, [&](const std::string& keyword) {
            const std::string removed = RemoveWords(keyword, separator, noise);
            std::size_t found = 0;
            for (const char character : keyword) {
                if (found < removed.size() && removed[found] == character) ++found;
            }
            ASSERT_EQ(found, removed.size())
                << "'" << removed << "' is no part of '" << keyword << "'";
        });
    }
}

}  // namespace
}  // namespace snippetarium
