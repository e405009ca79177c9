#include "search/search_entry.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/message_boxes.h"
#include "support/text.h"
#include "tests/fakes.h"
#include "tests/support/every_text.h"

namespace snippetarium::test {
namespace {

const ShownBox kBracketsBox = {BoxKind::Information, std::string(kInformationTitle),
                               "There is an error with the brackets in your search entry. Please "
                               "modify your search entry and try again."};
const ShownBox kQuotesBox = {BoxKind::Information, std::string(kInformationTitle),
                             "There is an extra double quotation mark in your search entry. Please "
                             "modify your search entry and try again."};

// The slow references keep a text and 1-based positions in it, and change it in place.

std::string From(const std::string& text, std::size_t first, std::size_t end) {
    return first > text.size() ? "" : text.substr(first - 1, end - first);
}

std::string At(const std::string& text, std::size_t position) {
    return position == 0 ? "" : From(text, position, position + 1);
}

std::string First(const std::string& text, std::size_t count) {
    return text.substr(0, count);
}

/// 0 when there is none.
std::size_t Find(const std::string& text, const std::string& what, std::size_t start) {
    return start > text.size() ? 0 : text.find(what, start - 1) + 1;
}

void InsertSpace(std::string& text, std::size_t behind) {
    text = First(text, behind) + " " + From(text, behind + 1, text.size() + 1);
}

bool CheckBracketsSlowly(std::string& s) {
    const std::size_t length = s.size();
    int count = 0;
    std::size_t searchFrom = 1;
    for (;;) {
        const std::size_t opening = Find(s, "(", searchFrom);
        const std::size_t closing = Find(s, ")", searchFrom);
        std::size_t p = opening == 0 || (closing != 0 && closing < opening) ? closing : opening;
        if (p == 0) break;
        count += p == opening ? 1 : -1;
        if (count < 0) break;
        if (p == opening) {
            if (p > 1 && At(s, p - 1) != " " && At(s, p - 1) != "(") InsertSpace(s, p++ - 1);
            if (At(s, p + 1) != " " && At(s, p + 1) != "(") InsertSpace(s, p);
        } else {
            if (At(s, p - 1) != ")" && At(s, p - 1) != " ") InsertSpace(s, p);
            if (p < s.size() && At(s, p + 1) != ")" && At(s, p + 1) != " ") InsertSpace(s, p);
        }
        ++p;
        if (p == length) break;
        searchFrom = p + 1;
    }
    return count == 0;
}

class SearchEntry : public ::testing::Test {
  protected:
    std::string Checked(std::string entry) {
        EXPECT_FALSE(ValidateSearchEntry(host_.reporter, entry)) << entry;
        return entry;
    }

    FakeHost host_;
};

TEST_F(SearchEntry, HasThreeOperatorsInAnyCase) {
    for (const std::string_view word : {"and", "or", "not", "AND", "Or", "nOT"})
        EXPECT_TRUE(IsOperator(word)) << word;
    for (const std::string_view word : {"", "an", "ands", " and", "xor", "(", "n\u00F6t"})
        EXPECT_FALSE(IsOperator(word)) << word;
    EXPECT_TRUE(IsBracket("(x"));
    EXPECT_TRUE(IsBracket(")"));
    EXPECT_FALSE(IsBracket("x("));
    EXPECT_FALSE(IsBracket(""));
}

TEST_F(SearchEntry, GetsAnOrBetweenWordsThatNoOperatorJoins) {
    const struct {
        std::string_view entry;
        std::string_view expected;
    } cases[] = {
        {"alpha beta gamma", "alpha or beta or gamma"},
        {"alpha and beta", "alpha and beta"},
        {"alpha NOT beta gamma", "alpha NOT beta or gamma"},
        {"a  b", "a or  or b"},
        {"x \"y z\"", "x or \"y or z\""},
        {"\u0441\u0435\u0442\u043A\u0430 \u8868", "\u0441\u0435\u0442\u043A\u0430 or \u8868"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(InsertImplicitOr(test.entry), test.expected) << test.entry;
}

TEST_F(SearchEntry, HasItsBracketsCheckedAsInASlowWalkAndAlikeInEveryScript) {
    const std::string_view letter = "\u8868";
    ForEveryText("() a", 8, [letter](const std::string& entry) {
        std::string fast = entry;
        std::string slow = entry;
        std::string other = ReplaceAll(entry, "a", letter);
        const bool isBalanced = CheckBracketsSlowly(slow);
        ASSERT_EQ(CheckBrackets(fast), isBalanced) << entry;
        ASSERT_EQ(fast, slow) << entry;
        ASSERT_EQ(CheckBrackets(other), isBalanced) << entry;
        ASSERT_EQ(ReplaceAll(other, letter, "a"), slow) << entry;
    });
}

/// This takes minutes where each mark costs as much as the entry is long.
TEST_F(SearchEntry, IsCheckedInTimeThatGrowsWithItsLengthAlone) {
    std::string entry = "x";
    std::string expected = "x";
    for (int i = 0; i < 300'000; ++i) {
        entry += "(a) \"b\"";
        expected += " ( a)  \"b\"";
    }
    EXPECT_TRUE(Checked(entry) == expected + " ");
}

TEST_F(SearchEntry, GetsSpacesAroundPhrases) {
    const struct {
        std::string entry;
        std::string_view expected;
        bool isBalanced;
    } cases[] = {
        {"alpha", "alpha", true},
        {"x \"y z\" w", "x \"y z\" w", true},
        {"x\"y z\"w", "x \"y z\" w", true},
        {"x \"y\"", "x \"y\" ", true},
        {"x \"\"", "x \"\" ", true},
        {"x\"y\"\"z\"", "x \"y\" \"z\" ", true},
        {"x \"y", "x \"y", false},
        {"x\"", "x \"", false},
        {"x \"y\" z\"", "x \"y\" z \"", false},
    };
    for (const auto& [entry, expected, isBalanced] : cases) {
        std::string checked = entry;
        EXPECT_EQ(CheckQuotes(host_.reporter, checked), isBalanced) << entry;
        EXPECT_EQ(checked, expected) << entry;
    }
}

TEST_F(SearchEntry, HasPairsOfQuotesWithASpaceOnTheirOuterSidesOrIsRefused) {
    ForEveryText("\" a", 9, [this](const std::string& entry) {
        if (entry.starts_with('"')) return;
        std::string checked = entry;
        const bool isBalanced = CheckQuotes(host_.reporter, checked);
        ASSERT_EQ(isBalanced, std::ranges::count(entry, '"') % 2 == 0) << entry;
        bool isOpen = false;
        for (std::size_t i = 0; i < checked.size(); ++i) {
            if (checked[i] != '"') continue;
            isOpen = !isOpen;
            ASSERT_EQ(isOpen ? checked[i - 1] : checked.at(i + 1), ' ') << entry;
        }
        std::erase(checked, ' ');
        std::string letters = entry;
        std::erase(letters, ' ');
        ASSERT_EQ(checked, letters);
    });
}

TEST_F(SearchEntry, FailsAtAQuoteWithWhichItBegins) {
    std::string entry = "\"x\" y";
    EXPECT_FALSE(CheckQuotes(host_.reporter, entry));
    ASSERT_EQ(host_.messages.shown.size(), 1U);
    EXPECT_NE(host_.messages.shown[0].text.find("11107"), std::string::npos);
}

TEST_F(SearchEntry, IsToldOnceWhatIsWrongWithIt) {
    const struct {
        std::string entry;
        const ShownBox& expected;
    } cases[] = {
        {"(alpha", kBracketsBox},
        {")alpha(", kBracketsBox},
        {"x \"alpha", kQuotesBox},
        {"(x \"alpha", kBracketsBox},
    };
    for (const auto& [entry, expected] : cases) {
        std::string checked = entry;
        EXPECT_TRUE(ValidateSearchEntry(host_.reporter, checked)) << entry;
        EXPECT_EQ(host_.messages.shown, std::vector<ShownBox>{expected}) << entry;
        host_.messages.shown.clear();
    }
    EXPECT_EQ(Checked("(alpha or \"beta\")"), "( alpha or \"beta\" ) ");
    EXPECT_TRUE(host_.messages.shown.empty());
}

}  // namespace
}  // namespace snippetarium::test
