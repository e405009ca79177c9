#include "engine/jet_sql.h"

#include <gtest/gtest.h>

#include "engine/engine_error.h"

namespace snippetarium::test {
namespace {

std::string SqlOf(std::string_view text, const TranslationOptions& options = {}) {
    try {
        return Translate(text, options).sql;
    } catch (const EngineError& error) {
        return error.Description();
    }
}

/// The code of the refusal, Unexpected (which the translator never uses) where there is none.
EngineErrorCode RefusalOf(std::string_view text) {
    try {
        Translate(text, {});
    } catch (const EngineError& error) {
        return error.Code();
    }
    return EngineErrorCode::Unexpected;
}

TEST(JetSql, TranslatesWhatTheDialectsDifferIn) {
    struct Case {
        std::string_view text;
        std::string_view sql;
    };
    // clang-format off
    constexpr Case kCases[] = {
        // the end of a statement
        {" SELECT 1 ; \r\n\t",                          "SELECT 1"},
        {"select 1",                                    "select 1"},
        // dates
        {"SELECT #3/14/2001#",                          "SELECT '2001-03-14'"},
        {"SELECT x FROM t WHERE d=#3/14/01 8:05 pm#AND y", "SELECT x FROM t WHERE d='2001-03-14 20:05:00'AND y"},
        {"SELECT '#3/14/2001#', [#3/14/2001#]",         "SELECT '#3/14/2001#', [#3/14/2001#]"},
        // TOP
        {"SELECT TOP 10 a FROM t WHERE b IN (SELECT b FROM u);", "SELECT   a FROM t WHERE b IN (SELECT b FROM u) LIMIT 10"},
        {"SELECT DISTINCT top 5 * FROM t ORDER BY a",   "SELECT DISTINCT   * FROM t ORDER BY a LIMIT 5"},
        {"SELECT TOP, t.top FROM t",                    "SELECT TOP, t.top FROM t"},
        {"SELECT a FROM t WHERE b IN (SELECT b FROM u UNION SELECT c FROM v)", "SELECT a FROM t WHERE b IN (SELECT b FROM u UNION SELECT c FROM v)"},
        // DELETE
        {"DELETE * FROM a",                             "DELETE   FROM a"},
        {"DELETE*FROM a WHERE b = 'c'",                 "DELETE FROM a WHERE b = ?1"},
        {"DELETE FROM (a)",                             "DELETE FROM (a)"},
        {"DELETE a.* FROM a WHERE b IN (SELECT b FROM c UNION SELECT b FROM d)", "DELETE FROM a WHERE (rowid) IN (SELECT a.rowid FROM a WHERE b IN (SELECT b FROM c UNION SELECT b FROM d))"},
        {"DELETE a.* FROM a INNER JOIN b",              "DELETE FROM a WHERE (rowid) IN (SELECT a.rowid FROM a INNER JOIN b)"},
        {"DELETE x.* FROM a x WHERE x.b = 1;",          "DELETE FROM a WHERE (rowid) IN (SELECT x.rowid FROM a x WHERE x.b = ?1)"},
        {"DELETE X . * FROM a AS x",                    "DELETE FROM a WHERE (rowid) IN (SELECT X.rowid FROM a AS x)"},
        {"DELETE a.*FROM a",                            "DELETE FROM a WHERE (rowid) IN (SELECT a.rowid FROM a)"},
        {"DELETE b.* FROM a JOIN b ON a.i=b.i",         "DELETE FROM b WHERE (rowid) IN (SELECT b.rowid FROM a JOIN b ON a.i=b.i)"},
        {"DELETE x.* FROM (a INNER JOIN [b] x ON a.i=x.i) INNER JOIN c ON c.i=x.i", "DELETE FROM [b] WHERE (rowid) IN (SELECT x.rowid FROM  a INNER JOIN [b] x ON a.i=x.i  INNER JOIN c ON c.i=x.i)"},
        {"DELETE [x].* FROM a b, c x WHERE b.x IN (SELECT x FROM d)", "DELETE FROM c WHERE (rowid) IN (SELECT [x].rowid FROM a b, c x WHERE b.x IN (SELECT x FROM d))"},
        {"DELETE x.* FROM (SELECT a FROM b x) c, (d INNER JOIN e ON f((g), x)), h x", "DELETE FROM h WHERE (rowid) IN (SELECT x.rowid FROM (SELECT a FROM b x) c, (d INNER JOIN e ON f((g), x)), h x)"},
        // values of action statements
        {"UPDATE t SET a='it''s''', b = -5, c=.5e1 WHERE d>#3/14/2001#", "UPDATE t SET a=?1, b = -?2, c=?3 WHERE d>?4"},
        {"INSERT INTO tbl2(kls0) VALUES(null,True,''''''   ,1)", "INSERT INTO tbl2(kls0) VALUES(null,True,?1   ,?2)"},
        {"UPDATE t SET a=0x1F, b=9223372036854775808, c=1e999", "UPDATE t SET a=0x1F, b=9223372036854775808, c=1e999"},
        {"UPDATE t SET a=1.5e+3, b=2E-1, c=3e",         "UPDATE t SET a=?1, b=?2, c=3e"},
        {"INSERT INTO t SELECT 1, 'a' FROM u ORDER BY 2", "INSERT INTO t SELECT ?1, ?2 FROM u ORDER BY 2"},
        {"UPDATE t SET a=CAST(b AS TEXT(9))",           "UPDATE t SET a=CAST(b AS TEXT(9))"},
        {"INSERT INTO t SELECT a FROM u GROUP BY 'b'1", "INSERT INTO t SELECT a FROM u GROUP BY ?1 1"},
        {"SELECT 1, 'a''b' FROM t",                     "SELECT 1, 'a''b' FROM t"},
        {"ALTER TABLE t ADD COLUMN a INTEGER DEFAULT 5", "ALTER TABLE t ADD COLUMN a INTEGER DEFAULT 5"},
        {"SELECT 'a;--\"?[(', [b;--\"?'(] FROM t",      "SELECT 'a;--\"?[(', [b;--\"?'(] FROM t"},
    };
    // clang-format on
    for (const auto& [text, sql] : kCases)
        EXPECT_EQ(SqlOf(text), sql) << text;
}

TEST(JetSql, DeletesByTheKeyOfTablesWhoseRowsHaveNoNumbers) {
    TranslationOptions options;
    options.keyColumnsOf = [](std::string_view table) {
        return table == "links" ? std::vector<std::string>{"a", "b"} : std::vector<std::string>{};
    };
    EXPECT_EQ(SqlOf("DELETE x.* FROM [links] x INNER JOIN t ON x.a = t.a", options),
              "DELETE FROM [links] WHERE (a, b) IN (SELECT x.a, x.b FROM [links] x INNER JOIN t ON "
              "x.a = t.a)");
    EXPECT_EQ(SqlOf("DELETE t.* FROM links x INNER JOIN t ON x.a = t.a", options),
              "DELETE FROM t WHERE (rowid) IN (SELECT t.rowid FROM links x INNER JOIN t ON x.a = "
              "t.a)");
}

TEST(JetSql, TakesOutTheValuesThatTheLiteralsMean) {
    const Translation translation = Translate(
        "INSERT INTO t VALUES('it''s ''''', '', 007, 1.5, #3/14/2001#, 9223372036854775807)", {});
    EXPECT_EQ(translation.verb, StatementVerb::Insert);
    EXPECT_EQ(translation.parameters,
              (std::vector<SqlLiteral>{"it's ''", "", std::int64_t{7}, 1.5, "2001-03-14",
                                       std::int64_t{9223372036854775807}}));
}

TEST(JetSql, LeavesTheRestInTheTextAfter250Values) {
    std::string text = "DELETE FROM t WHERE a IN (";
    std::string sql = text;
    for (int i = 1; i <= 250; ++i) {
        text.append("'x',");
        sql.append("?").append(std::to_string(i)).append(",");
    }
    const std::string rest = "'y''s',251,'2001-03-14')";
    const Translation translation = Translate(text + "'y''s',251,#3/14/2001#)", {});
    EXPECT_EQ(translation.sql, sql + rest);
    EXPECT_EQ(translation.parameters.size(), 250U);
}

TEST(JetSql, BracketedNamesOfTheListAreParameters) {
    const TranslationOptions options{{"classID", "name"}};
    const Translation translation = Translate(
        "SELECT [other], cls.[classID], [classID].x, 1 AS [name] FROM cls WHERE a LIKE [NAME] AND "
        "cls.classID=[classid]AND b=[name]",
        options);
    EXPECT_EQ(
        translation.sql,
        "SELECT [other], cls.[classID], [classID].x, 1 AS [name] FROM cls WHERE a LIKE ?2 AND "
        "cls.classID=?1AND b=?2");
    EXPECT_EQ(translation.parameterNames, (std::vector<std::string>{"name", "classID"}));
    EXPECT_EQ(SqlOf("UPDATE t SET a='b' WHERE c=[name]", options), "UPDATE t SET a=?3 WHERE c=?2")
        << "values come behind the named parameters";
}

TEST(JetSql, RefusesWhatIsNoSingleStatementOfTheDialect) {
    struct Case {
        std::string_view text;
        EngineErrorCode code;
    };
    using enum EngineErrorCode;
    using namespace std::string_view_literals;
    // clang-format off
    constexpr Case kCases[] = {
        {"",                                        InvalidStatement},
        {" \r\n",                                   InvalidStatement},
        {";",                                       InvalidStatement},
        {"DROP TABLE t",                            InvalidStatement},
        {"PRAGMA writable_schema=1",                InvalidStatement},
        {"WITH a AS (SELECT 1) SELECT 1",           InvalidStatement},
        {"(SELECT 1)",                              InvalidStatement},
        {"'SELECT 1'",                              InvalidStatement},
        {"[SELECT] 1",                              InvalidStatement},
        {"SELECTED",                                InvalidStatement},
        {"\xEF\xBB\xBFSELECT 1",                    Syntax},
        {"ALTER VIEW v",                            Syntax},
        {"ALTER",                                   Syntax},
        {"SELECT 1;;",                              TextAfterStatement},
        {"SELECT 1; SELECT 2",                      TextAfterStatement},
        {"SELECT 1; -- done",                       TextAfterStatement},
        {"SELECT 1 -- 2",                           Syntax},
        {"SELECT 1 /* 2 */",                        Syntax},
        {"SELECT \"a\" FROM t",                     Syntax},
        {"SELECT `a` FROM t",                       Syntax},
        {"SELECT ?",                                Syntax},
        {"SELECT @a",                               Syntax},
        {"SELECT $a",                               Syntax},
        {"SELECT a$b",                              Syntax},
        {"SELECT :a",                               Syntax},
        {"SELECT a & b",                            Syntax},
        {"SELECT \v 1",                             Syntax},
        {"SELECT (WITH a AS (SELECT 1) SELECT 1)",  Syntax},
        {"SELECT x'41'",                            Syntax},
        {"SELECT 'a'#3/14/2001#",                   Syntax},
        {"SELECT #3/14/2001#'a'",                   Syntax},
        {"SELECT #3/14/2001##3/15/2001#",           Syntax},
        {"SELECT 'a",                               Syntax},
        {"SELECT 'a''",                             Syntax},
        {"SELECT #3/14/2001",                       Syntax},
        {"SELECT #2/29/2001#",                      Syntax},
        {"INSERT INTO t VALUES(#x#)",               Syntax},
        {"SELECT [a FROM t",                        Syntax},
        {"SELECT (1",                               Syntax},
        {"SELECT 1)",                               Syntax},
        {"SELECT 1 FROM (a INNER JOIN b ON 1;)",    Syntax},
        {"SELECT 'a\0b'"sv,                         Syntax},
        {"SELECT 1;\0"sv,                           Syntax},
        {"SELECT '\xC3'",                           Syntax},
        {"SELECT '\xED\xA0\x80'",                   Syntax},
        {"DELETE a FROM b",                         Syntax},
        {"DELETE a.b FROM a",                       Syntax},
        {"DELETE x.* WHERE 1",                      Syntax},
        {"DELETE",                                  Syntax},
        {"DELETE x.* FROM a y",                     Syntax},
        {"DELETE a.* FROM a y",                     Syntax},
        {"DELETE x.* FROM a ON x",                  Syntax},
        {"DELETE x.* FROM a ORDER BY b, x",         Syntax},
        {"DELETE x.* FROM (SELECT a, b x FROM c) y", Syntax},
        {"DELETE x.* FROM a x UNION SELECT 1",      Syntax},
        {"SELECT TOP 5 a FROM t UNION SELECT 1",    Syntax},
        {"SELECT 1 UNION SELECT TOP 5 a FROM t",    Syntax},
        {"SELECT (SELECT TOP 5 a FROM t)",          Syntax},
        {"INSERT INTO t SELECT TOP 5 a FROM u",     Syntax},
        {"SELECT TOP 5.5 a FROM t",                 Syntax},
        {"SELECT TOP 5 PERCENT a FROM t",           Syntax},
    };
    // clang-format on
    for (const auto& [text, code] : kCases)
        EXPECT_EQ(RefusalOf(text), code) << text;
}

TEST(JetSql, RefusesMoreThanAHundredOpenBrackets) {
    const auto nested = [](std::size_t depth) {
        return "SELECT " + std::string(depth, '(') + "1" + std::string(depth, ')');
    };
    EXPECT_EQ(RefusalOf(nested(100)), EngineErrorCode::Unexpected);
    EXPECT_EQ(RefusalOf(nested(101)), EngineErrorCode::QueryTooComplex);
}

TEST(JetSql, TellsThePlaceAndTheReason) {
    EXPECT_EQ(SqlOf("SELECT a\nFROM \"t\""),
              "Syntax error in the statement at position 15: texts stand between single quotation "
              "marks and names between square brackets.");
    EXPECT_EQ(SqlOf("SELECT ((1)"),
              "Syntax error in the statement at position 8: the bracket that opens here is never "
              "closed.");
}

}  // namespace
}  // namespace snippetarium::test
