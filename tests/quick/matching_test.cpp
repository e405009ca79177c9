#include <gtest/gtest.h>

#include <set>

#include "quick/block_fit.h"
#include "quick/matching_line.h"
#include "quick/name_match.h"
#include "quick/slip.h"
#include "quick/word_pattern.h"
#include "support/case_fold.h"

namespace snippetarium::test {
namespace {

/// All texts of up to this length over an alphabet.
std::vector<std::string> AllTexts(std::string_view alphabet, std::size_t length) {
    std::vector<std::string> texts = {""};
    for (std::size_t from = 0; length > 0; --length) {
        const std::size_t end = texts.size();
        for (; from < end; ++from) {
            for (const char letter : alphabet)
                texts.push_back(texts[from] + letter);
        }
    }
    return texts;
}

/// Whether a pattern fits all of a text, letter by letter.
bool SlowFits(std::string_view pattern, std::string_view text) {
    if (pattern.empty()) return text.empty();
    const bool isLetter = !text.empty() && text[0] != ' ';
    if (pattern[0] == '*') {
        return SlowFits(pattern.substr(1), text) || (isLetter && SlowFits(pattern, text.substr(1)));
    }
    if (!isLetter) return false;
    const bool isEqual = pattern[0] == '?' || AsciiLower(pattern[0]) == AsciiLower(text[0]);
    return isEqual && SlowFits(pattern.substr(1), text.substr(1));
}

std::optional<ByteRange> SlowFindAt(std::string_view pattern, std::string_view text,
                                    std::size_t from) {
    for (std::size_t size = 1; from + size <= text.size(); ++size) {
        if (SlowFits(pattern, text.substr(from, size))) return ByteRange{from, size};
    }
    return {};
}

std::optional<ByteRange> SlowFind(std::string_view pattern, std::string_view text) {
    for (std::size_t from = 0; from < text.size(); ++from) {
        if (const auto found = SlowFindAt(pattern, text, from)) return found;
    }
    return {};
}

TEST(WordPattern, FindsWhatASlowWalkFinds) {
    const std::vector<std::string> texts = AllTexts("aB ", 5);
    for (const std::string& pattern : AllTexts("ab?*", 4)) {
        // The stars at both ends say nothing.
        const std::size_t first = pattern.find_first_not_of('*');
        if (pattern.find_first_not_of("?*") == std::string::npos) continue;
        const std::string bare = pattern.substr(first, pattern.find_last_not_of('*') + 1 - first);
        const WordPattern compiled(pattern, WordPattern::Wildcards::Count);
        for (const std::string& text : texts) {
            ASSERT_EQ(compiled.Find(text), SlowFind(bare, text)) << pattern << " in " << text;
            ASSERT_EQ(compiled.FitsWhole(text), SlowFits(bare, text)) << pattern << ", " << text;
            if (text.empty()) continue;
            ASSERT_EQ(compiled.FindAt(text, 0), SlowFindAt(bare, text, 0))
                << pattern << ": " << text;
        }
    }
}

TEST(WordPattern, TakesWildcardsOfAPhraseAsLettersAndKnowsAllScripts) {
    using enum WordPattern::Wildcards;
    EXPECT_EQ(WordPattern("a* b", AreLetters).Find("aa bA* B"), (ByteRange{4, 4}));
    EXPECT_EQ(WordPattern("ж?к", Count).Find("xЖУК"), (ByteRange{1, 6}));
    EXPECT_EQ(WordPattern("g*ß", Count).Find("Größe"), (ByteRange{0, 6}));
}

TEST(WordStart, IsWhereAPersonSeesAWordBegin) {
    // A bar stands before each word.
    for (const std::string_view marked :
         {"|is|Leap|Year", "|is_|leap_|year", "|HTTP|Server", "|get|X", "|Draw|5|x",
          "|Grid::|Draw(|int |x)", "__|init__", "|über|Größe", "|Большой|Жук", "~|Grid", "",
          "|operator+=", "|a|Bc|DE"}) {
        std::string name;
        std::set<std::size_t> starts;
        for (const char character : marked) {
            if (character == '|') {
                starts.insert(name.size());
            } else {
                name += character;
            }
        }
        for (std::size_t place = 0; place < name.size(); NextFolded(name, place))
            EXPECT_EQ(IsWordStart(name, place), starts.contains(place))
                << marked << " at " << place;
    }
}

TEST(NameMatch, RanksTheBestPlaceOfAName) {
    using enum QuickTier;
    const struct {
        std::string_view word;
        std::string_view name;
        QuickTier tier;
    } cases[] = {
        {"draw", "Draw", ExactName},        {"draw", "Draw(int x)", ExactName},
        {"draw", "Draw () (2)", ExactName}, {"draw(int x)", "Draw(int x)", ExactName},
        {"draw", "DrawGrid", NamePrefix},   {"grid", "subgridGrid", WordStart},
        {"grid", "draw_grid", WordStart},   {"rid", "DrawGrid", NamePart},
        {"d*w", "Draw", ExactName},         {"d?aw", "DrawIt", NamePrefix},
        {"g*d", "bagdGrid", WordStart},     {"(int", "Draw(int x)", NamePart},
    };
    for (const auto& [word, name, tier] : cases) {
        const auto match = MatchName(WordPattern(word, WordPattern::Wildcards::Count), name);
        ASSERT_TRUE(match.has_value()) << word << " in " << name;
        EXPECT_EQ(match->tier, tier) << word << " in " << name;
    }
    EXPECT_FALSE(MatchName(WordPattern("grab", WordPattern::Wildcards::Count), "Grid"));
}

TEST(BlockFit, PromisesNoLessThanTheBestNameAndSeesWhereNoWordStarts) {
    using enum BlockFit;
    const std::vector<std::string> names = AllTexts("aB_(", 4);
    for (const std::string& word : AllTexts("ab_?*", 3)) {
        if (word.find_first_not_of("?*") == std::string::npos) continue;
        const WordPattern pattern(word, WordPattern::Wildcards::Count);
        for (std::size_t i = 1; i < names.size(); ++i) {
            const auto match = MatchName(pattern, names[i]);
            const auto best = !match                                ? None
                              : match->tier == QuickTier::ExactName ? Whole
                              : match->tier <= QuickTier::WordStart ? AtWordStart
                                                                    : Inside;
            // Among names that have nothing of the pattern, at every place of a vector.
            const std::string block =
                std::string(i % 19, 'x') + '\n' + names[i] + '\n' + std::string(i % 41, 'X');
            for (const std::string& text : {names[i], block}) {
                const BlockFit fit = FitOfBlock(pattern, text);
                ASSERT_GE(fit, best) << word << " in " << text;
                const bool isCertain = best == Inside || (best == None && pattern.IsPlain());
                ASSERT_TRUE(fit == best || !isCertain) << word << " in " << text;
            }
        }
    }
    const WordPattern capital("жу", WordPattern::Wildcards::Count);
    EXPECT_EQ(FitOfBlock(capital, "abc\nБольшойЖук\nабв"), Whole);
    EXPECT_EQ(FitOfBlock(capital, "abc\nБольшойжук\nабв"), Inside);
    const WordPattern ending("dr*d", WordPattern::Wildcards::Count);
    EXPECT_EQ(FitOfBlock(ending, "DrawGrid12\nGrid"), Whole);
    EXPECT_EQ(FitOfBlock(ending, "DrawGrid12\nGridx"), AtWordStart);
}

/// Every text that one slip makes of another, over an alphabet.
std::set<std::u32string> Slips(const std::u32string& text, std::u32string_view alphabet) {
    std::set<std::u32string> slips = {text};
    for (std::size_t i = 0; i <= text.size(); ++i) {
        for (const char32_t letter : alphabet) {
            slips.insert(text.substr(0, i) + letter + text.substr(i));
            if (i < text.size()) slips.insert(text.substr(0, i) + letter + text.substr(i + 1));
        }
        if (i < text.size()) slips.insert(text.substr(0, i) + text.substr(i + 1));
        if (i + 1 < text.size()) {
            std::u32string swapped = text;
            std::swap(swapped[i], swapped[i + 1]);
            slips.insert(swapped);
        }
    }
    return slips;
}

/// Stretch after stretch, the shorter first.
std::optional<ByteRange> SlowFindSlip(const std::set<std::u32string>& slips, std::size_t size,
                                      std::string_view name) {
    for (std::size_t start = 0; start < name.size(); ++start) {
        for (std::size_t length = size - 1; length <= size + 1; ++length) {
            if (start + length > name.size()) break;
            if (!IsWordStart(name, start) || !IsWordEnd(name, start + length)) continue;
            const std::string stretch = FoldCase(name.substr(start, length));
            if (slips.contains(std::u32string(stretch.begin(), stretch.end())))
                return ByteRange{start, length};
        }
    }
    return {};
}

TEST(Slip, IsOneLetterLeftOutAddedReplacedOrTwoSwapped) {
    const std::vector<std::string> names = AllTexts("aB_", 6);
    for (const std::string& typed : AllTexts("ab", 5)) {
        if (!SlipPattern::IsLongEnough(typed)) continue;
        const SlipPattern pattern(typed);
        const auto slips = Slips(std::u32string(typed.begin(), typed.end()), U"ab_");
        for (const std::string& name : names)
            ASSERT_EQ(pattern.Find(name), SlowFindSlip(slips, typed.size(), name))
                << typed << " in " << name;
    }
}

TEST(Slip, IsFoundInStretchesOfWholeWordsAndNeedsOneOfItsNeedles) {
    const struct {
        std::string_view typed;
        std::string_view name;
        bool isFound;
    } cases[] = {
        {"laep", "IsLeapYear", true},
        {"leapyaer", "IsLeapYear", true},
        {"isleapyer", "IsLeapYear", true},
        {"leapyear", "is_leap_year", true},
        {"leab", "IsLeapYear", true},
        {"eapy", "IsLeapYear", false},
        {"leapp", "IsLeapYear", true},
        {"gird", "Grid::Draw(int x)", true},
        {"жкуи", "Жуки", true},
        {"grrid", "DrawGrids", false},
    };
    for (const auto& [typed, name, isFound] : cases) {
        const SlipPattern pattern(typed);
        EXPECT_EQ(pattern.Find(name).has_value(), isFound) << typed << " in " << name;
        bool hasNeedle = false;
        for (const FoldedNeedle& needle : pattern.Needles())
            hasNeedle |= needle.Find(name) != FoldedNeedle::kNotFound;
        EXPECT_TRUE(hasNeedle || !isFound) << typed << " in " << name;
    }
    // Of every slip of a word, a needle is left.
    const SlipPattern pattern("abcab");
    for (const std::u32string& slip : Slips(U"abcab", U"abc")) {
        const std::string name(slip.begin(), slip.end());
        bool hasNeedle = false;
        for (const FoldedNeedle& needle : pattern.Needles())
            hasNeedle |= needle.Find(name) != FoldedNeedle::kNotFound;
        EXPECT_TRUE(hasNeedle) << name;
        EXPECT_TRUE(pattern.Find(name).has_value()) << name;
    }
}

TEST(MatchingLine, IsTheFirstWithItsNumberPlaceAndMatches) {
    const WordPattern grid("grid", WordPattern::Wildcards::Count);
    const WordPattern draw("draw", WordPattern::Wildcards::Count);
    const WordPattern overlap("wgr", WordPattern::Wildcards::Count);
    const std::string text = "Sub Draw()\r\n  DrawGrid 1, grid\r\nEnd Sub";
    const MatchingLine line = FindMatchingLine(text, {&grid}, {&draw, &grid, &overlap});
    EXPECT_EQ(line.text, "  DrawGrid 1, grid");
    EXPECT_EQ(line.number, 2U);
    EXPECT_EQ(line.place, 19U);
    EXPECT_EQ(line.matches, (std::vector<ByteRange>{{2, 8}, {14, 4}}));
    EXPECT_EQ(FindMatchingLine("nothing", {&grid}, {&grid}).number, 0U);

    for (const char filler : {'x', '\x80'}) {  // the second is no character, as in a damaged text
        const std::string longLine = std::string(1000, filler) + "grid" + std::string(5000, filler);
        const MatchingLine cut = FindMatchingLine(longLine, {&grid}, {&grid});
        EXPECT_LT(cut.text.size(), 500U);
        EXPECT_EQ(cut.place, 1001U);
        ASSERT_EQ(cut.matches.size(), 1U);
        ASSERT_LE(cut.matches[0].End(), cut.text.size());
        EXPECT_EQ(cut.text.substr(cut.matches[0].begin, cut.matches[0].size), "grid");
    }
}

}  // namespace
}  // namespace snippetarium::test
