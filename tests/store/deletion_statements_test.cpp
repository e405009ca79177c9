#include <algorithm>
#include <fstream>
#include <string>

#include "store/bookmarks.h"
#include "store/deletion.h"
#include "store/owner_keywords.h"
#include "store/trash.h"
#include "tests/store/deletion_fixture.h"

// The statements of the deletions, letter for letter and in their order.

namespace snippetarium::test {
namespace {

/// Those of deletion_statements.txt below the heading "[owner]".
Statements StatementsOf(const std::string& owner) {
    std::ifstream file(SNIPPETARIUM_DELETION_STATEMENTS);
    Statements statements;
    std::string line;
    while (std::getline(file, line) && line != "[" + owner + "]") {
    }
    while (std::getline(file, line) && !line.empty())
        statements.push_back(line);
    EXPECT_FALSE(statements.empty()) << owner;
    return statements;
}

using DeletionStatements = DeletionFixture;

TEST_F(DeletionStatements, AreThoseOfTheTable) {
    DeleteCode(db_, 7);
    EXPECT_EQ(TakeStatements(), StatementsOf("procedure 7"));
    RestoreFromTrash(db_, 1);
    TakeStatements();
    DeleteClass(db_, 6);
    EXPECT_EQ(TakeStatements(), StatementsOf("class 6"));
    RestoreFromTrash(db_, 2);
    TakeStatements();
    EXPECT_TRUE(DeleteClassQuietly(db_, 6));
    EXPECT_EQ(TakeStatements(), StatementsOf("class 6")) << "of one that is replaced";
}

TEST_F(DeletionStatements, OfAnApplicationAreThoseOfTheTable) {
    DeleteApplication(db_, 5);
    EXPECT_EQ(TakeStatements(), StatementsOf("application 5"));
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
