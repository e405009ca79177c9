#include "engine/jet_like.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine_error.h"
#include "support/case_fold.h"
#include "tests/engine/random_text.h"

namespace snippetarium {
namespace {

using namespace std::string_literals;

std::u32string FoldedCharacters(std::string_view text) {
    std::u32string characters;
    for (std::size_t position = 0; position < text.size();) {
        characters += NextFolded(text, position);
    }
    return characters;
}

// What a pattern means, written down as one reads it and as slow as that is.

bool SetHolds(std::u32string_view set, char32_t character) {
    if (set.empty()) return false;
    if (set.size() > 2 && set[1] == '-') {
        const bool isInRange = set[0] <= character && character <= set[2];
        return isInRange || SetHolds(set.substr(3), character);
    }
    return set[0] == character || SetHolds(set.substr(1), character);
}

bool BracketsAccept(std::u32string_view content, char32_t character) {
    const bool isNegated = content.size() > 1 && (content[0] == '!' || content[0] == '^');
    return SetHolds(content.substr(isNegated ? 1 : 0), character) != isNegated;
}

bool Means(std::u32string_view pattern, std::u32string_view text) {
    if (pattern.empty()) return text.empty();
    const std::u32string_view rest = pattern.substr(1);
    if (pattern[0] == '%') {
        return Means(rest, text) || (!text.empty() && Means(pattern, text.substr(1)));
    }
    if (pattern[0] == '[') {
        const std::u32string_view content = rest.substr(0, rest.find(']'));
        const std::u32string_view behind = rest.substr(content.size() + 1);
        if (content.empty()) return Means(behind, text);
        return !text.empty() && BracketsAccept(content, text[0]) && Means(behind, text.substr(1));
    }
    if (text.empty()) return false;
    return (pattern[0] == '_' || pattern[0] == text[0]) && Means(rest, text.substr(1));
}

bool IsClosed(std::string_view pattern) {
    const std::size_t open = pattern.find('[');
    if (open == std::string_view::npos) return true;
    const std::size_t close = pattern.find(']', open);
    return close != std::string_view::npos && IsClosed(pattern.substr(close + 1));
}

std::optional<LikePattern> Compile(std::string_view pattern) {
    try {
        return LikePattern(pattern);
    } catch (const EngineError& error) {
        EXPECT_EQ(error.Code(), EngineErrorCode::InvalidPattern);
        return std::nullopt;
    }
}

std::vector<std::string> TextsUpTo(std::size_t length, std::string_view alphabet) {
    std::vector<std::string> texts = {""};
    for (std::size_t i = 0; i < texts.size() && texts[i].size() < length; ++i) {
        for (const char character : alphabet)
            texts.push_back(texts[i] + character);
    }
    return texts;
}

constexpr std::size_t kLongestPattern = 5;

/// The patterns that begin with one character, so that the tests can share the work.
class EveryShortPattern : public testing::TestWithParam<char> {};

constexpr std::string_view kPatternAlphabet = "aB%_[]!-";

std::string CharacterCode(const testing::TestParamInfo<char>& character) {
    return std::to_string(static_cast<int>(character.param));
}

INSTANTIATE_TEST_SUITE_P(First, EveryShortPattern,
                         testing::ValuesIn(kPatternAlphabet.begin(), kPatternAlphabet.end()),
                         CharacterCode);

TEST_P(EveryShortPattern, MatchesTheTextsThatItMeans) {
    const std::vector<std::string> texts = TextsUpTo(4, "abBA%");
    std::vector<std::u32string> foldedTexts;
    foldedTexts.reserve(texts.size());
    for (const std::string& text : texts)
        foldedTexts.push_back(FoldedCharacters(text));

    for (const std::string& rest : TextsUpTo(kLongestPattern - 1, kPatternAlphabet)) {
        const std::string pattern = GetParam() + rest;
        const std::optional<LikePattern> compiled = Compile(pattern);
        ASSERT_EQ(compiled.has_value(), IsClosed(pattern)) << pattern;
        if (!compiled) continue;
        const std::u32string foldedPattern = FoldedCharacters(pattern);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            ASSERT_EQ(compiled->Match(texts[i]), Means(foldedPattern, foldedTexts[i]))
                << pattern << " / " << texts[i];
        }
    }
}

TEST(LikePattern, MatchesTextsOfManyLanguagesAndMalformedOnesAsItMeans) {
    RandomText patterns({"a", "É", "Ж", "漢", "\U00010400", "%", "%", "_", "[a-é]", "[!Ж]",
                         "[漢Б-ю]", "[]", "[%]", "[\xC3]", "\xC3", "\xA9"},
                        1);
    RandomText texts({"a", "A", "é", "É", "ж", "Ж", "漢", "\U00010428", "%", "\xC3", "\xA9"}, 2);
    int matches = 0;
    for (int round = 0; round < 3000; ++round) {
        const std::string pattern = patterns.Pieces(1 + patterns.Below(7));
        const std::u32string foldedPattern = FoldedCharacters(pattern);
        const LikePattern compiled(pattern);
        for (int i = 0; i < 20; ++i) {
            const std::string text = texts.Pieces(texts.Below(8));
            const bool expected = Means(foldedPattern, FoldedCharacters(text));
            ASSERT_EQ(compiled.Match(text), expected) << pattern << " / " << text;
            matches += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matches, 3000);
}

TEST(LikePattern, FindsSegmentsInLongTextsAsItMeans) {
    RandomText patterns({"a", "B", "é", "b_", "_", "[!a]"}, 3);
    RandomText texts({"a", "b", "A", "É", "é"}, 4);
    int matches = 0;
    for (int round = 0; round < 2000; ++round) {
        // More "%" would take the reference too long.
        std::string pattern = "%";
        pattern += patterns.Pieces(1 + patterns.Below(6)) + "%";
        pattern += patterns.Pieces(patterns.Below(3));
        const std::string text = texts.Pieces(texts.Below(150));
        const bool expected = Means(FoldedCharacters(pattern), FoldedCharacters(text));
        ASSERT_EQ(LikePattern(pattern).Match(text), expected) << pattern << " / " << text;
        matches += expected ? 1 : 0;
    }
    EXPECT_GT(matches, 300);
}

TEST(LikePattern, QuotesWildcardsInBrackets) {
    const struct {
        const char* pattern;
        const char* matches;
        const char* doesNotMatch;
    } cases[] = {
        {"50[%]", "50%", "50x"},  {"a[_]b", "a_b", "axb"},
        {"x[[]i]", "x[i]", "xi"}, {"[]]", "]", ""},
        {"a]", "a]", "a"},        {"a[]b", "ab", "a b"},
        {"[!]", "!", "a"},        {"[!!]", "a", "!"},
        {"[^]", "^", "a"},        {"[^a-c]", "d", "B"},
        {"[a^]", "^", "b"},       {"[-a]", "-", "b"},
        {"[a-]", "-", "b"},       {"[!-]", "a", "-"},
        {"[a-cx-z0]", "Y", "w"},  {"[A-z]", "m", "["},
        {"[z-a]", "", "m"},       {"[!z-a]", "m", ""},
        {"[а-я]", "Ж", "z"},      {"it's [\"]", "IT'S \"", "it's '"},
    };
    for (const auto& [pattern, matches, doesNotMatch] : cases) {
        const LikePattern compiled(pattern);
        EXPECT_EQ(compiled.Match(matches), matches[0] != '\0') << pattern;
        EXPECT_FALSE(compiled.Match(doesNotMatch)) << pattern;
    }
}

std::string RefusalOf(const std::string& pattern) {
    try {
        const LikePattern compiled(pattern);
    } catch (const EngineError& error) {
        EXPECT_EQ(error.Code(), EngineErrorCode::InvalidPattern);
        return error.Description();
    }
    return "";
}

TEST(LikePattern, RefusesAPatternAndSaysWhatToDo) {
    const std::string unclosed =
        "Invalid pattern string: a bracket \"[\" is not closed. To find the bracket itself, write "
        "\"[[]\".";
    EXPECT_EQ(RefusalOf("%matrix[%"), unclosed);
    EXPECT_EQ(RefusalOf("[a]["), unclosed);
    EXPECT_EQ(RefusalOf("[!"), unclosed);

    std::string longest;
    for (std::size_t i = 0; i < LikePattern::kMaxPatternLength; ++i)
        longest += "é";
    EXPECT_TRUE(LikePattern(longest).Match(FoldCase(longest)));
    EXPECT_EQ(
        RefusalOf(longest + "é"),
        "Invalid pattern string: it has 4097 characters, more than the 4096 that are possible. "
        "Shorten it.");
}

struct LongPattern {
    const char* before;
    std::size_t count;
    const char* repeated;
    const char* behind;

    std::string Text() const {
        std::string text = before;
        for (std::size_t i = 0; i < count; ++i)
            text += repeated;
        return text += behind;
    }
};

/// Says "cancelled" when it is asked for the given time.
class CancelAtPoll : public CancelPoll {
  public:
    explicit CancelAtPoll(int poll) : pollsLeft_(poll) {}
    bool IsCancelled() const override { return --pollsLeft_ <= 0; }

  private:
    mutable int pollsLeft_;
};

TEST(LikePattern, PathologicalPatternsFinish) {
    const std::string text(64'000, 'a');
    const struct {
        LongPattern pattern;
        bool isMatch;
    } cases[] = {
        {{"", 1300, "%a_", "b%"}, false},      {{"", 1300, "%a_", "%"}, true},
        {{"", 2000, "%_", "b"}, false},        {{"%", 800, "%[ab]", "b%a"}, false},
        {{"%", 4000, "_", "%b%"}, false},      {{"%", 100, "a_", "b%"}, false},
        {{"%", 100, "[!b]", "[b-c]%"}, false}, {{"%", 4000, "a", "b%"}, false},
        {{"%", 4000, "A", "%"}, true},
    };
    for (const auto& [pattern, isMatch] : cases) {
        EXPECT_EQ(LikePattern(pattern.Text()).Match(text), isMatch)
            << pattern.before << pattern.repeated << pattern.behind;
    }
}

TEST(LikePattern, ALongMatchCanBeCancelled) {
    const std::string text(64'000, 'a');
    for (const LongPattern& pattern :
         {LongPattern{"%", 2000, "a_", "b%"}, LongPattern{"%", 1000, "[!b]", "[b-c]%"}}) {
        const CancelAtPoll poll(3);
        try {
            LikePattern(pattern.Text()).Match(text, &poll);
            ADD_FAILURE() << "not cancelled: " << pattern.before << pattern.repeated;
        } catch (const EngineError& error) {
            EXPECT_EQ(error.Code(), EngineErrorCode::Cancelled);
        }
    }
}

TEST(LikePattern, AShortMatchIsNotHeldUpByPolls) {
    const CancelAtPoll poll(1);
    EXPECT_TRUE(LikePattern("%a_c[x-z]%").Match(std::string(1000, 'a') + "bcx", &poll));
}

}  // namespace
}  // namespace snippetarium
