#include "keywords/words.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>
#include <vector>

#include "support/text.h"
#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

const std::vector<std::string> kNoise = {"the", "and", "don't"};

// clang-format off
constexpr std::string_view kExpectedPunctuation[] = {
    ",", ".", ";", ":", "/", "\"", "!", "?", "`", "\u00B4 ", "~", "\t", "-", "_", "@", "#", "$",
    "%", "^", "&", "*", "(", ")", "+", "=", "|", "{", "[", "]", "}", "<", ">", "\r\n", "''''",
    "'' ", " ''", "\\", "\u201C", "\u201D", "\u2013",
};
// clang-format on

/// One replacement after the other, each built anew character by character.
std::string ReplaceSlowly(const std::string& text, std::string_view what) {
    std::string replaced;
    for (std::size_t i = 0; i < text.size();) {
        const bool isHere = text.compare(i, what.size(), what) == 0;
        replaced += isHere ? ' ' : text[i];
        i += isHere ? what.size() : 1;
    }
    return replaced;
}

std::string NormaliseSlowly(std::string text) {
    while (text.starts_with(' '))
        text.erase(0, 1);
    while (text.ends_with(' '))
        text.pop_back();
    for (const std::string_view entry : kExpectedPunctuation)
        text = ReplaceSlowly(text, entry);
    text = ReplaceSlowly(ReplaceSlowly(text, "   "), "  ");
    return text.starts_with("''") ? text.substr(2) : text;
}

TEST(Words, KnowTheirPunctuationInItsOrder) {
    for (const std::string_view first : kExpectedPunctuation) {
        for (const std::string_view second : kExpectedPunctuation) {
            for (const std::string between : {"", " ", "x"}) {
                const std::string text =
                    "a" + std::string(first) + between + std::string(second) + "b";
                EXPECT_EQ(NormaliseWords(text), NormaliseSlowly(text)) << text;
            }
        }
    }
}

TEST(Words, AreNormalisedInSinglePasses) {
    const struct {
        std::string_view text;
        std::string_view expected;
    } cases[] = {
        {"", ""},
        {"  grid  ", "grid"},
        {"Grid3, 2nd-hand; Form_Load", "Grid3 2nd hand Form Load"},
        {"a,b", "a b"},
        {"a, b", "a b"},
        {"a - b", "a b"},
        {"a -- b", "a b"},
        {"a --- b", "a  b"},
        {"a ---- b", "a b"},
        {"a -------- b", "a  b"},
        {"a,", "a "},
        {",a", " a"},
        {"don''t", "don''t"},
        {"''grid'' view", "grid view"},
        {"say ''grid''", "say grid''"},
        {"''''grid", " grid"},
        {"a''''''b", "a b"},
        {"''x''", "x''"},
        {"(''grid'')", " grid "},
        {"a\u00B4 b\u00B4c", "a b\u00B4c"},
        {"a\u00B4, b", "a b"},
        {"a\u00B4- b", "a\u00B4 b"},
        {"\u201Cgrid\u201D\u2013view", " grid view"},
        {"a\r\nb\nc", "a b\nc"},
        {"x\\''y", "x ''y"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(NormaliseWords(test.text), test.expected) << test.text;
}

TEST(Words, AreNormalisedAsReplacingSlowlyDoes) {
    const std::vector<std::string> pieces = {"'", " ", "a", ",", "\u00B4", "\r\n", "\\"};
    ForEveryText("0123456", 5, [&](const std::string& choice) {
        std::string typed;
        for (const char digit : choice)
            typed += pieces[static_cast<std::size_t>(digit - '0')];
        const std::string doubled = DoubleSingleQuotes(typed);
        const std::string expected = NormaliseSlowly(doubled);
        ASSERT_EQ(NormaliseWords(doubled), expected) << typed;
        ASSERT_EQ(DoubleSingleQuotes(SeparateWords(typed)), expected)
            << "quotes must go in pairs: " << typed;
    });
}

TEST(Words, AreFoundInALongTextAsFastAsInShortOnes) {
    // Moving the rest of the text at each replacement takes ten times as long.
    for (const std::string_view piece : {"'", "   a", "\r\n"}) {
        std::string text;
        while (text.size() < 1'000'000)
            text += piece;
        const std::clock_t start = std::clock();
        SeparateWords(text);
        EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC) << piece;
    }
}

TEST(Words, AreNumbersInDecimalNotation) {
    for (const std::string_view number :
         {"0", "12", "-5", "+5", ".5", "5.", "-.5", "1.25", "1e5", "1E+5", "-2.5e-10", "007"})
        EXPECT_TRUE(IsNumeric(number)) << number;
    for (const std::string_view other :
         {"",    "-",   "+",   ".",   "-.", "e5",   ".e5",  "1e",     "1e+",   "1.2.3", "1,000",
          "--1", "12a", "a12", "1 2", " 1", "&H1F", "0x1F", "\u0663", "1e5e5", "5-"})
        EXPECT_FALSE(IsNumeric(other)) << other;
}

TEST(Words, AreFilteredBetweenSeparators) {
    const NoiseWords noise(kNoise);
    const struct {
        std::string_view text;
        std::string_view separator;
        std::string_view expected;
    } cases[] = {
        {"", " ", ""},
        {"  ", " ", ""},
        {"grid", " ", "grid"},
        {"the grid AND Form", " ", "grid Form"},
        {"3d 2nd -5 .5 +1e3 x5", " ", "x5"},
        {"grid  form ", " ", "grid form"},
        {" grid , the ,form,,", ",", "grid,form"},
        {"the grid;the", ";", "the grid"},
        {"grid", "", "grid"},
        {"the grid", "", "the grid"},
        {"oneXtwoxthe", "x", "onextwo"},
        {"a \u00C4 b", "\u00E4", "a\u00E4b"},
        {"1 2 the", " ", ""},
        {"a, b", ", ", "a, b"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(FilterWords(test.text, test.separator, noise), test.expected) << test.text;
}

TEST(Words, AreKeptOnceWhateverTheirCase) {
    EXPECT_EQ(RemoveDuplicateWords("Grid grid GRID"), "Grid");
    EXPECT_EQ(RemoveDuplicateWords("b  a B c a"), "b a c");
    EXPECT_EQ(RemoveDuplicateWords("\u00C9t\u00E9 \u00E9T\u00C9"), "\u00C9t\u00E9");
    EXPECT_EQ(RemoveDuplicateWords("grid grids gri"), "grid grids gri");
    EXPECT_EQ(RemoveDuplicateWords(" "), "");
}

TEST(Words, OfAKeywordStringAreItsSearchWords) {
    const NoiseWords noise(kNoise);
    const struct {
        std::string_view keyword;
        std::string_view expected;
    } cases[] = {
        {"Grid3, 2nd-hand; Form_Load", "Grid3 hand Form Load"},
        {"Grid grid GRID", "Grid"},
        {"the 12 and 3rd", ""},
        {"", ""},
        {"---", ""},
        {"won't don't Won't", "won't"},
        {"'quoted' words", "quoted words"},
        {"the '90s", ""},
        {"a ---- ,, b", "a b"},
        {"\u0441\u0435\u0442\u043A\u0430, \u0421\u0435\u0442\u043A\u0430, \u8868",
         "\u0441\u0435\u0442\u043A\u0430 \u8868"},
        {"C++, C#", "C"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(KeywordToSearchWords(test.keyword, noise), test.expected) << test.keyword;
}

TEST(Words, AreNeverEmptyNumbersOrNoiseWhateverTheStringHolds) {
    const std::vector<std::string> letters = {"a"};
    const NoiseWords noise(letters);
    ForEveryText("aB1', -", 6, [&](const std::string& keyword) {
        const std::string words = KeywordToSearchWords(keyword, noise);
        std::string joined;
        for (const std::string_view word : SplitWords(words)) {
            joined.append(joined.empty() ? "" : " ").append(word);
            ASSERT_NE(word.front(), '1') << keyword;
            ASSERT_NE(word, "a") << keyword;
            ASSERT_EQ(word.find_first_of(",-"), std::string_view::npos) << keyword;
        }
        ASSERT_EQ(joined, words) << keyword;
    });
}

}  // namespace
}  // namespace snippetarium
