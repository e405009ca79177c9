#include "engine/collation.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/case_fold.h"
#include "tests/engine/random_text.h"

namespace snippetarium {
namespace {

using Rows = std::vector<std::string>;

class Cancelled : public CancelPoll {
  public:
    bool IsCancelled() const override { return true; }
};

/// A database in memory with the text comparison.
class TextDatabase {
  public:
    explicit TextDatabase(const CancelPoll* poll = nullptr) {
        EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
        InstallTextComparison(database_, poll);
    }
    ~TextDatabase() { sqlite3_close(database_); }
    TextDatabase(const TextDatabase&) = delete;
    TextDatabase& operator=(const TextDatabase&) = delete;

    /// The first column of each row, null as "null"; behind them, when the statement fails, its
    /// error.
    Rows Run(const std::string& sql, const std::vector<std::string>& parameters = {}) {
        Rows rows;
        sqlite3_stmt* statement = nullptr;
        int result = sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr);
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            sqlite3_bind_text(statement, static_cast<int>(i) + 1, parameters[i].data(),
                              static_cast<int>(parameters[i].size()), SQLITE_STATIC);
        }
        if (result == SQLITE_OK) result = Step(statement, rows);
        if (result != SQLITE_DONE) rows.push_back(sqlite3_errmsg(database_));
        lastResult_ = result;
        sqlite3_finalize(statement);
        return rows;
    }

    int LastResult() const { return lastResult_; }
    sqlite3* Handle() { return database_; }

  private:
    static int Step(sqlite3_stmt* statement, Rows& rows) {
        while (true) {
            const int result = sqlite3_step(statement);
            if (result != SQLITE_ROW) return result;
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, 0));
            rows.push_back(text == nullptr ? "null" : std::string(text, size));
        }
    }

    sqlite3* database_ = nullptr;
    int lastResult_ = SQLITE_OK;
};

TEST(Collation, SortsAndJudgesAsTheFoldedTextsDo) {
    TextDatabase database;
    RandomText random(
        {"a", "A", "b", "é", "É", "ж", "Ж", "\xC3", "\xA9", std::string_view("\0", 1)}, 1);
    std::vector<std::string> texts;
    database.Run("CREATE TABLE tblText(position INTEGER PRIMARY KEY, name TEXT COLLATE CATNC)");
    for (int i = 0; i < 500; ++i) {
        texts.push_back(random.Pieces(random.Below(5)));
        database.Run("INSERT INTO tblText(name) VALUES(?)", {texts.back()});
    }
    std::stable_sort(texts.begin(), texts.end(),
                     [](const auto& a, const auto& b) { return CompareFolded(a, b) < 0; });
    EXPECT_EQ(database.Run("SELECT name FROM tblText ORDER BY name, position"), texts);
    database.Run("CREATE INDEX idxName ON tblText(name)");
    EXPECT_EQ(database.Run("SELECT name FROM tblText INDEXED BY idxName ORDER BY name, position"),
              texts);
    EXPECT_EQ(database.Run("PRAGMA integrity_check"), Rows{"ok"});
}

TEST(Collation, IsAStrictTotalOrder) {
    TextDatabase database;
    RandomText random({"a", "A", "é", "É", "\xC3", "\xA9", "\xED\xA0", "漢"}, 2);
    const auto isLess = [&database](const std::string& a, const std::string& b) {
        return database.Run("SELECT ? < ? COLLATE CATNC", {a, b}) == Rows{"1"};
    };
    const auto isEqual = [&database](const std::string& a, const std::string& b) {
        return database.Run("SELECT ? = ? COLLATE CATNC", {a, b}) == Rows{"1"};
    };
    for (int round = 0; round < 1000; ++round) {
        const std::string a = random.Pieces(random.Below(3));
        const std::string b = random.Pieces(random.Below(3));
        const std::string c = random.Pieces(random.Below(3));
        ASSERT_EQ(int{isLess(a, b)} + int{isLess(b, a)} + int{isEqual(a, b)}, 1) << a << " " << b;
        ASSERT_EQ(isEqual(a, b), FoldCase(a) == FoldCase(b)) << a << " " << b;
        const bool isInOrder = isLess(a, b) && isLess(b, c);
        ASSERT_TRUE(!isInOrder || isLess(a, c)) << a << " " << b << " " << c;
        ASSERT_TRUE(!isEqual(a, b) || isLess(a, c) == isLess(b, c)) << a << " " << b << " " << c;
    }
}

TEST(Collation, AUniqueIndexTakesCasesForTheSame) {
    TextDatabase database;
    database.Run("CREATE TABLE tblName(name TEXT COLLATE CATNC UNIQUE)");
    EXPECT_EQ(database.Run("INSERT INTO tblName VALUES('Zähler')"), Rows{});
    EXPECT_EQ(database.Run("INSERT INTO tblName VALUES('ZÄHLER')"),
              Rows{"UNIQUE constraint failed: tblName.name"});
    EXPECT_EQ(database.Run("SELECT name FROM tblName WHERE name = 'zÄhler'"), Rows{"Zähler"});
}

TEST(Like, ComparesInStatementsAsThePatternMeans) {
    TextDatabase database;
    const struct {
        const char* expression;
        const char* value;
    } cases[] = {
        {"'Größe' LIKE 'GRÖ_E'", "1"}, {"'Größe' NOT LIKE 'GRÖ_E'", "0"},
        {"'x9' LIKE 'x[!0-9]'", "0"},  {"'50%' LIKE '50[%]'", "1"},
        {"'' LIKE '%'", "1"},          {"'it''s' LIKE '%''S'", "1"},
        {"NULL LIKE '%'", "null"},     {"'a' LIKE NULL", "null"},
        {"NULL LIKE '['", "null"},     {"120 LIKE '1_0'", "1"},
        {"'12' LIKE 12", "1"},         {"2.5 LIKE '2.5'", "1"},
        {"x'414243' LIKE 'abc'", "1"}, {"x'' LIKE ''", "1"},
    };
    for (const auto& [expression, value] : cases) {
        EXPECT_EQ(database.Run(std::string("SELECT ") + expression), Rows{value}) << expression;
    }
}

TEST(Like, AnInvalidPatternEndsTheStatementAndSaysWhy) {
    TextDatabase database;
    EXPECT_EQ(database.Run("SELECT 'a' LIKE 'm[' "),
              Rows{"Invalid pattern string: a bracket \"[\" is not closed. To find the bracket "
                   "itself, write \"[[]\"."});
    EXPECT_EQ(database.LastResult(), SQLITE_ERROR);
}

TEST(Like, TheEscapeClauseIsRefusedRatherThanLeftToTheBuiltInFunction) {
    TextDatabase database;
    EXPECT_EQ(database.Run("SELECT 'a%' LIKE 'a!%' ESCAPE '!'"),
              Rows{"LIKE knows no ESCAPE. To find a wildcard itself, write it in brackets: "
                   "\"[%]\"."});
}

TEST(Like, UsesEachRowsAndEachRunsOwnPattern) {
    TextDatabase database;
    database.Run("CREATE TABLE tblWord(word, pattern)");
    database.Run(
        "INSERT INTO tblWord VALUES('alpha','a%'),('beta','a%'),('gamma','%m_'),"
        "('delta',NULL),('alpha','b%'),(NULL,'%')");
    EXPECT_EQ(database.Run("SELECT word LIKE pattern FROM tblWord"),
              (Rows{"1", "0", "1", "null", "0", "null"}));
    EXPECT_EQ(database.Run("SELECT word FROM tblWord WHERE word LIKE '%ph%'"),
              (Rows{"alpha", "alpha"}));

    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database.Handle(), "SELECT count(*) FROM tblWord WHERE word LIKE ?", -1,
                       &statement, nullptr);
    for (const auto& [pattern, count] : {std::pair("a%", 2), std::pair("%A", 5)}) {
        sqlite3_bind_text(statement, 1, pattern, -1, SQLITE_STATIC);
        EXPECT_EQ(sqlite3_step(statement), SQLITE_ROW);
        EXPECT_EQ(sqlite3_column_int(statement, 0), count) << pattern;
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
}

TEST(Like, ALongMatchThatIsCancelledInterruptsTheStatement) {
    const Cancelled poll;
    TextDatabase database(&poll);
    EXPECT_EQ(database.Run("SELECT 'short' LIKE '%o[qr]%'"), Rows{"1"});
    std::string pattern = "%";
    for (int i = 0; i < 1000; ++i)
        pattern += "a_";
    database.Run("SELECT ? LIKE ?", {std::string(64'000, 'a'), pattern + "b%"});
    EXPECT_EQ(database.LastResult(), SQLITE_INTERRUPT);
}

TEST(Like, MayStandInASchemaThatIsNotTrusted) {
    TextDatabase database;
    database.Run("PRAGMA trusted_schema = OFF");
    database.Run("CREATE TABLE tblWord(word TEXT, CHECK(word LIKE 'a%'))");
    EXPECT_EQ(database.Run("CREATE INDEX idxLong ON tblWord(word) WHERE word LIKE '%_____'"),
              Rows{});
    EXPECT_EQ(database.Run("INSERT INTO tblWord VALUES('Alpha')"), Rows{});
    EXPECT_EQ(database.Run("INSERT INTO tblWord VALUES('beta')"),
              Rows{"CHECK constraint failed: word LIKE 'a%'"});
}

}  // namespace
}  // namespace snippetarium
