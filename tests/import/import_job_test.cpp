#include "import/import_job.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "store/backup.h"
#include "store/cut_short_imports.h"
#include "tests/import/import_fixture.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view kModule =
    "Attribute VB_Name = \"modDraw\"\r\n"
    "Option Explicit\r\n"
    "\r\n"
    "' Author: Ann Lee\r\n"
    "Sub Draw()\r\n"
    "End Sub\r\n"
    "\r\n"
    "Function Width() As Long\r\n"
    "End Function\r\n";

/// Waits for nothing and finds nothing.
std::optional<CutFile> FindNothing(const SourceText&, LineProgress&, ImportState&) {
    return std::nullopt;
}

class ImportJobTest : public ImportFixture {};

TEST_F(ImportJobTest, ImportsAFileWithItsProceduresMarkersAndForm) {
    AddFile("sub\\Draw.bas", kModule);
    const ImportOutcome outcome = Import({"sub\\Draw.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::Imported);
    EXPECT_EQ(outcome.texts.errors, "");
    EXPECT_EQ(outcome.texts.importedFiles, "  sub\\Draw.bas\r\n");
    EXPECT_EQ(outcome.failedEntries, Names{});
    EXPECT_EQ(Select("SELECT classID, className, appID, languageID, classPathInApp FROM tblClass "
                     "WHERE classID > 1"),
              (Rows{"2|modDraw|1|1|sub\\Draw.bas"}));
    EXPECT_EQ(Select("SELECT codeName, code, codeComment FROM tblCode ORDER BY codeID"),
              (Rows{"Draw()|Sub Draw()\r\nEnd Sub\r\n|' Author: Ann Lee",
                    "Width()|Function Width() As Long\r\nEnd Function\r\n|-"}));
    EXPECT_EQ(Select("SELECT codeID, languageID FROM tblCode_Link_Language ORDER BY codeID"),
              (Rows{"1|1", "2|1"}));
    EXPECT_EQ(Select("SELECT l.ownerID, l.ownerTableID, a.authorLName FROM tbl_Author_Link l INNER "
                     "JOIN tblAuthor a ON l.authorID = a.authorID"),
              (Rows{"1|3|Lee"}));
    EXPECT_EQ(Select("SELECT classID, form FROM tblSourceForm"),
              (Rows{"2|" + SourceForm{}.Serialise()}));
    const std::string text = ClassText(2);
    EXPECT_LT(text.find("Option Explicit"), text.find("'***Procedure Draw()***"));
    EXPECT_LT(text.find("'***Procedure Draw()***"), text.find("'***Procedure Width()***"));
    EXPECT_EQ(text.find("End Sub"), std::string::npos);
}

TEST_F(ImportJobTest, MovesTheTotalBarBy99InAll) {
    for (const char* const name : {"a.bas", "b.bas", "c.bas"})
        AddFile(name, kModule);
    Import({"a.bas", "b.bas", "c.bas"});
    EXPECT_EQ(host_.progress.totalValues, (std::vector<double>{33, 66, 99}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::ContentLine),
              (Names{"Importing a.bas", "Importing b.bas", "Importing c.bas"}));
    EXPECT_EQ(host_.progress.opened, (Names{"Snippetarium is importing code, please wait..."}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::UnitLabel), (Names{"File Progress:"}));
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::TotalLabel), (Names{"Total Progress:"}));
    EXPECT_EQ(host_.progress.unitValues.back(), 0);
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST_F(ImportJobTest, MovesTheUnitBarByTheLinesOfTheFile) {
    AddFile("a.bas", "' one\r\n' two\r\n' three");
    Import({"a.bas"});
    EXPECT_EQ(host_.progress.unitValues, (std::vector<double>{33, 66, 99, 0}));
}

TEST_F(ImportJobTest, ReportsFilesOfUnknownKinds) {
    const ImportOutcome outcome = Import({"a.txt", "a.rc"});
    EXPECT_EQ(outcome.ending, ImportEnding::WithProblems);
    EXPECT_EQ(outcome.texts.errors,
              "  a.txt was not imported as its extension is not supported.\r\n"
              "  a.rc was not imported as its extension is not supported.\r\n");
    EXPECT_EQ(outcome.texts.importedFiles, "");
    EXPECT_EQ(outcome.failedEntries, (Names{"a.txt", "a.rc"}));
    EXPECT_EQ(host_.progress.totalValues.back(), 99);
}

TEST_F(ImportJobTest, CountsAnEmptyFileAsImportedAndFindsNoCodeInIt) {
    AddFile("a.bas", "");
    AddFile("marked.bas", "\xEF\xBB\xBF");
    const ImportOutcome outcome = Import({"a.bas", "marked.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::NothingFound);
    EXPECT_EQ(outcome.texts.importedFiles, "  a.bas\r\n  marked.bas\r\n");
    EXPECT_EQ(Select("SELECT count(classID) FROM tblClass"), (Rows{"1"}));
}

TEST_F(ImportJobTest, GoesOnAfterAFileThatCannotBeRead) {
    AddFile("a.bas", kModule);
    AddFile("b.bas", kModule);
    files_.unreadableFiles.insert("/home/ann/Paint/a.bas");
    const ImportOutcome outcome = Import({"a.bas", "gone.bas", "b.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::WithProblems);
    EXPECT_TRUE(
        outcome.texts.errors.starts_with("  a.bas was not imported: The file "
                                         "'/home/ann/Paint/a.bas' cannot be read:"))
        << outcome.texts.errors;
    EXPECT_NE(outcome.texts.errors.find("  gone.bas was not imported: "), std::string::npos);
    EXPECT_EQ(outcome.texts.importedFiles, "  b.bas\r\n");
    EXPECT_EQ(outcome.failedEntries, (Names{"a.bas", "gone.bas"}));
}

TEST_F(ImportJobTest, ReportsBytesThatAreNoTextAndImportsTheFile) {
    AddFile("nul.bas", std::string("' a\n' b\0\n", 9));
    AddFile("odd.bas", "\xEF\xBB\xBF' \x81\n");
    const ImportOutcome outcome = Import({"nul.bas", "odd.bas"});
    EXPECT_NE(outcome.texts.errors.find("  nul.bas holds NUL characters, which no text has, in "
                                        "line 2."),
              std::string::npos)
        << outcome.texts.errors;
    EXPECT_NE(outcome.texts.errors.find("  odd.bas holds bytes that are no UTF-8 text in line 1."),
              std::string::npos)
        << outcome.texts.errors;
    EXPECT_EQ(outcome.failedEntries, Names{});
    EXPECT_EQ(Select("SELECT count(classID) FROM tblClass"), (Rows{"3"}));
}

TEST_F(ImportJobTest, ReadsFilesInTheEncodingAskedFor) {
    AddFile("a.bas", "' \xB6\xA6\n");
    request_.encoding = "GBK";
    Import({"a.bas"});
    EXPECT_EQ(Select("SELECT form FROM tblSourceForm"),
              (Rows{"encoding=GBK;mark=no;ends=lf;last=ended"}));
}

TEST_F(ImportJobTest, StopsBehindTheFileWhereItIsCancelled) {
    for (const char* const name : {"a.bas", "b.bas"})
        AddFile(name, "' x");
    host_.PressCancelAt(2);  // one for the line, one for the file
    host_.messages.Expect(StandardAnswer::Yes);
    const ImportOutcome outcome = Import({"a.bas", "b.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::Cancelled);
    EXPECT_EQ(outcome.texts.importedFiles, "  a.bas\r\n");
    EXPECT_EQ(outcome.failedEntries, Names{"b.bas"});
    EXPECT_EQ(TakeBox().title, "Import Code File");
    EXPECT_EQ(Select("SELECT count(classID) FROM tblClass"), (Rows{"2"}));

    host_.messages.shown.clear();
    EXPECT_EQ(Import({"b.bas"}).ending, ImportEnding::Imported) << "the flag was not cleared";
}

TEST_F(ImportJobTest, GoesOnWhenCancelIsTakenBack) {
    AddFile("a.bas", kModule);
    host_.PressCancelAt(3);
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_EQ(Import({"a.bas"}).ending, ImportEnding::Imported);
    EXPECT_FALSE(state_.importCancelled);
    TakeBox();
}

TEST_F(ImportJobTest, LeavesAConsistentCatalogueWhereverItIsCancelled) {
    AddFile("a.bas", kModule);
    AddFile("b.bas", kModule);
    Import({"a.bas"});
    BackUpOncePerDay(db_);
    host_.events.yields = 0;
    Import({"b.bas"});
    const int yields = host_.events.yields;
    for (int yield = 1; yield <= yields; ++yield) {
        SCOPED_TRACE(yield);
        const std::string name = "a" + std::to_string(yield) + ".bas";
        AddFile(name, kModule);
        host_.events.yields = 0;
        host_.PressCancelAt(yield);
        host_.messages.Expect(StandardAnswer::Yes);
        const ImportOutcome outcome = Import({name});
        TakeBox();
        EXPECT_EQ(outcome.ending, ImportEnding::Cancelled);
        const std::string classID =
            "(SELECT max(classID) FROM tblClass WHERE classPathInApp = '" + name + "')";
        const Rows codes = Select("SELECT codeName FROM tblCode WHERE classID = " + classID);
        const Rows texts = Select("SELECT classDI FROM tblClass WHERE classID = " + classID);
        // Every procedure that is there has its marker; those that are not have none.
        const std::string text = texts.empty() ? "" : texts.front();
        for (const std::string procedure : {"Draw()", "Width()"}) {
            EXPECT_EQ(text.find("'***Procedure " + procedure + "***") != std::string::npos,
                      std::ranges::count(codes, procedure) == 1)
                << text;
        }
        const bool isWhole = codes.size() == 2;
        EXPECT_EQ(outcome.failedEntries, isWhole ? Names{} : Names{name});
        EXPECT_EQ(outcome.texts.errors.empty(), isWhole);
        // What looks whole and is not is told from now on, until it is overwritten.
        const auto cutShort = CutShortClasses(db_);
        EXPECT_EQ(std::ranges::count(cutShort, name, &CutShortClass::pathInApp),
                  isWhole || texts.empty() ? 0 : 1);
    }
    TellOfCutShortImports(db_);
    EXPECT_NE(TakeBox().text.find("An import ended in the midst of a class"), std::string::npos);
}

TEST_F(ImportJobTest, TellsTheTimeWithoutLeadingZeros) {
    AddFile("a.bas", "x");
    SetAnalyser(CodeFileKind::VisualBasic, [this](const auto& source, auto& lines, auto& state) {
        host_.clock.Advance(std::chrono::milliseconds(125'900));
        return FindNothing(source, lines, state);
    });
    EXPECT_EQ(Import({"a.bas"}).time, "Time: 0 :2 :5");
    SetAnalyser(CodeFileKind::VisualBasic, [this](const auto& source, auto& lines, auto& state) {
        host_.clock.Advance(std::chrono::seconds(2 * 3600 + 59 * 60 + 10));
        return FindNothing(source, lines, state);
    });
    EXPECT_EQ(Import({"a.bas"}).time, "Time: 2 :59 :10");
}

TEST_F(ImportJobTest, ClosesWithOneMessage) {
    struct Case {
        ImportEnding ending;
        std::string_view text;
    };
    for (const Case& test :
         {Case{ImportEnding::Cancelled, "Code import was not completed."},
          Case{ImportEnding::Failed, "Code import was not completed."},
          Case{ImportEnding::Imported, "The code has been successfully imported."},
          Case{ImportEnding::NothingFound, "No code was found in the file(s)."}}) {
        ShowImportEnding(host_.messages, test.ending);
        EXPECT_EQ(TakeBox(),
                  (ShownBox{BoxKind::Information, "Import Code", std::string(test.text)}));
    }
    ShowImportEnding(host_.messages, ImportEnding::WithProblems);
    EXPECT_TRUE(host_.messages.shown.empty());
}

TEST_F(ImportJobTest, ReportsWhatCouldNotBeListed) {
    AddFile("a.bas", kModule);
    request_.problems = {"'x' cannot be listed."};
    const ImportOutcome outcome = Import({"a.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::WithProblems);
    EXPECT_EQ(ImportReportText(outcome.texts),
              "The following error(s) occurred during code import:\r\n\r\n"
              "  'x' cannot be listed.\r\n\r\n"
              "The following files were successfully imported:\r\n\r\n"
              "  a.bas\r\n");
    EXPECT_EQ(state_.importErrorLog + state_.importedFilesLog, "");
}

TEST_F(ImportJobTest, GoesOnAfterAFailureOfOneFileAndNamesItInTheReport) {
    AddFile("a.bas", kModule);
    AddFile("b.bas", "' b");
    RefuseInsertsInto("tblCode");
    const ImportOutcome outcome = Import({"a.bas", "b.bas"});
    ExpectFailedStatement();
    EXPECT_EQ(outcome.ending, ImportEnding::WithProblems);
    EXPECT_TRUE(outcome.texts.errors.starts_with("  a.bas was not imported to its end: "));
    EXPECT_EQ(outcome.texts.importedFiles, "  b.bas\r\n");
    EXPECT_EQ(outcome.failedEntries, (Names{"a.bas"}));
}

TEST_F(ImportJobTest, EndsWhereTheCatalogueItselfFails) {
    AddFile("a.bas", kModule);
    AddFile("b.bas", kModule);
    SetAnalyser(CodeFileKind::VisualBasic, [this](const SourceText&, LineProgress&, ImportState&) {
        db_.GetConnection().Close();
        return CutFile{.className = "modDraw"};
    });
    const ImportOutcome outcome = Import({"a.bas", "b.bas"});
    EXPECT_EQ(outcome.ending, ImportEnding::Failed);
    EXPECT_EQ(outcome.failedEntries, (Names{"a.bas", "b.bas"}));
    EXPECT_FALSE(host_.messages.shown.empty());
    host_.messages.shown.clear();
}

TEST_F(ImportJobTest, BacksUpACatalogueThatHoldsSomethingOnceADay) {
    AddFile("a.bas", kModule);
    AddFile("b.bas", kModule);
    Import({"a.bas"});
    EXPECT_TRUE(ListBackups(folder_.Path()).empty());
    Import({"b.bas"});
    ASSERT_EQ(ListBackups(folder_.Path()).size(), 1U);
    EXPECT_EQ(ListBackups(folder_.Path())[0].name.reason, BackupReason::Daily);
    Import({"a.bas"});
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
}

}  // namespace
}  // namespace snippetarium::test
