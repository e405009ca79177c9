#include <algorithm>
#include <initializer_list>

#include "store/bookmarks.h"
#include "store/deletion.h"
#include "store/owner_keywords.h"
#include "store/trash.h"
#include "tests/store/deletion_fixture.h"

// The statements of the deletions, letter for letter and in their order.

namespace snippetarium::test {
namespace {

/// A pass over the keyword strings that a SELECT gives for their links, and one for their rows.
Statements KeywordPass(const std::string& links, const std::string& rows) {
    return {
        "INSERT INTO tblIDsToDelete SELECT searchWordID AS ID FROM tblKeyword_link_searchWord "
        "WHERE keywordID IN(" +
            links + ")",
        "DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (" + links + ")",
        "DELETE FROM tblKeyword WHERE keywordID IN (" + rows + ")",
        "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT searchWordID FROM "
        "tblKeyword_link_searchWord)",
        "DELETE FROM tblSearchWord WHERE searchWordID IN (SELECT ID FROM tblIDsToDelete)",
        "DELETE FROM tblIDsToDelete"};
}

Statements AuthorRemoval(const std::string& owners, const std::string& kind) {
    return {
        "INSERT INTO tblIDsToDelete SELECT authorID AS ID FROM tbl_Author_Link WHERE ownerID "
        "IN (" +
            owners + ") AND ownerTableID=" + kind,
        "DELETE FROM tbl_Author_Link WHERE ownerID IN (" + owners + ") AND ownerTableID=" + kind,
        "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT authorID FROM tbl_Author_Link)",
        "DELETE FROM tblAuthor WHERE authorID IN (SELECT authorID FROM tblIDsToDelete)",
        "DELETE FROM tblIDsToDelete"};
}

Statements DateRemoval(const std::string& owners, const std::string& kind) {
    return {"INSERT INTO tblIDsToDelete SELECT dateID AS ID FROM tbl_date_link WHERE ownerID IN (" +
                owners + ") AND ownerTableID=" + kind,
            "DELETE FROM tbl_date_link WHERE ownerID IN (" + owners + ") AND ownerTableID=" + kind,
            "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT dateID FROM tbl_date_link)",
            "DELETE FROM tblDate WHERE dateID IN (SELECT dateID FROM tblIDsToDelete)",
            "DELETE FROM tblIDsToDelete"};
}

Statements Joined(std::initializer_list<Statements> parts) {
    Statements all;
    for (const Statements& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// clang-format off
const Statements kApplicationsKeywords = Joined({
    KeywordPass("SELECT cd.keywordID FROM tblCode cd INNER JOIN tblClass cl ON cd.classID = cl.classID WHERE cd.keywordID is not null AND cl.appID = 5",
                "SELECT k.keywordID FROM (tblKeyword k INNER JOIN tblCode cd ON k.keywordID = cd.keywordID) INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID =5"),
    KeywordPass("SELECT keywordID FROM tblClass WHERE keywordID IS NOT NULL AND appID = 5",
                "SELECT k.keywordID FROM tblKeyword k INNER JOIN tblClass cls ON k.keywordID = cls.keywordID WHERE cls.appID = 5"),
    KeywordPass("SELECT KeywordID FROM tblApplication WHERE appID = 5 AND keywordID IS NOT NULL",
                "SELECT KeywordID FROM tblApplication WHERE appID = 5 AND keywordID IS NOT NULL")});
const Statements kClassKeywords = Joined({
    KeywordPass("SELECT kl.keywordID FROM tblKeyword_link_searchWord kl INNER JOIN tblCode cd ON kl.keywordID = cd.keywordID WHERE cd.classID = 6",
                "SELECT k.keywordID FROM tblKeyword k INNER JOIN tblCode cd ON k.keywordID = cd.keywordID WHERE cd.classID = 6"),
    KeywordPass("SELECT KeywordID FROM tblClass WHERE classID = 6 AND keywordID IS NOT NULL",
                "SELECT KeywordID FROM tblClass WHERE classID = 6 AND keywordID IS NOT NULL")});
const Statements kCodeKeywords = KeywordPass("SELECT KeywordID FROM tblCode WHERE codeID = 7",
                                             "SELECT KeywordID FROM tblCode WHERE codeID = 7");

const std::string kApplicationsCodes = "SELECT cd.codeID FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID = 5";
const std::string kApplicationsClasses = "SELECT classID FROM tblClass WHERE appID =5";
const std::string kClassCodes = "SELECT codeID FROM tblCode WHERE classID =6";
// clang-format on

using DeletionStatements = DeletionFixture;

TEST_F(DeletionStatements, OfAProcedure) {
    DeleteCode(db_, 7);
    EXPECT_EQ(
        TakeStatements(),
        Joined({kCodeKeywords,
                {"SELECT authorID FROM tbl_Author_Link WHERE ownerID = 7 AND ownerTableID = 3"},
                AuthorRemoval("7", "3"),
                {"SELECT dateID FROM tbl_date_link WHERE ownerID = 7 AND ownerTableID = 3"},
                DateRemoval("7", "3"),
                {"UPDATE tblClass SET classDI = 'it''s ' WHERE classID = 6",
                 "DELETE FROM tblCode_Link_Language WHERE codeID IN (7)",
                 "DELETE FROM tblFavorite WHERE codeID IN (7)",
                 "DELETE FROM tblCode WHERE codeID IN (7)"}}));
}

Statements ClassDeletion() {
    return Joined(
        {kClassKeywords,
         {"SELECT authorID FROM tbl_Author_Link WHERE ownerID IN     (SELECT codeID FROM tblCode"
          "      WHERE classID = 6) AND ownerTableID = 3"},
         AuthorRemoval(kClassCodes, "3"),
         {"SELECT authorID FROM tbl_Author_Link WHERE ownerID = 6 AND ownerTableID = 2"},
         AuthorRemoval("6", "2"),
         {"SELECT dateID FROM tbl_date_link WHERE ownerID IN     (SELECT codeID FROM tblCode"
          "      WHERE classID = 6) AND ownerTableID = 3"},
         DateRemoval(kClassCodes, "3"),
         {"SELECT dateID FROM tbl_date_link WHERE ownerID = 6 AND ownerTableID = 2"},
         DateRemoval("6", "2"),
         {"DELETE FROM tblCode_Link_Language WHERE codeID IN (" + kClassCodes + ")",
          "DELETE FROM tblFavorite WHERE codeID IN (" + kClassCodes + ")",
          "DELETE FROM tblCode WHERE codeID IN (" + kClassCodes + ")",
          "DELETE FROM tblClass WHERE classID IN (6)"}});
}

TEST_F(DeletionStatements, OfAClass) {
    DeleteClass(db_, 6);
    EXPECT_EQ(TakeStatements(), ClassDeletion());
    RestoreFromTrash(db_, 1);
    TakeStatements();
    EXPECT_TRUE(DeleteClassQuietly(db_, 6));
    EXPECT_EQ(TakeStatements(), ClassDeletion()) << "of one that is replaced";
}

TEST_F(DeletionStatements, OfAnApplication) {
    const std::string codes =
        " WHERE ownerID IN     (SELECT codeID FROM tblCode      WHERE classID IN         "
        "(SELECT classID FROM tblClass          WHERE appID = 5)) AND ownerTableID = 3";
    const std::string classes =
        " WHERE ownerID IN     (SELECT classID FROM tblClass      WHERE appID = 5) AND "
        "ownerTableID = 2";
    const std::string application = " WHERE ownerID = 5 AND ownerTableID = 1";
    DeleteApplication(db_, 5);
    EXPECT_EQ(
        TakeStatements(),
        Joined({kApplicationsKeywords,
                {"SELECT authorID FROM tbl_Author_Link" + codes},
                AuthorRemoval(kApplicationsCodes, "3"),
                {"SELECT authorID FROM tbl_Author_Link" + classes},
                AuthorRemoval(kApplicationsClasses, "2"),
                {"SELECT authorID FROM tbl_Author_Link" + application},
                AuthorRemoval("5", "1"),
                {"SELECT dateID FROM tbl_date_link" + codes},
                DateRemoval(kApplicationsCodes, "3"),
                {"SELECT dateID FROM tbl_date_link" + classes},
                DateRemoval(kApplicationsClasses, "2"),
                {"SELECT dateID FROM tbl_date_link" + application},
                DateRemoval("5", "1"),
                {"DELETE FROM tblCode_Link_Language WHERE codeID IN (" + kApplicationsCodes + ")",
                 "DELETE FROM tblFavorite WHERE codeID IN (" + kApplicationsCodes + ")",
                 "DELETE FROM tblCode WHERE codeID IN (" + kApplicationsCodes + ")",
                 "DELETE FROM tblClass WHERE classID IN (SELECT classID FROM tblClass WHERE "
                 "appID =5 AND classID > 1)",
                 "DELETE FROM tblApplication WHERE appID IN (5)"}}));
}

TEST_F(DeletionStatements, OfWhatHasNoAuthorsOrDatesLeaveTheirRemovalOut) {
    Run("DELETE FROM tbl_Author_Link WHERE ownerTableID = 3;"
        "DELETE FROM tbl_date_link WHERE ownerTableID = 3;");
    DeleteCode(db_, 7);
    const Statements statements = TakeStatements();
    ASSERT_EQ(statements.size(), 12U);
    EXPECT_EQ(statements[6],
              "SELECT authorID FROM tbl_Author_Link WHERE ownerID = 7 AND ownerTableID = 3");
    EXPECT_EQ(statements[7],
              "SELECT dateID FROM tbl_date_link WHERE ownerID = 7 AND ownerTableID = 3");
    EXPECT_EQ(statements[8], "UPDATE tblClass SET classDI = 'it''s ' WHERE classID = 6");
}

TEST_F(DeletionStatements, OfBookmarks) {
    // clang-format off
    ExpectStatements({
        {"a class's", [](Database& db) { DeleteBookmark(db, "a5f6"); },
         {"DELETE FROM tblFavorite WHERE appID = 5 AND classID = 6 AND codeID IS NULL"}},
        {"a procedure's", [](Database& db) { DeleteBookmark(db, "a5f6c7"); },
         {"DELETE FROM tblFavorite WHERE appID = 5 AND classID = 6 AND codeID = 7"}},
        {"nothing's", [](Database& db) { DeleteBookmark(db, "a5"); }, {}},
    });
    // clang-format on
}

/// The keyword passes repeat their DELETEs while the stored query counts anything.
class DeletionLoops : public DeletionStatements {
  protected:
    std::int64_t TimesDeleted(const std::string& table) {
        return std::ranges::count_if(TakeStatements(), [&](const std::string& sql) {
            return sql.starts_with("DELETE FROM " + table + " ");
        });
    }
};

TEST_F(DeletionLoops, GoOnUntilNothingIsLeft) {
    // Each deleted link leaves another, twice.
    Run("CREATE TRIGGER again AFTER DELETE ON tblKeyword_link_searchWord "
        "WHEN old.searchWordID < 3 BEGIN "
        "INSERT INTO tblKeyword_link_searchWord VALUES (old.keywordID, old.searchWordID + 1); "
        "END;");
    DeleteOwnerKeywords(db_, {OwnerKind::Class, 6});
    EXPECT_EQ(Select("SELECT * FROM tblKeyword_link_searchWord WHERE keywordID = 71"), Rows());
    EXPECT_EQ(TimesDeleted("tblKeyword_link_searchWord"), 4)
        << "three times for the procedures, once for the class itself";
}

TEST_F(DeletionLoops, EndWhenACountNeverComesDown) {
    for (const std::string query :
         {"qryCountCodeKeywordLinksByAppID", "qryCountCodeKeywordsByAppID",
          "qryCountClassKeywordLinksByAppID", "qryCountClassKeywordsByAppID"}) {
        Run("UPDATE tblNamedQuery SET body = 'SELECT count(*) FROM tblLanguage WHERE languageID > "
            "[appID]' WHERE name = '" +
            query + "';");
    }
    TakeStatements();
    DeleteApplication(db_, 5);
    EXPECT_EQ(TimesDeleted("tblKeyword"), 5) << "twice for each counted level, once for its own";
    EXPECT_EQ(Select("SELECT * FROM tblKeyword"), Rows());
}

}  // namespace
}  // namespace snippetarium::test
