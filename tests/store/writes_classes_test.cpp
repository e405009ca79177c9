#include "store/writes_classes.h"

#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using ClassWrites = WriteFixture;

const std::string kMax = "SELECT max(classID) FROM tblClass";

TEST_F(ClassWrites, AddNamesOnlyTheColumnsThatHaveAValueAndTheCommentByItself) {
    const auto adding = [](const ClassFields& fields) {
        return [fields](Database& db) { AddClass(db, fields); };
    };
    // clang-format off
    ExpectStatements({
        {"everything", adding({"Bob's", 3, "sub\\a.cls", "Dim a 'x", "it's", {"14.3.2001"}, 4, 5}),
         {"INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp, classDI, keywordID) "
          "VALUES ('Bob''s', 3, 4, 'sub\\a.cls', 'Dim a ''x', 5)", kMax,
          "UPDATE tblClass SET classComment ='it''s' WHERE ClassID = 2",
          "DELETE FROM tbl_date_link WHERE ownerID = 2 AND ownerTableID = 2",
          "SELECT dateID FROM tblDate WHERE dDate = #2001-03-14#;",
          "SELECT max(dateID) FROM tblDate",
          "INSERT INTO tblDate VALUES(1, #2001-03-14#)",
          "INSERT INTO tbl_date_link VALUES(2, 1, 2)"}},
        {"no application", adding({.name = "Form1", .languageID = 1}),
         {"INSERT INTO tblClass ( ClassName, appID, languageID) VALUES ('Form1', 1, 1)", kMax}},
        {"a path", adding({.name = "Form1", .appID = 2, .pathInApp = "p"}),
         {"INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp) "
          "VALUES ('Form1', 2, 0, 'p')", kMax}},
        {"declarations, no keyword", adding({.name = "Form1", .appID = 2, .declarations = "d", .keywordID = -1}),
         {"INSERT INTO tblClass ( ClassName, appID, languageID, classDI) VALUES ('Form1', 2, 0, 'd')", kMax}},
        {"a keyword, a list without dates", adding({.name = "Form1", .dates = {""}, .keywordID = 9}),
         {"INSERT INTO tblClass ( ClassName, appID, languageID, keywordID) VALUES ('Form1', 1, 0, 9)", kMax}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblClass WHERE classID IN (2, 3) ORDER BY classID"),
              (Rows{"2|Bob's|3|4|sub\\a.cls|Dim a 'x|it's|5", "3|Form1|1|1|-|-|-|-"}));
}

TEST_F(ClassWrites, UpdateWritesNullForEmptyTexts) {
    AddClass(db_, {.name = "Form1", .appID = 2});
    const auto updating = [](const ClassFields& fields) {
        return [fields](Database& db) { EXPECT_TRUE(UpdateClass(db, 2, fields)); };
    };
    // clang-format off
    ExpectStatements({
        {"everything", updating({"Bob's", 3, "p", "it's", "isn't", {"soon"}, 4, 5}),
         {"UPDATE tblClass SET ClassName = 'Bob''s', appID = 3, languageID = 4, ClassPathInApp='p', "
          "ClassDI='it''s', keywordID=5 WHERE ClassID = 2",
          "UPDATE tblClass SET classComment ='isn''t' WHERE ClassID = 2",
          "DELETE FROM tbl_date_link WHERE ownerID = 2 AND ownerTableID = 2"}},
        {"no application", updating({.name = "Form1", .languageID = 2}),
         {"UPDATE tblClass SET ClassName = 'Form1', appID = 1, languageID = 2, ClassPathInApp= null, "
          "ClassDI= null WHERE ClassID = 2",
          "UPDATE tblClass SET classComment = null WHERE ClassID = 2"}},
        {"rename", [](Database& db) { EXPECT_TRUE(RenameClass(db, 2, "Bob's")); },
         {"UPDATE tblClass SET className = 'Bob''s' WHERE classID = 2;"}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblClass WHERE classID = 2"), Rows{"2|Bob's|1|2|-|-|-|5"});
}

}  // namespace
}  // namespace snippetarium::test
