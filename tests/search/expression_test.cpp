#include "search/expression.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "search/search_entry.h"
#include "tests/fakes.h"
#include "tests/support/every_text.h"

namespace snippetarium::test {
namespace {

std::string PredicateSlowly(const std::string& term) {
    const std::string wildcards = "%?*_[";
    std::size_t index = 0;
    while (index < wildcards.size() && term.find(wildcards[index]) == std::string::npos)
        ++index;
    std::string pattern = term;
    for (char& character : pattern) {
        if (index <= 1 && character == '?') character = '_';
        if (index == 2 && character == '*') character = '%';
    }
    return index == 5 ? " ='" + term + "' " : " LIKE '" + pattern + "' ";
}

/// Walks a checked entry with 1-based positions, as a person would with a finger. Throws where the
/// closing quote is missing.
std::string WalkSlowly(const std::string& s, const std::string& column, bool wraps,
                       bool wrapsLast) {
    const auto compare = [&column](const std::string& term, bool isWrapped) {
        return column + PredicateSlowly(isWrapped ? "%" + term + "%" : term);
    };
    std::string condition;
    std::size_t b = 0;
    for (;;) {
        std::size_t p = b + 1;
        while (p <= s.size() && s[p - 1] != ' ')
            ++p;
        if (p > s.size()) break;
        std::string word = s.substr(b, p - b - 1);
        if (word.find('"') == std::string::npos) {
            b = p;
        } else {
            std::size_t c = b + 3;
            while (c <= s.size() && s[c - 1] != '"')
                ++c;
            if (c > s.size()) throw std::out_of_range("no closing quote");
            word = s.substr(b + 1, c - b - 2);
            b = c;
        }
        condition += IsOperator(word) || IsBracket(word) ? word + " " : compare(word, wraps);
    }
    return condition + compare(s.substr(b), wrapsLast);
}

class Expression : public ::testing::Test {
  protected:
    std::string Field(std::string_view entry, std::string_view column) {
        return BuildFieldCondition(host_.reporter, entry, column);
    }
    KeywordAndCondition And(std::string_view entry) {
        return BuildKeywordAndCondition(host_.reporter, entry);
    }

    FakeHost host_;
};

TEST_F(Expression, ComparesATermByItsFirstKindOfWildcard) {
    EXPECT_EQ(TermToPredicate("it's"), " ='it's' ");
    ForEveryText("%?*_[a", 5, [](const std::string& term) {
        ASSERT_EQ(TermToPredicate(term), PredicateSlowly(term)) << term;
    });
}

TEST_F(Expression, WrapsWordsOfNamesAndCodeAndOnlyTheLastOfClassTexts) {
    const struct {
        std::string_view entry;
        std::string_view column;
        std::string_view expected;
    } cases[] = {
        {"alpha beta", "cd.CodeName", "cd.CodeName LIKE '%alpha%' or cd.CodeName LIKE '%beta%' "},
        {"a?c d*", "cd.Code", "cd.Code LIKE '%a_c%' or cd.Code LIKE '%d*%' "},
        {"alpha beta", "cls.classDI", "cls.classDI ='alpha' or cls.classDI LIKE '%beta%' "},
        {"alpha beta", "sw.searchWord", "sw.searchWord ='alpha' or sw.searchWord ='beta' "},
        {"alpha and not b*", "sw.searchWord",
         "sw.searchWord ='alpha' and not sw.searchWord LIKE 'b%' "},
        {"alpha not", "sw.searchWord", "sw.searchWord ='alpha' sw.searchWord ='not' "},
        {"O'Hara", "au.authorLName", "au.authorLName ='O'Hara' "},
        {"(a or b) and c", "sw.searchWord",
         "( sw.searchWord ='a' or sw.searchWord ='b)' sw.searchWord ='' and sw.searchWord ='c' "},
        {"a or \"b\" or c", "sw.searchWord",
         "sw.searchWord ='a' or sw.searchWord ='b' sw.searchWord ='' or sw.searchWord ='c' "},
        {"a or \"b c\"", "cd.Code",
         "cd.Code LIKE '%a%' or cd.Code LIKE '%b or c%' cd.Code LIKE '%%' cd.Code LIKE '%%' "},
    };
    for (const auto& test : cases)
        EXPECT_EQ(Field(test.entry, test.column), test.expected) << test.entry;
    EXPECT_TRUE(host_.messages.shown.empty());
}

TEST_F(Expression, IsTheSameAsWalkingTheEntrySlowly) {
    const std::string_view pieces[] = {" ", "a", "or", "\"", "(", ")"};
    ForEveryText("012345", 6, [&](const std::string& choice) {
        std::string entry;
        for (const char digit : choice)
            entry += pieces[digit - '0'];
        if (entry.starts_with('"')) return;
        std::string checked = InsertImplicitOr(entry);
        std::string code;
        std::string classText;
        if (!ValidateSearchEntry(host_.reporter, checked)) {
            try {
                code = WalkSlowly(checked, "cd.Code", true, true);
                classText = WalkSlowly(checked, "cls.classDI", false, true);
            } catch (const std::out_of_range&) {
                classText.clear();
                code.clear();
            }
        }
        host_.messages.shown.clear();
        ASSERT_EQ(Field(entry, "cd.Code"), code) << entry;
        ASSERT_EQ(host_.messages.shown.size(), code.empty() ? 1U : 0U) << entry;
        ASSERT_EQ(Field(entry, "cls.classDI"), classText) << entry;
        host_.messages.shown.clear();
    });
}

TEST_F(Expression, JoinsASearchWordForEachAnd) {
    const struct {
        std::string_view entry;
        std::size_t partCount;
        std::string_view expected;
    } cases[] = {
        {"alpha and beta", 1,
         " INNER JOIN tblKeyword_link_searchWord KLS1 ON kls0.keywordID = kls1.keywordID) INNER "
         "JOIN tblSearchWord sw1 ON kls1.searchWordID = sw1.searchWordID) WHERE (sw0.searchWord "
         "='alpha' AND sw1.searchWord ='beta'"},
        {"alpha AND beta", 0, " WHERE ((sw0.searchWord ='alpha' AND sw0.searchWord ='beta' )"},
        {"a b and c* and not d", 2,
         " INNER JOIN tblKeyword_link_searchWord KLS1 ON kls0.keywordID = kls1.keywordID) INNER "
         "JOIN tblSearchWord sw1 ON kls1.searchWordID = sw1.searchWordID) INNER JOIN "
         "tblKeyword_link_searchWord KLS2 ON kls1.keywordID = kls2.keywordID) INNER JOIN "
         "tblSearchWord sw2 ON kls2.searchWordID = sw2.searchWordID) WHERE ((sw0.searchWord ='a' "
         "or sw0.searchWord ='b' ) AND sw1.searchWord LIKE 'c%' AND (not sw2.searchWord ='d' )"},
    };
    for (const auto& test : cases) {
        const KeywordAndCondition condition = And(test.entry);
        EXPECT_EQ(condition.text, test.expected) << test.entry;
        EXPECT_EQ(condition.partCount, test.partCount) << test.entry;
    }
}

TEST_F(Expression, OfPartsIsThatOfEachPartByItself) {
    const std::string_view pieces[] = {" ", "a", " and ", "not", "*", "\""};
    ForEveryText("012345", 5, [&](const std::string& choice) {
        std::string entry;
        for (const char digit : choice)
            entry += pieces[digit - '0'];
        if (entry.starts_with('"')) return;
        std::string rest = InsertImplicitOr(entry);
        std::string expected;
        std::size_t number = 0;
        try {
            if (ValidateSearchEntry(host_.reporter, rest)) throw std::out_of_range("refused");
            rest += " and ";
            for (; !rest.empty(); ++number) {
                const std::size_t end = rest.find(" and ");
                const std::string column = "sw" + std::to_string(number) + ".searchWord";
                const std::string part = WalkSlowly(rest.substr(0, end), column, false, false);
                // A part of one word has no operator and no second comparison before its last.
                const bool isOneWord = part == column + PredicateSlowly(rest.substr(0, end));
                expected += isOneWord ? part + "AND " : "(" + part + ") AND ";
                rest.erase(0, end + 5);
            }
        } catch (const std::out_of_range&) {
            number = 0;
        }
        host_.messages.shown.clear();
        const KeywordAndCondition condition = And(entry);
        host_.messages.shown.clear();
        if (number == 0) {
            ASSERT_EQ(condition.text, "") << entry;
            return;
        }
        ASSERT_EQ(condition.partCount, number - 1) << entry;
        const std::size_t where = condition.text.find(" WHERE (");
        ASSERT_EQ(condition.text.substr(where + 8) + " AND ", expected) << entry;
    });
}

TEST_F(Expression, OfAnEmptyOrTornPhraseIsAReportedFailure) {
    EXPECT_EQ(Field("x \"\"", "cd.Code"), "");
    EXPECT_EQ(And("x \"a and b\"").text, "");
    ASSERT_EQ(host_.messages.shown.size(), 2U);
    EXPECT_NE(host_.messages.shown[0].text.find("11109"), std::string::npos);
    EXPECT_NE(host_.messages.shown[1].text.find("11110"), std::string::npos);
}

}  // namespace
}  // namespace snippetarium::test
