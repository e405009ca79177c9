#include "store/writes_applications.h"

#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

using ApplicationWrites = WriteFixture;

const std::string kMax = "SELECT max(appID) FROM tblApplication";

TEST_F(ApplicationWrites, AddNamesOnlyTheColumnsThatHaveAValue) {
    const auto adding = [](const ApplicationFields& fields) {
        return [fields](Database& db) { AddApplication(db, fields); };
    };
    // clang-format off
    ExpectStatements({
        {"a name and dates", adding({.name = "Grid", .dates = {"2001-03-14", "soon"}}),
         {"INSERT INTO tblApplication(appName) VALUES('Grid');", kMax,
          "DELETE FROM tbl_date_link WHERE ownerID = 2 AND ownerTableID = 1",
          "SELECT dateID FROM tblDate WHERE dDate = #2001-03-14#;",
          "SELECT max(dateID) FROM tblDate",
          "INSERT INTO tblDate VALUES(1, #2001-03-14#)",
          "INSERT INTO tbl_date_link VALUES(2, 1, 1)"}},
        {"everything", adding({"Bob's", "C:\\src", "it's", "1.0", {}, 5}),
         {"INSERT INTO tblApplication(appName, appPath, appComment, appVersion, keywordID) "
          "VALUES('Bob''s', 'C:\\src', 'it''s', '1.0', 5);", kMax}},
        {"a path", adding({.name = "Grid", .path = "C:\\src"}),
         {"INSERT INTO tblApplication(appName, appPath) VALUES('Grid', 'C:\\src');", kMax}},
        {"a comment and a keyword", adding({.name = "Grid", .comment = "c", .keywordID = 1}),
         {"INSERT INTO tblApplication(appName, appComment, keywordID) VALUES('Grid', 'c', 1);", kMax}},
        {"a version, no keyword", adding({.name = "Grid", .version = "2", .keywordID = -1}),
         {"INSERT INTO tblApplication(appName, appVersion) VALUES('Grid', '2');", kMax}},
        {"a list that says nothing about dates", adding({.name = "Grid", .dates = {"", "2001-03-14"}}),
         {"INSERT INTO tblApplication(appName) VALUES('Grid');", kMax}},
    });
    // clang-format on
}

TEST_F(ApplicationWrites, UpdateWritesNullForEmptyTexts) {
    AddApplication(db_, {.name = "Grid"});
    const auto updating = [](const ApplicationFields& fields) {
        return [fields](Database& db) { EXPECT_TRUE(UpdateApplication(db, 2, fields)); };
    };
    // clang-format off
    ExpectStatements({
        {"everything", updating({"Bob's", "C:\\src", "it's", "1.0", {}, 5}),
         {"UPDATE tblApplication SET appName = 'Bob''s', appComment='it''s', appPath='C:\\src', "
          "appVersion='1.0', keywordID=5 WHERE appID = 2;"}},
        {"a name", updating({.name = "Grid"}),
         {"UPDATE tblApplication SET appName = 'Grid', appComment= null, appPath= null, "
          "appVersion= null WHERE appID = 2;"}},
        {"a path and dates", updating({.name = "Grid", .path = "p", .dates = {"soon"}}),
         {"UPDATE tblApplication SET appName = 'Grid', appComment= null, appPath='p', "
          "appVersion= null WHERE appID = 2;",
          "DELETE FROM tbl_date_link WHERE ownerID = 2 AND ownerTableID = 1"}},
        {"rename", [](Database& db) { EXPECT_TRUE(RenameApplication(db, 2, "Bob's")); },
         {"UPDATE tblApplication SET appName = 'Bob''s' WHERE appID = 2;"}},
    });
    // clang-format on
    EXPECT_EQ(Select("SELECT * FROM tblApplication WHERE appID = 2"), Rows{"2|Bob's|p|-|-|5"})
        << "without a keyword the one it has stays";
}

TEST_F(ApplicationWrites, WhatWasWrittenBeforeAFailingDateLinkStays) {
    RefuseInsertsInto("tblDate");
    EXPECT_EQ(AddApplication(db_, {.name = "Grid", .dates = {"2001-03-14"}}), 0);
    ExpectFailedStatement();
    EXPECT_EQ(Select("SELECT appName FROM tblApplication WHERE appID = 2"), Rows{"Grid"});
    EXPECT_EQ(Select("SELECT * FROM tbl_date_link"), Rows())
        << "no link to a date that is not there";
}

}  // namespace
}  // namespace snippetarium::test
