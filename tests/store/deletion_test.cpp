#include "store/deletion.h"

#include <algorithm>
#include <filesystem>

#include "store/bookmarks.h"
#include "store/reads_classes.h"
#include "tests/killed_child.h"
#include "tests/store/deletion_fixture.h"

namespace snippetarium::test {
namespace {

using Deletion = DeletionFixture;

TEST_F(Deletion, KilledAnywhereLeavesNoProcedureTheIDOfADeletedKeyword) {
    CloseCatalogue(db_);
    const std::string before = ReadBytes(CataloguePath());
    for (int deadly = 1, isKilled = 1; isKilled == 1; ++deadly) {
        WriteBytes(CataloguePath(), before);
        const auto deleteUntilThen = [&] {
            OpenCatalogue(db_);
            int statements = 0;
            db_.SetStatementObserver([&](std::string_view) {
                if (++statements == deadly) DieHere();
            });
            DeleteApplication(db_, 5);
            db_.SetStatementObserver(nullptr);
            CloseCatalogue(db_);
        };
        try {
            const ChildProcess child(deleteUntilThen);
            isKilled = 0;
        } catch (const std::runtime_error&) {
            // as it should be
        }
        OpenCatalogue(db_);
        EXPECT_EQ(DanglingKeywords(), Rows()) << "killed before statement " << deadly;
        EXPECT_TRUE(IsEmpty("tblIDsToDelete")) << "killed before statement " << deadly;
        CloseCatalogue(db_);
    }
}

TEST_F(Deletion, ThatIsCutShortLeavesNoOldKeywordToAnID) {
    Run("INSERT INTO tblCode(codeID, codeName, classID, keywordID) VALUES (8, 'p', 1, 71);"
        "INSERT INTO tblClassesToEmpty VALUES (6);"
        "DELETE FROM tblKeyword WHERE keywordID = 71;");
    const std::string keywords = "SELECT codeID, keywordID FROM tblCode ORDER BY codeID";
    EXPECT_EQ(Select(keywords), (Rows{"7|71", "8|-"})) << "the one in class 6 is to go too";
    Run("INSERT INTO tblKeyword VALUES (71, 'a stranger''s', 1);");
    EXPECT_EQ(Select(keywords), (Rows{"7|-", "8|-"}));
}

TEST_F(Deletion, OfABookmarkRemovesThatOneAndSaysWhetherItWasThere) {
    for (const std::string_view key : {"a5f6", "a5f6c7", "a5f9"})
        AddBookmark(db_, key);
    EXPECT_TRUE(DeleteBookmark(db_, "a5f6"));
    EXPECT_FALSE(DeleteBookmark(db_, "a5f6"));
    EXPECT_FALSE(DeleteBookmark(db_, "a4f9")) << "another application";
    EXPECT_TRUE(DeleteBookmark(db_, "a5f6c7"));
    for (const std::string_view key : {"", "a5", "ka5f9", "a5f9c", "a5f9cx"})
        EXPECT_FALSE(DeleteBookmark(db_, key)) << key;
    EXPECT_EQ(Select("SELECT * FROM tblFavorite"), Rows{"5|9|-"});
}

TEST_F(Deletion, OfAProcedureTakesItsMarkerOutByTheProceduresLanguage) {
    // The class is a page, the form of its markers that of pages, whatever the procedure's is.
    const std::string marked = "<p>\r\n<!--**Procedure Draw**-->\r\n</p>";
    for (std::int32_t languageID = 0; languageID <= 12; ++languageID) {
        const std::string id = std::to_string(100 + languageID);
        Run("INSERT INTO tblClass(classID, className, appID, languageID, classDI) VALUES (" + id +
            ", 'Page', 5, 6, '" + marked + "');" +
            "INSERT INTO tblCode(codeID, codeName, classID) VALUES (" + id + ", 'Draw', " + id +
            ");" + "INSERT INTO tblCode_Link_Language VALUES (" + id + ", " +
            std::to_string(languageID) + ");");
        DeleteCode(db_, 100 + languageID);
        const bool isTakenOut =
            (languageID >= 4 && languageID <= 7) || languageID == 2 || languageID == 9;
        EXPECT_EQ(ClassDIByClassID(db_, 100 + languageID), isTakenOut ? "<p>\r\n</p>" : marked)
            << "language " << languageID;
    }
}

TEST_F(Deletion, OfTheApplicationInWhichSomebodyPutTheUndefinedClassLeavesItThatOne) {
    Run("UPDATE tblClass SET appID = 5 WHERE classID = 1;"
        "INSERT INTO tblCode(codeID, codeName, classID) VALUES (10, 'p', 1);");
    DeleteApplication(db_, 5);
    EXPECT_EQ(Select("SELECT classID, appID FROM tblClass"), Rows{"1|1"});
    EXPECT_TRUE(IsEmpty("tblCode"));
}

TEST_F(Deletion, OfWhatDoesNotExistDoesNothing) {
    for (const std::int32_t id : {0, -1, 99}) {
        TakeStatements();
        DeleteCode(db_, id);
        DeleteClass(db_, id);
        DeleteApplication(db_, id);
        EXPECT_TRUE(TakeStatements().empty());
        EXPECT_TRUE(DeleteClassQuietly(db_, id));
    }
    EXPECT_EQ(host_.progress.opened.size(), 0U);
    EXPECT_EQ(Select("SELECT codeID FROM tblCode"), Rows{"7"});
    EXPECT_EQ(Select("SELECT count(*) FROM tbl_Author_Link"), Rows{"3"});
}

TEST_F(Deletion, ShowsItsProgressToTheEnd) {
    const std::vector<std::function<void()>> deletions = {[&] { DeleteCode(db_, 7); },
                                                          [&] { DeleteClass(db_, 6); },
                                                          [&] { DeleteApplication(db_, 5); }};
    for (std::size_t i = 0; i < deletions.size(); ++i) {
        FakeProgress& progress = host_.progress;
        progress.totalValues.clear();
        host_.events.yields = 0;
        deletions[i]();
        ASSERT_EQ(progress.opened, std::vector<std::string>(i + 1, "Deleting"));
        EXPECT_FALSE(progress.IsOpen());
        EXPECT_TRUE(std::ranges::is_sorted(progress.totalValues));
        EXPECT_DOUBLE_EQ(progress.totalValues.back(), 100.0);
        EXPECT_GE(progress.totalValues.size(), 8U);
        EXPECT_GE(host_.events.yields, 8);
    }
    EXPECT_FALSE(host_.progress.CanCancel());
}

TEST_F(Deletion, OfAClassThatIsReplacedShowsNothing) {
    EXPECT_TRUE(DeleteClassQuietly(db_, 6));
    EXPECT_TRUE(IsEmpty("tblCode"));
    EXPECT_EQ(host_.progress.opened.size(), 0U);
    EXPECT_EQ(host_.events.yields, 0);
}

TEST_F(Deletion, LeavesTheProgressOfAnotherJobAlone) {
    host_.progress.Open("Importing");
    DeleteClass(db_, 6);
    EXPECT_EQ(host_.progress.opened, std::vector<std::string>{"Importing"});
    EXPECT_TRUE(host_.progress.totalValues.empty());
    EXPECT_TRUE(host_.progress.IsOpen());
    EXPECT_TRUE(IsEmpty("tblCode"));
}

TEST_F(Deletion, IsSafeFromAPowerCutWhenItReturns) {
    const auto logSize = [&] { return std::filesystem::file_size(CataloguePath() + "-wal"); };
    ASSERT_GT(logSize(), 0U);
    DeleteApplication(db_, 5);
    EXPECT_EQ(logSize(), 0U) << "everything is in the file itself";
    Run("INSERT INTO tblLanguage VALUES (99, 'x', 1);");
    EXPECT_GT(logSize(), 0U);
}

TEST_F(Deletion, OnAClosedCatalogueIsReportedOnce) {
    CloseCatalogue(db_);
    const std::vector<std::function<void()>> deletions = {[&] { DeleteCode(db_, 7); },
                                                          [&] { DeleteClass(db_, 6); },
                                                          [&] { DeleteApplication(db_, 5); }};
    for (const std::function<void()>& run : deletions) {
        run();
        TakeBox();
        EXPECT_TRUE(host_.messages.shown.empty());
        EXPECT_FALSE(host_.progress.IsOpen());
    }
}

// Stages that fail.

struct FailedStage {
    /// Nothing can be deleted from this table.
    std::string table;
    std::size_t failures;
    /// Where something of the application is left.
    Rows left;
};

void PrintTo(const FailedStage& test, std::ostream* out) {
    *out << test.table;
}

class DeletionThatFails : public DeletionFixture,
                          public ::testing::WithParamInterface<FailedStage> {
  protected:
    DeletionThatFails() { AddBookmark(db_, "a5f6c7"); }

    Rows TablesWithRows() {
        Rows tables;
        for (const std::string table :
             {"tblKeyword_link_searchWord", "tblKeyword", "tblSearchWord", "tbl_Author_Link",
              "tblAuthor", "tbl_date_link", "tblDate", "tblCode_Link_Language", "tblFavorite",
              "tblCode", "tblClass WHERE classID > 1", "tblApplication WHERE appID > 1",
              "tblIDsToDelete", "tblClassesToEmpty"}) {
            if (!IsEmpty(table)) tables.push_back(table.substr(0, table.find(' ')));
        }
        return tables;
    }
};

TEST_P(DeletionThatFails, GoesOnWithTheNextStageAndIsFinishedByTheNextDeletion) {
    RefuseDeletesFrom(GetParam().table);
    DeleteApplication(db_, 5);
    ASSERT_EQ(host_.messages.shown.size(), GetParam().failures);
    for (std::size_t i = 0; i < GetParam().failures; ++i)
        EXPECT_NE(TakeBox().text.find("(refused)"), std::string::npos);
    EXPECT_EQ(TablesWithRows(), GetParam().left);
    EXPECT_EQ(DanglingKeywords(), Rows());
    EXPECT_FALSE(host_.progress.IsOpen());

    AllowDeletes();
    if (!Select("SELECT * FROM tblApplication WHERE appID = 5").empty()) {
        DeleteApplication(db_, 5);
        EXPECT_EQ(TablesWithRows(), Rows());
    }
}

TEST_P(DeletionThatFails, OfAReplacedClassIsNoticed) {
    // The application, which is not deleted, still uses what the three share.
    RefuseDeletesFrom(GetParam().table);
    const bool hasFailed = !DeleteClassQuietly(db_, 6);
    EXPECT_EQ(hasFailed, !host_.messages.shown.empty());
    EXPECT_TRUE(IsEmpty("tblIDsToDelete"));
    EXPECT_EQ(DanglingKeywords(), Rows());
    host_.messages.shown.clear();
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Each, DeletionThatFails, ::testing::Values(
    FailedStage{"tblKeyword_link_searchWord", 1, {"tblKeyword_link_searchWord", "tblKeyword", "tblSearchWord"}},
    FailedStage{"tblKeyword", 1, {"tblKeyword_link_searchWord", "tblKeyword", "tblSearchWord"}},
    FailedStage{"tblSearchWord", 1, {"tblSearchWord"}},
    FailedStage{"tbl_Author_Link", 3, {"tbl_Author_Link", "tblAuthor"}},
    FailedStage{"tblAuthor", 1, {"tblAuthor"}},
    FailedStage{"tbl_date_link", 3, {"tbl_date_link", "tblDate"}},
    FailedStage{"tblDate", 1, {"tblDate"}},
    FailedStage{"tblCode_Link_Language", 1, {"tblCode_Link_Language", "tblFavorite", "tblCode", "tblClass", "tblApplication"}},
    FailedStage{"tblFavorite", 1, {"tblFavorite", "tblCode", "tblClass", "tblApplication"}},
    FailedStage{"tblCode", 1, {"tblCode", "tblClass", "tblApplication"}},
    FailedStage{"tblClass", 1, {"tblClass", "tblApplication"}},
    FailedStage{"tblApplication", 1, {"tblApplication"}},
    FailedStage{"tblClassesToEmpty", 1, {"tblClassesToEmpty"}}
));
// clang-format on

TEST_F(Deletion, OfAProcedureWhoseMarkerCannotBeTakenOutGoesOn) {
    Run("CREATE TRIGGER refuse BEFORE UPDATE OF classDI ON tblClass "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END;");
    DeleteCode(db_, 7);
    ExpectFailedStatement();
    EXPECT_TRUE(IsEmpty("tblCode"));
}

TEST_F(Deletion, DoesNotTakeWhatAFailedStageNotedForIDsOfAnotherTable) {
    // The search word's ID is that of an author and a date that nobody is linked to.
    Run("INSERT INTO tblSearchWord VALUES (30, 'b');"
        "INSERT INTO tblKeyword_link_searchWord VALUES (71, 30);"
        "INSERT INTO tblAuthor VALUES (30, 'Bob', '', '');"
        "INSERT INTO tblDate VALUES (30, '2002-01-01');");
    RefuseDeletesFrom("tblKeyword");
    DeleteApplication(db_, 5);
    ExpectFailedStatement();
    EXPECT_EQ(Select("SELECT authorID FROM tblAuthor"), Rows{"30"});
    EXPECT_EQ(Select("SELECT dateID FROM tblDate"), Rows{"30"});
}

}  // namespace
}  // namespace snippetarium::test
