#include "store/database.h"

#include <vector>

#include "store/compact.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_keywords.h"
#include "support/message_boxes.h"
#include "tests/child_process.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {
namespace {

using OpeningTest = CatalogueFixture;
using DatabaseTest = OpenCatalogueFixture;

bool Shows(const ShownBox& box, std::string_view text) {
    return box.text.find(text) != std::string::npos;
}

TEST_F(OpeningTest, WithoutTheProviderIsFatal) {
    Database db(host_.host, ProviderRegistry(), folder_.Path());
    bool hasEnded = false;
    db.SetEndProgram([&] { hasEnded = true; });
    OpenCatalogue(db);
    EXPECT_EQ(
        TakeBox(),
        (ShownBox{BoxKind::Error, "Snippetarium",
                  "Connection to Snippetarium database failed.\r\n\r\nMS Access database provider "
                  "cannot be found.  It may not have been installed or may have been removed.  "
                  "Please back up database (QRT_SN.mde in program folder) and re-install MS Access "
                  "or Snippetarium.\r\n\r\nSnippetarium will now shut down."}));
    EXPECT_TRUE(db.IsShuttingDown());
    EXPECT_FALSE(db.GetConnection().IsOpen());
    EXPECT_FALSE(hasEnded) << "opening leaves the ending to its caller";
}

TEST_F(OpeningTest, OfABadFileIsReportedWithItsNumberAndTheProgramGoesOn) {
    WriteBytes(CataloguePath(), "no catalogue");
    OpenCatalogue(db_);
    const ShownBox box = TakeBox();
    EXPECT_EQ(box.title, kErrorTitle);
    EXPECT_TRUE(Shows(box, "QRT Error Code: 11151\r\n\r\nError Number: 3343\r\n")) << box.text;
    EXPECT_FALSE(db_.IsShuttingDown());
    EXPECT_FALSE(db_.GetConnection().IsOpen());
    EXPECT_EQ(ScalarLong(db_, "SELECT 1"), 0);
    EXPECT_TRUE(Shows(TakeBox(), "Error Number: 3704"));
    EXPECT_EQ(ReadBytes(CataloguePath()), "no catalogue");
}

TEST_F(OpeningTest, BesideAnotherProgramReadsOnlyAndSaysSo) {
    ChildProcess other([&] { OpenCatalogue(db_); });
    OpenCatalogue(db_);
    EXPECT_TRUE(Shows(TakeBox(), "for reading only"));
    EXPECT_TRUE(db_.IsReadOnly());
    EXPECT_EQ(AppNameByID(db_, 1), "Application Undefined");
    ExecuteSQL(db_, "DELETE FROM tblCommonWord");
    EXPECT_TRUE(Shows(TakeBox(), "Error Number: 3027"));
    CloseCatalogue(db_);

    other.Kill();
    OpenCatalogue(db_);
    EXPECT_FALSE(db_.IsReadOnly()) << "a killed program holds nothing";
}

TEST_F(DatabaseTest, ReadsScalars) {
    const struct {
        std::string_view sql;
        std::int32_t expected;
    } cases[] = {
        {"SELECT max(keywordID) FROM tblKeyword", 0},
        {"SELECT appID FROM tblApplication WHERE appID = 7", 0},
        {"SELECT keywordID FROM tblApplication WHERE appID = 1", 0},
        {"SELECT appID FROM tblApplication WHERE appName = 'application undefined'", 1},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ScalarLong(db_, test.sql), test.expected) << test.sql;
        EXPECT_FALSE(db_.LastRecordset().IsOpen());
    }
    EXPECT_EQ(MaxIDValue(db_, "languageID", "tblLanguage"), 11);
    EXPECT_EQ(db_.CurrentStatement(), "SELECT max(languageID) FROM tblLanguage");
    EXPECT_EQ(MaxIDValue(db_, "authorID", "tblAuthor"), 0);
}

TEST_F(DatabaseTest, KnowsThatARowOfNullsExists) {
    EXPECT_TRUE(RecordExists(db_, "SELECT keywordID FROM tblApplication WHERE appID = 1"));
    EXPECT_FALSE(RecordExists(db_, "SELECT codeID FROM tblFavorite WHERE codeID = 1"));
}

TEST_F(DatabaseTest, ReportsAFailureOnceWithTheInnermostNumberAndReturnsTheDefault) {
    EXPECT_EQ(MaxIDValue(db_, "noSuch", "tblCode"), 0);
    const ShownBox box = TakeBox();
    EXPECT_TRUE(Shows(box, "QRT Error Code: " + std::to_string(ErrorCode(Procedure::ScalarLong))));
    EXPECT_EQ(db_.CurrentStatement(), "SELECT max(noSuch) FROM tblCode") << "kept for the report";
    EXPECT_FALSE(RecordExists(db_, "SELECT"));
    TakeBox();
}

TEST_F(DatabaseTest, NamedReadsNeverSeeEachOthersParameters) {
    EXPECT_EQ(ClassNameByID(db_, 1), "Class/Module Undefined");
    EXPECT_EQ(db_.SharedCommand().ParameterCount(), 0U);
    EXPECT_EQ(AppIDUsingAppName(db_, "Application Undefined"), 1);
    EXPECT_TRUE(IsAppNameTaken(db_, "APPLICATION UNDEFINED"));

    db_.GetConnection().RunScript("DELETE FROM tblNamedQuery WHERE name = 'qryAppPathByID';");
    EXPECT_EQ(AppPathByID(db_, 1), "");
    EXPECT_TRUE(Shows(TakeBox(), "Error Number: 3078"));
    EXPECT_EQ(db_.SharedCommand().ParameterCount(), 0U) << "cleared after a failure too";
}

TEST_F(DatabaseTest, IsCompactedAndOpenedAgain) {
    WriteBytes(folder_.File(kCompactionFileName), "left by a program that was killed");
    RunCompaction(db_);
    EXPECT_EQ(TakeBox(),
              (ShownBox{BoxKind::Information, "Snippetarium Information",
                        "The database has been successfully compacted (and repaired if there "
                        "were any errors)."}));
    EXPECT_EQ(host_.events.pointers, (std::vector{Pointer::Hourglass, Pointer::Default}));
    EXPECT_FALSE(host_.progress.IsOpen());
    EXPECT_FALSE(std::filesystem::exists(folder_.File(kCompactionFileName)));
    EXPECT_EQ(AppNameByID(db_, 1), "Application Undefined");
    EXPECT_EQ(ExecuteSQL(db_, "DELETE FROM tblCommonWord WHERE commonWord = 'the'"), 1);
}

TEST_F(DatabaseTest, IsNotCompactedWhileAnotherProgramHasItOpen) {
    const ChildProcess other([&] {
        Database* reader = new Database(host_.host, CatalogueProviders(), folder_.Path());
        reader->SetMode(AccessMode::Read);
        OpenCatalogue(*reader);
    });
    RunCompaction(db_);
    EXPECT_EQ(TakeBox(),
              (ShownBox{BoxKind::Information, "Snippetarium Information",
                        "Snippetarium has detected that the database is currently opened by "
                        "another application.  Please close the database before compacting "
                        "the database."}));
    EXPECT_EQ(host_.events.pointers.back(), Pointer::Default);
    EXPECT_TRUE(db_.GetConnection().IsOpen());
    EXPECT_FALSE(db_.IsReadOnly()) << "the right to write is kept while the catalogue is closed";
}

TEST_F(DatabaseTest, EndsTheProgramWhenTheProviderHasGoneDuringACompaction) {
    CloseCatalogue(db_);
    Database db(host_.host, ProviderRegistry(), folder_.Path());
    int ended = 0;
    db.SetEndProgram([&] { ++ended; });
    RunCompaction(db);
    TakeBox();
    EXPECT_EQ(TakeBox().title, kFatalTitle);
    EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace snippetarium::test
