#include "store/query_texts.h"

#include <gtest/gtest.h>

#include "support/error.h"

namespace snippetarium {
namespace {

TEST(QueryTexts, AreReadFromAFileWithoutWhatIsForItsReader) {
    const std::vector<QueryText> queries = ParseQueryTexts("x.sql",
                                                           "-- About the file.\n"
                                                           "\n"
                                                           "-- About the query.\n"
                                                           "-- name: qryOne(codeID I, name T255)\n"
                                                           "SELECT codeID\n"
                                                           "\n"
                                                           "-- why\n"
                                                           "    FROM tblCode;\r\n"
                                                           "-- name: qryTwo()\n"
                                                           "SELECT 'a;b' AS text;");
    ASSERT_EQ(queries.size(), 2U);
    EXPECT_EQ(queries[0].name, "qryOne");
    EXPECT_EQ(queries[0].parameters, "codeID I, name T255");
    EXPECT_EQ(queries[0].body, "SELECT codeID\n    FROM tblCode");
    EXPECT_EQ(queries[1].name, "qryTwo");
    EXPECT_EQ(queries[1].parameters, "");
    EXPECT_EQ(queries[1].body, "SELECT 'a;b' AS text");
}

TEST(QueryTexts, NameTheFileAndTheLineOfAFault) {
    const struct {
        std::string_view text;
        std::string_view place;
        std::string_view reason;
    } cases[] = {
        {"SELECT 1;", "x.sql, line 1: ", "outside a query"},
        {"-- name: qryA()\nSELECT 1;\n\nSELECT 2;", "x.sql, line 4: ", "outside a query"},
        {"-- name: qryA()\nSELECT 1", "x.sql, line 2: ", "no semicolon"},
        {"-- name: qryA()\n", "x.sql, line 1: ", "no semicolon"},
        {"-- name: qryA()\nSELECT 1\n-- name: qryB()\nSELECT 2;",
         "x.sql, line 3: ", "no semicolon"},
        {"-- name: qryA\nSELECT 1;", "x.sql, line 1: ", "a heading is written"},
        {"-- name: qryA(a I\nSELECT 1;", "x.sql, line 1: ", "a heading is written"},
        {"-- name: A()\nSELECT 1;", "x.sql, line 1: ", "begins with qry"},
        {"-- name: qry A()\nSELECT 1;", "x.sql, line 1: ", "begins with qry"},
        {"-- name: qryA(a Z)\nSELECT 1;", "x.sql, line 1: ", "unknown kind"},
    };
    for (const auto& test : cases) {
        try {
            ParseQueryTexts("x.sql", test.text);
            ADD_FAILURE() << "accepted: " << test.text;
        } catch (const Error& error) {
            EXPECT_TRUE(error.Description().starts_with(test.place)) << error.Description();
            EXPECT_NE(error.Description().find(test.reason), std::string::npos)
                << error.Description();
        }
    }
}

}  // namespace
}  // namespace snippetarium
