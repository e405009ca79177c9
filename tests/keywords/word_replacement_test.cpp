#include "keywords/word_replacement.h"

#include <gtest/gtest.h>

#include <vector>

#include "keywords/words.h"

namespace snippetarium::test {
namespace {

std::vector<std::string> WordsOf(std::string_view keyword) {
    const std::string separated = SeparateWords(keyword);
    const std::vector<std::string_view> words = SplitWords(separated);
    return {words.begin(), words.end()};
}

/// Calls back with every text of these characters up to a length.
template <typename Use>
void ForEachText(std::string_view alphabet, std::size_t length, const Use& use,
                 const std::string& begun = {}) {
    use(begun);
    if (begun.size() == length) return;
    for (const char character : alphabet)
        ForEachText(alphabet, length, use, begun + character);
}

TEST(ReplaceWord, ReplacesTheWordWhereverItIsOneAndNothingElse) {
    ForEachText("aB ,'-", 5, [](const std::string& keyword) {
        std::vector<std::string> expected = WordsOf(keyword);
        for (std::string& word : expected) {
            if (word == "B") word = "long";
        }
        const std::string replaced = ReplaceWord(keyword, "b", "long");
        ASSERT_EQ(WordsOf(replaced), expected) << "'" << keyword << "' gives '" << replaced << "'";
        if (replaced.find("long") != std::string::npos) return;
        ASSERT_EQ(replaced, TrimBlanks(keyword));
    });
}

TEST(ReplaceWord, KeepsPunctuationAndWordsThatHoldTheWord) {
    EXPECT_EQ(ReplaceWord("Form_Load; form, reform \"FORM\"", "form", "Window"),
              "Window_Load; Window, reform \"Window\"");
    EXPECT_EQ(ReplaceWord("don't, Don't", "don't", "it's"), "it's, it's");
    EXPECT_EQ(ReplaceWord("Höhe\r\nhöhe", "HÖHE", "Tiefe"), "Tiefe\r\nTiefe");
}

}  // namespace
}  // namespace snippetarium::test
