#include "engine/join_brackets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "engine/engine_error.h"
#include "engine/jet_sql.h"
#include "tests/engine/sample_catalogue.h"

namespace snippetarium::test {
namespace {

using Tokens = std::vector<std::string>;

/// One text, in which each t is a table of its own: t1, t2 and so on, or the alias of the one
/// before.
std::string Joined(const Tokens& tokens) {
    std::string text;
    int tables = 0;
    for (const std::string& token : tokens) {
        for (const char c : token) {
            text += c;
            if (c == 't') text += std::to_string(++tables);
        }
        text += ' ';
    }
    text.pop_back();
    return text;
}

/// Rewrites a SELECT by recursive descent through the grammar of joins. Knows only the tokens that
/// ForEachSelect makes; throws std::invalid_argument where the grammar is not kept.
class SlowRewriter {
  public:
    explicit SlowRewriter(Tokens tokens) : tokens_(std::move(tokens)) {}

    std::string Rewrite() {
        Select();
        if (next_ != tokens_.size()) throw std::invalid_argument("text behind the statement");
        return Joined(tokens_);
    }

  private:
    enum class Place { BehindFrom, Elsewhere };

    bool IsNext(std::string_view token) const {
        return next_ < tokens_.size() && tokens_[next_] == token;
    }
    bool Accept(std::string_view token) {
        const bool isNext = IsNext(token);
        if (isNext) ++next_;
        return isNext;
    }
    void Expect(std::string_view token) {
        if (!Accept(token)) throw std::invalid_argument(std::string(token) + " is missing");
    }

    void Select() {
        Expect("SELECT * FROM");
        Joins(Place::BehindFrom);
        Accept("WHERE 1");
    }

    void Joins(Place place) {
        Operand(place);
        while (true) {
            if (Accept("LEFT JOIN t ON 0")) continue;
            if (Accept("JOIN t")) {
                Accept("t");
            } else if (AcceptJoin()) {
                Operand(Place::Elsewhere);
                Accept("ON 0");
            } else {
                return;
            }
        }
    }

    bool AcceptJoin() {
        if (!Accept("LEFT")) return Accept("JOIN") || Accept(",");
        Expect("JOIN");
        return true;
    }

    void Operand(Place place) {
        const std::size_t opener = next_;
        if (!Accept("(")) {
            Expect("t");
            Accept("t");
            return;
        }
        const bool isSubSelect = IsNext("SELECT * FROM");
        if (isSubSelect) {
            Select();
        } else {
            Joins(place);
        }
        const std::size_t closer = next_;
        Expect(")");
        const bool isNamed = Accept("t");
        if (isSubSelect || isNamed || place == Place::Elsewhere) return;
        tokens_[opener] = " ";
        tokens_[closer] = " ";
    }

    Tokens tokens_;
    std::size_t next_ = 0;
};

/// Calls visit with every row of tokens that begins with "SELECT * FROM", has up to `length`
/// further tokens of the alphabet, and holds brackets, balanced ones.
void ForEachSelect(const Tokens& alphabet, std::size_t length,
                   const std::function<void(const Tokens&)>& visit) {
    Tokens tokens = {"SELECT * FROM"};
    const std::function<void(std::size_t, std::size_t)> extend = [&](std::size_t left,
                                                                     std::size_t depth) {
        const bool hasBrackets = std::find(tokens.begin(), tokens.end(), "(") != tokens.end();
        if (hasBrackets && depth == 0) visit(tokens);
        for (const std::string& token : alphabet) {
            if (token == ")" && depth == 0) continue;
            const std::size_t newDepth = token == "("   ? depth + 1
                                         : token == ")" ? depth - 1
                                                        : depth;
            if (left == 0 || newDepth > left - 1) continue;
            tokens.push_back(token);
            extend(left - 1, newDepth);
            tokens.pop_back();
        }
    };
    extend(length, 0);
}

bool IsAccepted(sqlite3* database, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    const bool isAccepted =
        sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK;
    sqlite3_finalize(statement);
    return isAccepted;
}

/// The translation of each text of ForEachSelect is right where the text is, means the same, and
/// has lost the brackets that the slow way finds. Returns how many texts are right.
int CompareEverySelect(const Tokens& alphabet, std::size_t length) {
    const SampleCatalogue catalogue;
    sqlite3* const database = catalogue.Handle();
    for (int n = 1; n <= 7; ++n) {
        std::string script = "CREATE TABLE t#(a#); INSERT INTO t# VALUES(1),(2)";
        std::replace(script.begin(), script.end(), '#', static_cast<char>('0' + n));
        sqlite3_exec(database, script.c_str(), nullptr, nullptr, nullptr);
    }
    int compared = 0;
    ForEachSelect(alphabet, length, [&](const Tokens& tokens) {
        const std::string text = Joined(tokens);
        const std::string translated = Translate(text, {}).sql;
        const bool isAccepted = IsAccepted(database, text);
        ASSERT_EQ(IsAccepted(database, translated), isAccepted) << text << "\n" << translated;
        if (!isAccepted) return;
        ASSERT_EQ(translated, SlowRewriter(tokens).Rewrite());
        ASSERT_EQ(catalogue.Try(translated), catalogue.Try(text)) << text;
        ++compared;
    });
    return compared;
}

TEST(JoinBrackets, EveryShortSelectKeepsItsMeaning) {
    EXPECT_GT(CompareEverySelect(
                  {"(", ")", "t", "JOIN", "SELECT * FROM", "LEFT", "ON 0", ",", "WHERE 1"}, 6),
              20);
}

TEST(JoinBrackets, EverySelectOfWholeJoinsKeepsItsMeaning) {
    EXPECT_GT(CompareEverySelect({"(", ")", "t", "JOIN", "JOIN t", "LEFT JOIN t ON 0"}, 7), 100);
}

TEST(JoinBrackets, LeavesAllOthersAlone) {
    // clang-format off
    constexpr std::string_view kTexts[] = {
        "SELECT (1) FROM t WHERE (a = 1) AND b IN (1, 2)",
        "SELECT 1 FROM t INNER JOIN u ON (t.a = u.a) AND (t.b = u.b)",
        "SELECT 1 FROM t INNER JOIN ((u INNER JOIN v ON u.a = v.a) INNER JOIN w ON v.a = w.a) ON t.a = u.a",
        "SELECT 1 FROM t, (u INNER JOIN v ON u.a = v.a)",
        "SELECT 1 FROM (SELECT a FROM t)",
        "SELECT 1 FROM (VALUES (1))",
        "SELECT 1 FROM (t INNER JOIN u ON t.a = u.a) x",
        "SELECT 1 FROM (t INNER JOIN u ON t.a = u.a) AS x",
        "SELECT 1 FROM (t INNER JOIN u ON t.a = u.a) [x]",
        "SELECT 1 FROM (t INNER JOIN u) USING (a)",
        "SELECT 1 FROM (t) (2)",
        "SELECT 1 FROM (t WHERE a = 1)",
        "SELECT 1 FROM (t AS) LEFT JOIN u",
        "SELECT 1 FROM (t NATURAL) JOIN u",
        "SELECT 1 FROM t WHERE a IS NOT DISTINCT FROM (b OR c)",
    };
    // clang-format on
    for (const std::string_view text : kTexts)
        EXPECT_EQ(Translate(text, {}).sql, text);
}

TEST(JoinBrackets, BlanksThemInEverySelectOfAStatement) {
    struct Case {
        std::string_view text;
        std::string_view sql;
    };
    // clang-format off
    constexpr Case kCases[] = {
        {"SELECT 1 FROM (t) UNION SELECT 2 FROM ((t, u))",          "SELECT 1 FROM  t  UNION SELECT 2 FROM   t, u  "},
        {"SELECT 1 FROM t WHERE a IN (SELECT a FROM (t) WHERE (b))", "SELECT 1 FROM t WHERE a IN (SELECT a FROM  t  WHERE (b))"},
        {"SELECT 1 FROM ((SELECT a FROM (t)) x JOIN u)",            "SELECT 1 FROM  (SELECT a FROM  t ) x JOIN u "},
        {"SELECT 1 FROM(t JOIN u ON(t.a=u.a))WHERE b",              "SELECT 1 FROM t JOIN u ON(t.a=u.a) WHERE b"},
        {"SELECT 1 FROM ((t JOIN u) x JOIN v), (w)",                "SELECT 1 FROM  (t JOIN u) x JOIN v , (w)"},
    };
    // clang-format on
    for (const auto& [text, sql] : kCases)
        EXPECT_EQ(Translate(text, {}).sql, sql);
}

}  // namespace
}  // namespace snippetarium::test
