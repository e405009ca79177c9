#include "quick/query.h"

#include <gtest/gtest.h>

#include "tests/quick/catalogue_model.h"

namespace snippetarium::test {
namespace {

/// The tree on one line: "(and draw (not name:grid))".
std::string Describe(const QuickQuery& query, const QuickNode& node) {
    if (node.type == QuickNode::Type::Term) {
        const QuickTerm& term = query.terms[node.term];
        const std::string text = TypedFilter(term.field);
        if (term.field == QuickField::Kind) return text + term.kinds.to_string();
        if (term.field == QuickField::Date) return text + term.days.first + "<" + term.days.behind;
        return text + (term.isPhrase ? "'" + term.text + "'" : term.text);
    }
    std::string text = node.type == QuickNode::Type::And  ? "(and"
                       : node.type == QuickNode::Type::Or ? "(or"
                                                          : "(not";
    for (const QuickNode& part : node.parts)
        text += " " + Describe(query, part);
    return text + ")";
}

std::string Tree(std::string_view entry) {
    const QuickQuery query = ParseQuickQuery(entry);
    return query.root ? Describe(query, *query.root) : "";
}

std::string Problems(std::string_view entry) {
    std::string text;
    for (const QuickProblem& problem : ParseQuickQuery(entry).problems)
        text += (text.empty() ? "" : "; ") + problem.text;
    return text;
}

TEST(QuickQuery, IsATreeOfWhatTheEntryAsksFor) {
    const struct {
        std::string_view entry;
        std::string_view tree;
    } cases[] = {
        {"", ""},
        {"draw", "draw"},
        {"  draw \t grid ", "(and draw grid)"},
        {"draw AND grid", "(and draw grid)"},
        {"a or b c or not d", "(or a (and b c) (not d))"},
        {"(a or b) c", "(and (or a b) c)"},
        {"(a (b c))", "(and a (and b c))"},
        {"not not a", "a"},
        {"a -b", "(and a (not b))"},
        {"a -(b or c)", "(and a (not (or b c)))"},
        {"-\"b c\"", "(not 'b c')"},
        {"p->next --i utf-8 - x", "(and p->next --i utf-8 - x)"},
        {"\"and\" \"say \"\"hi\"\"\"", "(and 'and' 'say \"hi\"')"},
        {"name:draw CODE:\"a b\"", "(and name:draw code:'a b')"},
        {"name:(a or comment:b) c", "(and (or name:a comment:b) c)"},
        {"Grid::Draw http://x", "(and Grid::Draw http://x)"},
        {"-app:paint", "(not app:paint)"},
        {"kind:c kind:PROCEDURE", "(and kind:010 kind:100)"},
        {"kind:(class or app)", "(or kind:010 kind:001)"},
        {"date:2001", "date:2001<2001~"},
        {"date:2001-03", "date:2001-03<2001-03~"},
        {"date:2001..2003-02-28", "date:2001<2003-02-28~"},
        {"date:..2003", "date:<2003~"},
        {"date:2001..", "date:2001<~"},
        {"dr*w ?x", "(and dr*w ?x)"},
        {"straße ЖУК", "(and straße ЖУК)"},
    };
    for (const auto& [entry, tree] : cases) {
        EXPECT_EQ(Tree(entry), tree) << entry;
        EXPECT_EQ(Problems(entry), "") << entry;
    }
}

TEST(QuickQuery, LeavesOutWhatIsUnfinishedAndSaysWhereItStands) {
    const struct {
        std::string_view entry;
        std::string_view tree;
        std::string_view problems;
    } cases[] = {
        {"draw or", "draw", "the \"or\" at 6 has nothing behind it"},
        {"or draw", "draw", "the \"or\" at 1 has nothing before it"},
        {"and draw and", "draw",
         "the \"and\" at 1 has nothing before it; the \"and\" at 10 has nothing behind it"},
        {"draw not", "draw", "the \"not\" at 6 has nothing behind it"},
        {"draw -", "draw", "the \"not\" at 6 has nothing behind it"},
        {"(a (b", "(and a b)",
         "the bracket at 1 is never closed; the bracket at 4 is never closed"},
        {"a) b", "(and a b)", "the bracket at 2 closes nothing"},
        {"a ()", "a", "the bracket at 3 has nothing in it"},
        {"name:(", "", "the bracket at 1 is never closed"},
        {"a \"b c", "(and a 'b c')", "the phrase at 3 has no closing quotation mark"},
        {"a \"", "a",
         "the phrase at 3 has no closing quotation mark; the word at 3 has no letter to look for"},
        {"name: a", "a", "the filter at 1 has no value"},
        {"* ** ?*", "",
         "the word at 1 has no letter to look for; the word at 3 has no letter to look for; "
         "the word at 6 has no letter to look for"},
        {"kind:x a", "a", "the kind at 1 is none: application, class or procedure"},
        {"date:200 a", "a", "the date at 1 is none: write 2001, 2001-03 or 2001..2003"},
        {"date:2001-1", "date:2001<2001~",
         "the date at 1 is none: write 2001, 2001-03 or 2001..2003"},
        {"date:2001-02-30", "date:2001-02<2001-02~",
         "the date at 1 is none: write 2001, 2001-03 or 2001..2003"},
        {"date:2001..20", "date:2001<~",
         "the date at 1 is none: write 2001, 2001-03 or 2001..2003"},
        {"date:2003..2001", "date:2003<2001~",
         "the date at 1 is none: write 2001, 2001-03 or 2001..2003"},
    };
    for (const auto& [entry, tree, problems] : cases) {
        EXPECT_EQ(Tree(entry), tree) << entry;
        EXPECT_EQ(Problems(entry), problems) << entry;
    }
}

TEST(QuickQuery, TakesAnyTextInItsStride) {
    const std::string deep = std::string(5000, '(') + "a" + std::string(5000, ')');
    EXPECT_EQ(Tree(deep), "a");
    EXPECT_FALSE(Problems(deep).empty());
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "not w" + std::to_string(i) + " ";
    EXPECT_EQ(ParseQuickQuery(many).terms.size(), kMostQuickTerms);

    // Every entry of up to four of these pieces has a tree or none, and its places lie inside it.
    constexpr std::string_view kPieces[] = {"a", " ", "(", ")", "\"", "or ", "-", "name:"};
    std::vector<std::string> entries = {""};
    for (std::size_t from = 0, length = 0; length < 4; ++length) {
        const std::size_t end = entries.size();
        for (; from < end; ++from) {
            for (const std::string_view piece : kPieces)
                entries.push_back(entries[from] + std::string(piece));
        }
    }
    for (const std::string& entry : entries) {
        const QuickQuery query = ParseQuickQuery(entry);
        EXPECT_EQ(query.root.has_value(), !query.terms.empty()) << entry;
        for (const QuickProblem& problem : query.problems) {
            EXPECT_GE(problem.place, 1U) << entry;
            EXPECT_LE(problem.place, entry.size()) << entry << ": " << problem.text;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
