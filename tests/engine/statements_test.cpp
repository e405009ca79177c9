// What statements may say and do: reads, actions, named queries, and search texts with hostile
// terms.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/command.h"
#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

TEST(Statements, ReadEveryRowBeforeAnythingElseHappens) {
    TestCatalogue catalogue;
    Recordset rows = catalogue.connection.Execute("qryAllCodes");
    std::string names;
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        names += rows["codeName"].Text() + " ";
        catalogue.connection.ExecuteAction("DELETE FROM tblCode WHERE codeID > " +
                                           rows["codeID"].Text());
    }
    EXPECT_EQ(names, "Draw Fill draw ");
}

TEST(Statements, CompareTextWithoutRegardToCase) {
    TestCatalogue catalogue;
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode WHERE codeName = 'DRAW'"), "2");
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblApplication WHERE appName LIKE '%GRID%'"),
              "2");
    EXPECT_EQ(catalogue.Scalar("SELECT appID FROM tblApplication WHERE appName LIKE 'g[!a-q]id'"),
              "2");
}

TEST(Statements, TakeDatesAndDeletionsOfTheDialect) {
    TestCatalogue catalogue;
    Connection& connection = catalogue.connection;
    connection.ExecuteAction("INSERT INTO tblDate VALUES(1, #3/14/2001#)");
    EXPECT_EQ(catalogue.Scalar("SELECT dateID FROM tblDate WHERE dDate = #2001-03-14#"), "1");
    EXPECT_EQ(connection.ExecuteAction("DELETE cd.* FROM tblCode cd INNER JOIN tblApplication a ON "
                                       "cd.classID = a.appID WHERE a.appName IN ('grid')"),
              1);
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode"), "2");
}

TEST(Statements, CountTheRowsThatAnActionChanges) {
    TestCatalogue catalogue;
    Connection& connection = catalogue.connection;
    EXPECT_EQ(connection.ExecuteAction("UPDATE tblCode SET classID = 9 WHERE classID = 1"), 2);
    EXPECT_EQ(connection.ExecuteAction("UPDATE tblCode SET classID = 9 WHERE classID = 1"), 0);
    EXPECT_EQ(connection.ExecuteAction("ALTER TABLE tblCode ADD COLUMN note TEXT"), 0);
    EXPECT_EQ(connection.ExecuteAction("DELETE FROM tblCode"), 3);
}

TEST(Statements, KeepATextWithQuotesAndAllItsLength) {
    TestCatalogue catalogue;
    const std::string text(64000, '\'');
    catalogue.connection.ExecuteAction("UPDATE tblCode SET code = '" + text + text +
                                       "' WHERE codeID = 1");
    EXPECT_EQ(catalogue.Scalar("SELECT code FROM tblCode WHERE codeID = 1"), text);
}

TEST(Statements, ThatAreBadAreRefusedAndChangeNothing) {
    TestCatalogue catalogue;
    const std::string before = catalogue.Scalar("SELECT count(*) FROM tblCode");
    const struct {
        std::string sql;
        int number;
    } cases[] = {
        {"DELETE FROM tblCode; DELETE FROM tblCode", 3142},
        {"DELETE FROM tblCode -- all of it", 3075},
        {"DELETE FROM tblCode /* all */", 3075},
        {"DELETE FROM tblCode WHERE (codeID = 1", 3075},
        {"DELETE FROM tblCode WHERE codeID = 1)", 3075},
        {"DELETE FROM tblCode WHERE " + std::string(10000, '(') + "1" + std::string(10000, ')'),
         3360},
        {std::string("DELETE FROM tblCode WHERE codeName = 'a\0b'", 42), 3075},
        {"DELETE FROM tblCode WHERE codeName = '\xFF\xFE'", 3075},
        {"DELETE FROM tblCode WHERE codeName = 'open", 3075},
        {"DELETE FROM sqlite_schema", 3033},
        {"DELETE FROM tblCode WHERE load_extension('x') = 1", 3033},
        {"DELETE FROM tblCode WHERE hex(code) = '1'", 3033},
        {"INSERT INTO tblNoSuch VALUES (1)", 3078},
        {"INSERT INTO tblCode (noSuch) VALUES (1)", 3061},
        {"INSERT INTO tblCode (codeID) VALUES (1)", 3022},
        {"UPDATE tblCode SET", 3075},
        {"DROP TABLE tblCode", 3129},
        {"PRAGMA writable_schema = 1", 3129},
        {"ATTACH 'evil.db' AS e", 3129},
        {"SELECT 1", 3129},
        {"", 3129},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.ExecuteAction(test.sql); }), test.number)
            << test.sql.substr(0, 80);
    }
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode"), before);
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.Execute("DELETE FROM tblCode"); }), 3129);
}

TEST(Statements, GoOnWorkingAfterTheTablesHaveChanged) {
    TestCatalogue catalogue;
    const std::string insert = "INSERT INTO tblDate VALUES(5, null)";
    catalogue.connection.ExecuteAction(insert);
    catalogue.connection.RunScript("ALTER TABLE tblDate ADD COLUMN note TEXT DEFAULT 'n';");
    EXPECT_EQ(catalogue.connection.Execute("SELECT * FROM tblDate")["note"].Text(), "n");
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.ExecuteAction(insert); }), 3346)
        << "the table has one column more";
}

TEST(Scripts, RunWholeOrNotAtAll) {
    TestCatalogue catalogue;
    EXPECT_NE(
        ErrorNumberOf([&] {
            catalogue.connection.RunScript("DELETE FROM tblCode; INSERT INTO tblNoSuch VALUES(1);");
        }),
        0);
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode"), "3");
}

TEST(Transactions, TakeAllTheirValuesOrChangeNothing) {
    TestCatalogue catalogue;
    constexpr std::string_view kInsert =
        "INSERT INTO tblCode(codeID, codeName, code, classID) VALUES (?1, ?2, ?3, 9)";
    constexpr std::string_view kUpdate =
        "UPDATE tblCode SET classID = coalesce(?1, (SELECT max(codeID) FROM tblCode)) "
        "WHERE codeID = ?2";
    const auto run = [&](const std::vector<BoundStatement>& statements) {
        return ErrorNumberOf([&] { catalogue.connection.RunTransaction(statements); });
    };
    const auto rows = [&] {
        return catalogue.Scalar(
            "SELECT group_concat(codeName || '.' || coalesce(code, 'null') || '.' || classID, ' ') "
            "FROM tblCode WHERE codeID > 2");
    };
    EXPECT_EQ(run({{kInsert, {4, "it's", std::string_view()}},
                   {kInsert, {5, "-- ?1", std::monostate()}},
                   {kUpdate, {std::monostate(), 3}}}),
              0);
    EXPECT_EQ(rows(), "draw.int draw.5 it's..9 -- ?1.null.9");
    const struct {
        BoundStatement last;
        int number;
    } refused[] = {
        {{kInsert, {4, "twice", ""}}, 3022},
        {{"DROP TABLE tblDate"}, 3033},
        {{"DELETE FROM sqlite_schema"}, 3033},
        {{kInsert, {6, "more", "", "values"}}, 3000},
    };
    for (const auto& [last, number] : refused) {
        EXPECT_EQ(run({{"UPDATE tblCode SET codeName = 'lost'"}, last}), number) << last.sql;
        EXPECT_EQ(rows(), "draw.int draw.5 it's..9 -- ?1.null.9");
    }
}

class NamedQueriesTest : public testing::Test {
  protected:
    NamedQueriesTest() { command_.SetActiveConnection(&catalogue_.connection); }
    Recordset Run(std::string_view name, std::vector<Parameter> parameters) {
        while (command_.ParameterCount() > 0)
            command_.DeleteParameter(0);
        command_.SetText(name);
        for (Parameter& parameter : parameters)
            command_.Append(std::move(parameter));
        return command_.Execute();
    }
    TestCatalogue catalogue_;
    Command command_;
};

TEST_F(NamedQueriesTest, TakeTheirValuesInOrder) {
    EXPECT_EQ(Run("qryCodeNameByID", {Parameter::Long("codeID", 2)})["codeName"].Text(), "Fill");
    EXPECT_EQ(Run("QRYCODENAMEBYID", {Parameter::Long("codeID", 99)}).RowCount(), 0U);
    EXPECT_EQ(Run("qryCodeIDByCodeNameClassID",
                  {Parameter::Text255("codeName", "DRAW"), Parameter::Long("classID", 2)})["codeID"]
                  .Long(),
              3);
}

TEST_F(NamedQueriesTest, LookUpALongNameByItsFirst255Characters) {
    std::string name;
    for (int i = 0; i < 300; ++i)
        name += "\xC3\xA9";
    catalogue_.connection.ExecuteAction("INSERT INTO tblCode (codeName, classID) VALUES ('" +
                                        name.substr(0, 510) + "', 5)");
    EXPECT_EQ(Run("qryCodeIDByCodeNameClassID",
                  {Parameter::Text255("codeName", name), Parameter::Long("classID", 5)})
                  .RowCount(),
              1U);
}

TEST_F(NamedQueriesTest, RefuseUnknownNamesAndWrongValues) {
    const auto numberOf = [this](std::string_view name, std::vector<Parameter> parameters) {
        return ErrorNumberOf([&] { Run(name, std::move(parameters)); });
    };
    EXPECT_EQ(numberOf("qryNoSuch", {}), 3078);
    EXPECT_EQ(numberOf("qryCodeNameByID", {}), 3061);
    EXPECT_EQ(numberOf("qryCodeNameByID", {Parameter::Text50("codeID", "2")}), 3061);
    EXPECT_EQ(numberOf("qryCodeNameByID", {Parameter::Long("a", 1), Parameter::Long("b", 2)}),
              3061);
    EXPECT_EQ(numberOf("qryWrites", {}), 3033);
    EXPECT_EQ(numberOf("qryBadKind", {Parameter::Long("codeID", 1)}), 3061);
    EXPECT_EQ(catalogue_.Scalar("SELECT count(*) FROM tblCode"), "3");
}

TEST_F(NamedQueriesTest, ShowABodyThatWasReplaced) {
    EXPECT_EQ(Run("qryAllCodes", {}).RowCount(), 3U);
    catalogue_.connection.RunScript(
        "UPDATE tblNamedQuery SET body = 'SELECT codeID FROM tblCode WHERE codeID = 1' "
        "WHERE name = 'qryAllCodes';");
    EXPECT_EQ(Run("qryAllCodes", {}).RowCount(), 1U);
    catalogue_.connection.ExecuteAction(
        "UPDATE TBLNAMEDQUERY SET body = 'SELECT codeID FROM tblCode WHERE codeID < 3'");
    EXPECT_EQ(Run("qryAllCodes", {}).RowCount(), 2U);
    const BoundStatement remove{"DELETE FROM tblNamedQuery WHERE name = ?1", {"qryAllCodes"}};
    catalogue_.connection.RunTransaction({&remove, 1});
    EXPECT_EQ(ErrorNumberOf([&] { Run("qryAllCodes", {}); }), 3078);
}

/// Words a search as the search builders do, with the term as it was typed.
std::string SearchFor(const std::string& term) {
    return "SELECT a.appName, a.appID FROM tblApplication a WHERE a.appName ='" + term + "' ;";
}

TEST(SearchStatements, FindWhatTheTermMeans) {
    TestCatalogue catalogue;
    EXPECT_EQ(catalogue.connection.ExecuteSearch(SearchFor("GRID")).RowCount(), 1U);
    EXPECT_EQ(catalogue.connection.ExecuteSearch(SearchFor("x' OR ''='")).RowCount(), 3U)
        << "a term may end its literal: that is how the search language works";
}

TEST(SearchStatements, CannotReachBeyondTheCatalogueWhateverIsTyped) {
    TestCatalogue catalogue;
    const std::string brackets(5000, '(');
    std::string nots;
    for (int i = 0; i < 5000; ++i)
        nots += "not ";
    std::string unions = "x";
    for (int i = 0; i < 50; ++i)
        unions += "' UNION SELECT a.appName, a.appID FROM tblApplication a WHERE ''='";
    const std::string terms[] = {
        "x' UNION SELECT sql, 1 FROM sqlite_schema WHERE ''='",
        "x' UNION SELECT name, seq FROM sqlite_sequence WHERE ''='",
        "x' UNION SELECT file, 1 FROM pragma_database_list WHERE ''='",
        "x'; DELETE FROM tblCode; SELECT '",
        "x' OR 1=1 --",
        "x' OR load_extension('x.so') OR ''='",
        "x' OR hex(fts3_tokenizer('simple')) OR ''='",
        "x' OR hex(zeroblob(400000000)) OR ''='",
        "x' OR randomblob(900000000) OR ''='",
        "x' OR (WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM c) SELECT max(i) FROM "
        "c) OR ''='",
        "x' OR " + brackets + "1" + std::string(5000, ')') + " OR ''='",
        "x' OR " + nots + "1 OR ''='",
        unions,
        "x' OR a.appName LIKE '[a",
        "x\" OR \"\"=\"",
        "it's",
    };
    for (const std::string& term : terms) {
        const int number =
            ErrorNumberOf([&] { catalogue.connection.ExecuteSearch(SearchFor(term)); });
        if (term == "x\" OR \"\"=\"") {
            EXPECT_EQ(number, 0) << "double quotes inside a literal are text";
        } else {
            EXPECT_NE(number, 0) << term.substr(0, 80);
        }
    }
    EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode"), "3");
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.ExecuteSearch("DELETE FROM tblCode"); }),
              3129);
}

TEST(SearchStatements, ThatTakeTooMuchAreRefusedBeforeTheMemoryIsGone) {
    TestCatalogue catalogue;
    Connection& connection = catalogue.connection;
    connection.ExecuteAction("UPDATE tblCode SET code = '" + std::string(64000, 'x') + "'");
    std::string large = "(SELECT code t FROM tblCode WHERE codeID = 1)";
    for (int doublings = 0; doublings < 11; ++doublings)
        large = "(SELECT t || t t FROM " + large + ")";
    std::string list = "1";
    for (int i = 0; i < 250000; ++i)
        list += ",1";
    const std::string terms[] = {
        "x' UNION ALL SELECT t, 1 FROM " + large + ", tblCode WHERE ''='",
        "x' OR (SELECT count(*) FROM (SELECT DISTINCT t || c.codeID || d.codeID FROM " + large +
            ", tblCode c, tblCode d)) OR ''='",
        "x' OR a.appID IN (" + list + ") OR ''='",
    };
    for (const std::string& term : terms) {
        EXPECT_EQ(ErrorNumberOf([&] { connection.ExecuteSearch(SearchFor(term)); }), 3360)
            << term.substr(0, 80);
    }
    EXPECT_EQ(connection.ExecuteSearch(SearchFor("grid")).RowCount(), 1U);
}

struct CancelAfter : CancelPoll {
    explicit CancelAfter(int polls) : left(polls) {}
    bool IsCancelled() const override { return --left < 0; }
    mutable int left;
};

TEST(SearchStatements, ThatRunForEverCanBeCancelledAndNothingElseIs) {
    TestCatalogue catalogue;
    Connection& connection = catalogue.connection;
    for (int i = 0; i < 12; ++i) {
        connection.ExecuteAction("INSERT INTO tblDate SELECT dateID + " + std::to_string(1 << i) +
                                 ", null FROM tblDate");
        if (i == 0) connection.ExecuteAction("INSERT INTO tblDate VALUES (1, null)");
    }
    const CancelAfter poll(3);
    connection.SetCancelPoll(&poll);
    const std::string endless =
        "x' OR (SELECT count(*) FROM tblDate d1, tblDate d2, tblDate d3, tblDate d4) OR ''='";
    EXPECT_EQ(ErrorNumberOf([&] { connection.ExecuteSearch(SearchFor(endless)); }), 3059);
    EXPECT_LT(poll.left, 0);
    EXPECT_EQ(ErrorNumberOf([&] { connection.ExecuteAction("DELETE FROM tblDate"); }), 0)
        << "a cancelled search must not cut a write in half";
    connection.SetCancelPoll(nullptr);
    EXPECT_EQ(connection.ExecuteSearch(SearchFor("grid")).RowCount(), 1U);
}

}  // namespace
}  // namespace snippetarium::test
