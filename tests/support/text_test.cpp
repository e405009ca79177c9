#include "support/text.h"

#include <gtest/gtest.h>

#include <array>
#include <regex>
#include <span>

#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

struct TextCase {
    std::string_view input;
    std::string_view expected;
};

void ExpectParts(std::string_view (*part)(std::string_view), std::span<const TextCase> cases) {
    for (const auto& [input, expected] : cases) {
        EXPECT_EQ(part(input), expected) << testing::PrintToString(input);
    }
}

std::string FirstMatch(const std::string& text, const std::regex& pattern) {
    std::smatch match;
    return std::regex_search(text, match, pattern) ? match.str() : std::string();
}

TEST(DoubleSingleQuotes, DoublesEachSingleQuoteAndNothingElse) {
    EXPECT_EQ(DoubleSingleQuotes("it's"), "it''s");
    EXPECT_EQ(DoubleSingleQuotes("''"), "''''");
    EXPECT_EQ(DoubleSingleQuotes(std::string(64000, '\'')), std::string(128000, '\''));
    ForEveryText("a'\"", 6, [quote = std::regex("'")](const std::string& text) {
        ASSERT_EQ(DoubleSingleQuotes(text), std::regex_replace(text, quote, "''"));
    });
}

TEST(ReplaceAll, LooksAtEachPartOfTheTextOnce) {
    EXPECT_EQ(ReplaceAll("aaaa", "aaa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("ab", "b", "bb"), "abb");
    EXPECT_EQ(ReplaceAll("ab", "", "x"), "ab");
    EXPECT_EQ(ReplaceAll("", "a", "x"), "");
    ForEveryText("a'b", 6, [quotes = std::regex("''|ab")](const std::string& text) {
        ASSERT_EQ(ReplaceAll(ReplaceAll(text, "''", "?"), "ab", "?"),
                  std::regex_replace(text, quotes, "?"));
    });
}

TEST(StripOuterQuotes, DropsOneQuoteOfEitherKindAtEachEnd) {
    const TextCase cases[] = {
        {"\"abc'", "abc"}, {"\"", ""},       {"abc", "abc"},       {"", ""},    {"abc'", "abc"},
        {"'abc", "abc"},   {"''a''", "'a'"}, {"a\"b'c", "a\"b'c"}, {"'\"", ""}, {"'\"'", "\""}};
    ExpectParts(StripOuterQuotes, cases);
}

TEST(TrimToAlphanumeric, ReachesFromTheFirstToTheLastLetterOrDigit) {
    const TextCase cases[] = {{"  (abc_1);", "abc_1"},
                              {"--", ""},
                              {"", ""},
                              {"  x", "x"},
                              {"\xC3\xA9tude\xC3\xA9", "tude"}};
    ExpectParts(TrimToAlphanumeric, cases);
    const std::regex firstToLast("[0-9A-Za-z](.*[0-9A-Za-z])?");
    ForEveryText("a (", 7, [&](const std::string& text) {
        ASSERT_EQ(TrimToAlphanumeric(text), FirstMatch(text, firstToLast)) << text;
    });
}

TEST(TrimToVisible, DropsBlanksControlsAndBytesBeyondAsciiAtTheEndsOnly) {
    const TextCase cases[] = {{" \tSub A ( )\r\n", "Sub A ( )"},
                              {" \r\n\x7F", ""},
                              {"", ""},
                              {"\t;", ";"},
                              {"\xC3\xA9 a \xC3\xA9 b \xE2\x82\xAC", "a \xC3\xA9 b"}};
    ExpectParts(TrimToVisible, cases);
    const std::regex firstToLast("[!-~](.*[!-~])?");
    ForEveryText("a (\xC3", 6, [&](const std::string& text) {
        ASSERT_EQ(TrimToVisible(text), FirstMatch(text, firstToLast)) << text;
    });
}

TEST(ByteClasses, AreThoseOfAsciiForAllBytes) {
    const std::string_view alphanumeric =
        "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(IsAlphanumeric(byte[0]), alphanumeric.find(byte) != std::string_view::npos)
            << code;
        EXPECT_EQ(TrimToVisible(byte).empty(), code < 33 || code > 126) << code;
    }
}

TEST(TextPositions, LookOnlyAtTheLeadingPart) {
    EXPECT_EQ(FirstAlphanumericPos("(ab)", 4), 2U);
    EXPECT_EQ(FirstAlphanumericPos("((ab", 2), 3U);
    EXPECT_EQ(FirstAlphanumericPos("", 0), 1U);
    EXPECT_EQ(FirstAlphanumericPos("(", 9), 10U);
    EXPECT_EQ(LastAlphanumericPos("(ab)c", 4), 3U);
    EXPECT_EQ(LastAlphanumericPos("((ab", 2), 0U);
    EXPECT_EQ(LastAlphanumericPos("ab", 9), 2U);
    EXPECT_EQ(MinOf(3, INT32_MIN), INT32_MIN);
}

TEST(FindFirstOf, GivesTheSmallestPositionFromTheStartOn) {
    const std::array<std::string_view, 4> strings{"b", "aa", "", "cab"};
    EXPECT_EQ(FindFirstOf("abc", strings, 0), 2U);
    EXPECT_EQ(FindFirstOf("ABC", strings, 1), 0U);
    EXPECT_EQ(FindFirstOf("abc", {}, 1), 0U);
    ForEveryText("abc", 6, [&](const std::string& text) {
        for (std::size_t start = 1; start <= text.size() + 2; ++start) {
            std::size_t expected = 0;
            for (std::size_t position = text.size(); position >= start; --position) {
                const std::string_view rest = std::string_view(text).substr(position - 1);
                for (const std::string_view string : strings) {
                    if (!string.empty() && rest.starts_with(string)) expected = position;
                }
            }
            ASSERT_EQ(FindFirstOf(text, strings, start), expected) << text << " from " << start;
        }
    });
}

}  // namespace
}  // namespace snippetarium
