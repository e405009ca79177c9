#include "store/writes_codes.h"

#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using CodeWrites = WriteFixture;

const std::string kMax = "SELECT max(codeID) FROM tblCode";

TEST_F(CodeWrites, AddWritesTheCommentByItself) {
    const auto adding = [](const CodeFields& fields) {
        return [fields](Database& db) { AddCode(db, fields); };
    };
    // clang-format off
    ExpectStatements({
        {"everything", adding({"Bob's", "Sub a()\r\n'x\r\nEnd Sub", 3, "it's", {"Mar 14, 2001"}, 5}),
         {"INSERT INTO tblCode   (CodeName, Code, classID, keywordID) "
          "VALUES ('Bob''s', 'Sub a()\r\n''x\r\nEnd Sub', 3, 5)", kMax,
          "UPDATE tblCode SET codeComment ='it''s' WHERE codeID = 1",
          "DELETE FROM tbl_date_link WHERE ownerID = 1 AND ownerTableID = 3",
          "SELECT dateID FROM tblDate WHERE dDate = #2001-03-14#;",
          "SELECT max(dateID) FROM tblDate",
          "INSERT INTO tblDate VALUES(1, #2001-03-14#)",
          "INSERT INTO tbl_date_link VALUES(1, 1, 3)"}},
        {"no class", adding({.name = "Draw", .keywordID = -1}),
         {"INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('Draw', '', 1)", kMax}},
        {"a comment, a list without dates", adding({.name = "Draw", .classID = 2, .comment = "c", .dates = {""}}),
         {"INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('Draw', '', 2)", kMax,
          "UPDATE tblCode SET codeComment ='c' WHERE codeID = 3"}},
    });
    // clang-format on
    EXPECT_EQ(
        Select("SELECT * FROM tblCode ORDER BY codeID"),
        (Rows{"1|Bob's|Sub a()\r\n'x\r\nEnd Sub|it's|3|5", "2|Draw||-|1|-", "3|Draw||c|2|-"}));
}

TEST_F(CodeWrites, UpdateWritesNullForAnEmptyComment) {
    AddCode(db_, {.name = "Draw"});
    const auto updating = [](const CodeFields& fields) {
        return [fields](Database& db) { EXPECT_TRUE(UpdateCode(db, 1, fields)); };
    };
    // clang-format off
    ExpectStatements({
        {"everything", updating({"Bob's", "it's", 3, "isn't", {"soon"}, 5}),
         {"UPDATE tblCode SET codeName = 'Bob''s', Code = 'it''s', classID = 3, keywordID = 5 "
          "WHERE codeID = 1",
          "UPDATE tblCode SET codeComment ='isn''t' WHERE codeID = 1",
          "DELETE FROM tbl_date_link WHERE ownerID = 1 AND ownerTableID = 3"}},
        {"no class", updating({.name = "Draw", .code = "c", .keywordID = -1}),
         {"UPDATE tblCode SET codeName = 'Draw', Code = 'c', classID = 1 WHERE codeID = 1",
          "UPDATE tblCode SET codeComment = null WHERE codeID = 1"}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblCode"), Rows{"1|Draw|c|-|1|5"});
}

TEST_F(CodeWrites, OfOnePartWriteThatAlone) {
    AddCode(db_, {"Draw", "code", 2, "comment", {}, 5});
    // clang-format off
    ExpectStatements({
        {"rename", [](Database& db) { EXPECT_TRUE(RenameCode(db, 1, "Bob's")); },
         {"UPDATE tblCode SET codeName = 'Bob''s' WHERE codeID = 1;"}},
        {"comment", [](Database& db) { EXPECT_TRUE(SetCodeComment(db, 1, "it's")); },
         {"UPDATE tblCode SET codeComment = 'it''s' WHERE codeID = 1"}},
        {"no language yet", [](Database& db) { SetCodeLanguage(db, 1, 2); },
         {"SELECT * FROM tblCode_Link_Language WHERE codeID=1",
          "INSERT INTO tblCode_Link_Language VALUES (1, 2)"}},
        {"another language", [](Database& db) { SetCodeLanguage(db, 1, 7); },
         {"SELECT * FROM tblCode_Link_Language WHERE codeID=1",
          "UPDATE tblCode_Link_Language SET languageID=7 WHERE codeID=1"}},
        {"the language of a new procedure", [](Database& db) { AddCodeLanguage(db, 2, 3); },
         {"INSERT INTO tblCode_Link_Language VALUES (2, 3)"}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblCode"), Rows{"1|Bob's|code|it's|2|5"});
    EXPECT_EQ(Select("SELECT * FROM tblCode_Link_Language ORDER BY codeID"), (Rows{"1|7", "2|3"}));
}

TEST_F(CodeWrites, AFailedLanguageTestWritesNoLanguage) {
    db_.GetConnection().RunScript("ALTER TABLE tblCode_Link_Language RENAME COLUMN codeID TO id;");
    SetCodeLanguage(db_, 1, 2);
    TakeBox();
    EXPECT_EQ(Select("SELECT * FROM tblCode_Link_Language"), Rows());
}

}  // namespace
}  // namespace snippetarium::test
