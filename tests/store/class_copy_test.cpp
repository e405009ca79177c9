#include "store/class_copy.h"

#include "store/code_copy.h"
#include "store/deletion.h"
#include "store/reads_classes.h"
#include "tests/store/deletion_fixture.h"

namespace snippetarium::test {
namespace {

class ClassCopy : public DeletionFixture {
  protected:
    /// Into class 6 come a second Draw, one without a comment, and what long texts leave behind;
    /// application 8 is where to copy it.
    ClassCopy() {
        Run("UPDATE tblClass SET classPathInApp = 'sub\\Grid.cpp', classComment = 'it''s'"
            "    WHERE classID = 6;"
            "UPDATE tblCode SET codeComment = 'draws' WHERE codeID = 7;"
            "INSERT INTO tblCode(codeID, codeName, code, codeComment, classID, keywordID) VALUES"
            "    (8, 'draw', 'y', NULL, 6, NULL), (9, 'Draw', 'z', '', 6, 91);"
            "INSERT INTO tblCode_Link_Language VALUES (9, 7);"
            "INSERT INTO tblKeyword VALUES (91, 'c', 2);"
            "INSERT INTO tblSearchWord VALUES (2, 'own');"
            "INSERT INTO tblKeyword_link_searchWord VALUES (91, 1), (91, 2);"
            "INSERT INTO tbl_Author_Link VALUES (6, 2, 2), (9, 2, 3);"
            "INSERT INTO tblAuthor VALUES (2, 'Bob', '', 'Lee');"
            "INSERT INTO tblSourceForm VALUES (6, 'encoding=UTF-8');"
            "INSERT INTO tblOverlong VALUES (6, 2, 'classDI', 'rest'), (9, 3, 'code', 'more');"
            "INSERT INTO tblFavorite VALUES (5, 6, NULL), (5, 6, 7);"
            "INSERT INTO tblApplication(appID, appName) VALUES (8, 'Draw');");
    }

    /// A class and what belongs to it, without IDs of its own.
    Rows ClassAsRead(std::int32_t classID) {
        const std::string id = std::to_string(classID);
        const std::string ownedBy =
            " WHERE ownerTableID = 2 AND ownerID = " + id +
            " OR ownerTableID = 3 AND ownerID IN (SELECT codeID FROM tblCode WHERE classID = " +
            id + ") ORDER BY ownerTableID, ownerID, 2";
        const std::string words =
            " FROM (tblKeyword k INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = "
            "kl.keywordID) INNER JOIN ";
        Rows all;
        for (const std::string& sql :
             {"SELECT className, languageID, classPathInApp, classDI, classComment, keywordID "
              "IS NULL FROM tblClass WHERE classID = " +
                  id,
              "SELECT cd.codeName, cd.code, cd.codeComment, l.languageID, cd.keywordID IS NULL "
              "FROM tblCode cd LEFT JOIN tblCode_Link_Language l ON cd.codeID = l.codeID WHERE "
              "cd.classID = " +
                  id + " ORDER BY cd.codeID",
              "SELECT k.keyword, k.separatorID, kl.searchWordID" + words +
                  "tblClass o ON k.keywordID = o.keywordID WHERE o.classID = " + id +
                  " ORDER BY kl.searchWordID",
              "SELECT o.code, k.keyword, k.separatorID, kl.searchWordID" + words +
                  "tblCode o ON k.keywordID = o.keywordID WHERE o.classID = " + id +
                  " ORDER BY o.codeID, kl.searchWordID",
              "SELECT ownerTableID, authorID FROM tbl_Author_Link" + ownedBy,
              "SELECT ownerTableID, dateID FROM tbl_date_link" + ownedBy,
              "SELECT part, text FROM tblOverlong" + ownedBy,
              "SELECT form FROM tblSourceForm WHERE classID = " + id}) {
            for (const std::string& row : Select(sql))
                all.push_back(row);
        }
        return all;
    }
    /// How many rows there are in all.
    Rows Counts() {
        Rows counts;
        for (const std::string table :
             {"tblClass", "tblCode", "tblKeyword", "tblKeyword_link_searchWord", "tblSearchWord",
              "tblAuthor", "tbl_Author_Link", "tblDate", "tbl_date_link", "tblCode_Link_Language",
              "tblSourceForm", "tblOverlong", "tblFavorite"})
            counts.push_back(table + " " + Select("SELECT count(*) FROM " + table).front());
        return counts;
    }
    /// Under its own name.
    std::int32_t Copy(std::int32_t classID, std::int32_t appID) {
        return CopyClass(db_, classID, appID, ClassNameByID(db_, classID));
    }
};

TEST_F(ClassCopy, HasEverythingThatTheClassHasAndSharesNoKeywordWithIt) {
    const Rows original = ClassAsRead(6);
    ASSERT_EQ(original.size(), 17U);
    const Rows bookmarks = Select("SELECT * FROM tblFavorite");
    const std::int32_t copyID = Copy(6, 8);
    ASSERT_EQ(copyID, 7);
    EXPECT_EQ(ClassAsRead(copyID), original);
    EXPECT_EQ(ClassAsRead(6), original);
    EXPECT_EQ(AppIDByClassID(db_, copyID), 8);
    EXPECT_EQ(Select("SELECT * FROM tblFavorite"), bookmarks);

    // What belongs to the one is not touched by the end of the other.
    DeleteClass(db_, 6);
    EXPECT_EQ(ClassAsRead(copyID), original);
}

TEST_F(ClassCopy, IsUndoneByItsDeletion) {
    const Rows before = Counts();
    DeleteClass(db_, Copy(6, 8));
    EXPECT_EQ(Counts(), before);
}

TEST_F(ClassCopy, IsNotMadeWhereTheNameIsTaken) {
    TakeStatements();
    EXPECT_EQ(Copy(6, 5), 0);
    EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::Information, "Snippetarium Information",
                                   "A class with the name you specified already exists in this "
                                   "application. Specify a different class name."}));
    EXPECT_TRUE(TakeStatements().empty());
}

TEST_F(ClassCopy, IsNotMadeOfOrIntoWhatDoesNotExist) {
    for (const auto& [classID, appID] : {std::pair{99, 8}, std::pair{6, 99}}) {
        TakeStatements();
        EXPECT_EQ(Copy(classID, appID), 0);
        EXPECT_NE(TakeBox().text.find("does not exist any more"), std::string::npos);
        EXPECT_TRUE(TakeStatements().empty());
    }
}

TEST_F(ClassCopy, OfTheUndefinedClassHasMarkers) {
    Run("INSERT INTO tblCode(codeID, codeName, classID) VALUES (20, 'One', 1), (21, 'Two', 1);");
    EXPECT_EQ(ClassDIByClassID(db_, Copy(1, 8)),
              "'***Procedure One***\r\n'***Procedure Two***\r\n");
    EXPECT_EQ(ClassDIByClassID(db_, 1), "");
    EXPECT_EQ(AppIDByClassID(db_, Copy(6, 0)), 1);
}

TEST_F(ClassCopy, ThatFailsLeavesNothing) {
    const Rows before = Counts();
    for (const std::string table :
         {"tblClass", "tblSourceForm", "tbl_Author_Link", "tbl_date_link", "tblOverlong",
          "tblKeyword", "tblKeyword_link_searchWord", "tblCode", "tblCode_Link_Language"}) {
        SCOPED_TRACE(table);
        RefuseInsertsInto(table);
        EXPECT_EQ(Copy(6, 8), 0);
        ExpectFailedStatement();
        EXPECT_EQ(Counts(), before);
        Run("DROP TRIGGER refuse" + table + ";");
    }
    // Neither does one whose keyword string has no owner yet.
    Run("CREATE TRIGGER refuse BEFORE UPDATE OF keywordID ON tblCode WHEN new.keywordID > 0 "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    EXPECT_EQ(Copy(6, 8), 0);
    ExpectFailedStatement();
    EXPECT_EQ(Counts(), before);
}

TEST_F(ClassCopy, UnderAnotherNameStandsBesideTheOriginal) {
    const std::int32_t copyID = CopyClass(db_, 6, 5, "It's another");
    EXPECT_EQ(ClassNameByID(db_, copyID), "It's another");
    EXPECT_EQ(AppIDByClassID(db_, copyID), 5);
}

class CodeCopy : public ClassCopy {
  protected:
    /// A procedure and what belongs to it, without its ID and its name.
    Rows CodeAsRead(std::int32_t codeID) {
        const std::string id = std::to_string(codeID);
        const std::string owned = " WHERE ownerTableID = 3 AND ownerID = " + id;
        Rows all;
        for (const std::string& sql :
             {"SELECT code, codeComment FROM tblCode WHERE codeID = " + id,
              "SELECT languageID FROM tblCode_Link_Language WHERE codeID = " + id,
              "SELECT authorID FROM tbl_Author_Link" + owned,
              "SELECT dateID FROM tbl_date_link" + owned,
              "SELECT part, text FROM tblOverlong" + owned,
              "SELECT k.keyword, k.separatorID, kl.searchWordID FROM (tblKeyword k INNER JOIN "
              "tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID) INNER JOIN tblCode cd "
              "ON cd.keywordID = k.keywordID WHERE cd.codeID = " +
                  id}) {
            for (const std::string& row : Select(sql))
                all.push_back(row);
        }
        return all;
    }
};

TEST_F(CodeCopy, HasEverythingThatTheProcedureHasAndAMarker) {
    const Rows original = CodeAsRead(9);
    ASSERT_EQ(original.size(), 6U);
    const std::int32_t copyID = CopyCode(db_, 9, 6, "It's drawn");
    EXPECT_EQ(CodeAsRead(copyID), original);
    EXPECT_EQ(CodeAsRead(9), original);
    EXPECT_NE(ClassDIByClassID(db_, 6).find("It's drawn"), std::string::npos);
    DeleteCode(db_, 9);
    EXPECT_EQ(CodeAsRead(copyID), original);
    // One without a class has no text to be marked in.
    const std::int32_t looseID = CopyCode(db_, copyID, 0, "Loose");
    EXPECT_EQ(CodeAsRead(looseID), original);
    EXPECT_EQ(ClassDIByClassID(db_, 1), "");
}

TEST_F(CodeCopy, ThatIsRefusedOrFailsLeavesNothing) {
    const Rows before = Counts();
    const std::string text = ClassDIByClassID(db_, 6);
    EXPECT_EQ(CopyCode(db_, 9, 6, "DRAW"), 0);
    EXPECT_TRUE(TakeBox().text.starts_with("A procedure with the name you specified already"));
    EXPECT_EQ(CopyCode(db_, 99, 6, "New"), 0);
    EXPECT_NE(TakeBox().text.find("does not exist any more"), std::string::npos);
    for (const std::string table :
         {"tblCode", "tbl_Author_Link", "tblOverlong", "tblCode_Link_Language", "tblKeyword",
          "tblKeyword_link_searchWord"}) {
        SCOPED_TRACE(table);
        RefuseInsertsInto(table);
        EXPECT_EQ(CopyCode(db_, 9, 6, "New"), 0);
        ExpectFailedStatement();
        EXPECT_EQ(Counts(), before);
        EXPECT_EQ(ClassDIByClassID(db_, 6), text);
        Run("DROP TRIGGER refuse" + table + ";");
    }
}

}  // namespace
}  // namespace snippetarium::test
