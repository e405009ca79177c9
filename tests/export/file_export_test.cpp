#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "export/export_job.h"
#include "tests/export/export_fixture.h"

namespace snippetarium::test {
namespace {

/// A class that was imported from sub\Grid.c of an application, with one procedure.
class FileExportTest : public ExportFixture {
  protected:
    FileExportTest() {
        std::filesystem::create_directories(Path("source/sub"));
        const std::int32_t appID = AddApplication(db_, {.name = "Paint", .path = Path("source")});
        classID_ = MakeClass({.name = "Grid",
                              .appID = appID,
                              .pathInApp = "sub\\Grid.c",
                              .declarations = "int x; /***Procedure f***/",
                              .languageID = kC});
        codeID_ = AddCode(db_, {.name = "f", .code = "f() {}", .classID = classID_});
    }

    FileExport Request(std::int32_t id, std::string_view fileName) const {
        return {.id = id, .destinationFolder = Path("out"), .fileName = std::string(fileName)};
    }
    ExportResult ExportTheClass(std::string_view fileName,
                                ExistingFile existing = ExistingFile::Ask) {
        FileExport request = Request(classID_, fileName);
        request.existing = existing;
        return ExportClass(db_, files_, request);
    }

    std::int32_t classID_ = 0;
    std::int32_t codeID_ = 0;
};

TEST_F(FileExportTest, WritesOneFileAndSaysSo) {
    const ExportResult ofClass = ExportTheClass("new.c");
    EXPECT_EQ(ofClass.outcome, ExportOutcome::Finished);
    EXPECT_EQ(ofClass.exported, std::vector<std::string>{Path("out/new.c")});
    EXPECT_TRUE(ofClass.problems.empty());
    EXPECT_EQ(Read("out/new.c"), "int x; f() {}\r\n");
    ExpectInformation("The class has been successfully exported.");

    EXPECT_EQ(ExportProcedure(db_, files_, Request(codeID_, "f.c")).outcome,
              ExportOutcome::Finished);
    EXPECT_EQ(Read("out/f.c"), "f() {}\r\n");
    ExpectInformation("The code has been successfully exported.");
}

TEST_F(FileExportTest, AsksForAnExtension) {
    for (const std::string_view name : {"", "Grid", "Grid.", "sub.d\\Grid"}) {
        EXPECT_EQ(ExportTheClass(name).outcome, ExportOutcome::Refused) << name;
        ExpectInformation("Please enter a file name with extention.");
        EXPECT_EQ(ExportProcedure(db_, files_, Request(codeID_, name)).outcome,
                  ExportOutcome::Refused);
        ExpectInformation("Please enter a file name with extention.");
    }
    EXPECT_FALSE(files_.FolderExists(Path("out")));
}

TEST_F(FileExportTest, AsksWhatToDoWithAFileThatExists) {
    const struct {
        ExistingFile existing;
        std::optional<StandardAnswer> answer;
        std::string_view content;
        ExportOutcome outcome;
        bool isWritten;
    } cases[] = {
        {ExistingFile::Ask, StandardAnswer::Yes, "old\nint x; f() {}\n", ExportOutcome::Finished,
         true},
        {ExistingFile::Ask, StandardAnswer::No, "int x; f() {}\r\n", ExportOutcome::Finished, true},
        {ExistingFile::Ask, StandardAnswer::Cancel, "old\n", ExportOutcome::Cancelled, false},
        {ExistingFile::Append, {}, "old\nint x; f() {}\n", ExportOutcome::Finished, true},
        {ExistingFile::Overwrite, {}, "int x; f() {}\r\n", ExportOutcome::Finished, true},
        {ExistingFile::Skip, {}, "old\n", ExportOutcome::Finished, false},
    };
    files_.MakeFolders(Path("out"));
    for (const auto& test : cases) {
        files_.WriteFile(Path("out/Grid.c"), "old\n");
        if (test.answer) host_.messages.Expect(*test.answer);
        const ExportResult result = ExportTheClass("Grid.c", test.existing);
        EXPECT_EQ(result.outcome, test.outcome);
        EXPECT_EQ(Read("out/Grid.c"), test.content);
        EXPECT_EQ(result.exported.empty(), !test.isWritten);
        if (test.answer) {
            EXPECT_EQ(TakeBox(),
                      (ShownBox{BoxKind::YesNoCancel, "Snippetarium Question",
                                "The file 'Grid.c' already exists.\r\n"
                                "Would you like to append the content to the end of the file?"
                                "Click 'Yes' to append, click 'No' to overwrite."}));
        }
        if (test.isWritten) ExpectInformation("The class has been successfully exported.");
        if (test.existing == ExistingFile::Skip) {
            EXPECT_EQ(ExportReport(result),
                      "  The file 'Grid.c' was not exported, because it already exists.\r\n");
        }
    }
}

TEST_F(FileExportTest, AsksBeforeItOverwritesTheSource) {
    const ShownBox question{BoxKind::YesNo, "Snippetarium Question",
                            "Your export destination is the same as original source location.\r\n"
                            "Are you sure you want to overwrite your existing source file?"};
    std::filesystem::create_symlink("source", Path("link"));
    files_.WriteFile(Path("source/sub/Grid.c"), "source");
    for (const std::string_view folder : {"source\\sub", "source/sub/", "link/sub"}) {
        const FileExport request{.id = classID_,
                                 .destinationFolder = Path(folder),
                                 .fileName = "Grid.c",
                                 .existing = ExistingFile::Overwrite};
        host_.messages.Expect(StandardAnswer::No);
        EXPECT_EQ(ExportClass(db_, files_, request).outcome, ExportOutcome::Cancelled);
        EXPECT_EQ(TakeBox(), question) << folder;
        EXPECT_EQ(Read("source/sub/Grid.c"), "source");
    }
    // A procedure would replace the whole file of its class.
    const FileExport procedure{
        .id = codeID_, .destinationFolder = Path("source/sub"), .fileName = "Grid.c"};
    host_.messages.Expect(StandardAnswer::Yes);
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_EQ(ExportProcedure(db_, files_, procedure).outcome, ExportOutcome::Finished);
    EXPECT_EQ(TakeBox(), question);
    EXPECT_EQ(TakeBox().kind, BoxKind::YesNoCancel);
    EXPECT_EQ(Read("source/sub/Grid.c"), "f() {}\r\n");
    ExpectInformation("The code has been successfully exported.");
}

TEST_F(FileExportTest, ReportsWhatGoesWrong) {
    files_.WriteFile(Path("out"), "a file where the folder should be");
    EXPECT_EQ(ExportTheClass("Grid.c").outcome, ExportOutcome::Failed);
    ExpectError(Procedure::ExportClass, "a part of its path is no folder");
    EXPECT_EQ(ExportProcedure(db_, files_, Request(codeID_, "f.c")).outcome, ExportOutcome::Failed);
    ExpectError(Procedure::ExportProcedure, "a part of its path is no folder");

    EXPECT_EQ(ExportClass(db_, files_, Request(99, "Grid.c")).outcome, ExportOutcome::Failed);
    ExpectError(Procedure::ExportClass, "no class with the number 99");
    EXPECT_EQ(ExportProcedure(db_, files_, Request(99, "Grid.c")).outcome, ExportOutcome::Failed);
    ExpectError(Procedure::ExportProcedure, "no procedure with the number 99");

    const FileExport request{
        .id = classID_, .destinationFolder = folder_.Path(), .fileName = "QRT_SN.mde"};
    EXPECT_EQ(ExportClass(db_, files_, request).outcome, ExportOutcome::Failed);
    ExpectError(Procedure::ExportClass, "belongs to the catalogue");
}

TEST_F(FileExportTest, ShowsTheReportInPlaceOfTheMessageWhereThereIsSomethingToTell) {
    SetForm(classID_, "encoding=windows-1252");
    UpdateClass(db_, classID_, {.name = "Grid", .declarations = "\xD0\x96", .languageID = kC});
    const ExportResult result = ExportTheClass("Grid.c");
    EXPECT_EQ(
        ExportReport(result),
        "  The procedure 'f' of the class 'Grid' is not in the file, because the class's text does "
        "not say where. Put the line /***Procedure f***/ into it, or export the procedure by "
        "itself.\r\n  The file '" +
            Path("out/Grid.c") +
            "' is now written in UTF-8, because windows-1252 lacks characters of its lines 1.\r\n"
            "\r\nThe following files were successfully exported:\r\n\r\n  " +
            Path("out/Grid.c") + "\r\n");
}

}  // namespace
}  // namespace snippetarium::test
