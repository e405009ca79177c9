#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "export/export_job.h"
#include "tests/export/export_fixture.h"
#include "tests/fake_file_system.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view kSuccess = "The application has been successfully exported.";

/// An application of which the test makes the classes. They are exported in the order of their
/// names.
class ApplicationExportTest : public ExportFixture {
  protected:
    ApplicationExportTest() {
        appID_ = AddApplication(db_, {.name = "Paint", .path = Path("source")});
    }

    void Make(std::string_view name, std::string_view pathInApp) {
        MakeClass({.name = std::string(name),
                   .appID = appID_,
                   .pathInApp = std::string(pathInApp),
                   .declarations = std::string(name),
                   .languageID = kC});
    }
    ExportResult Export(ExistingFile existing = ExistingFile::Ask) {
        return ExportApplication(
            db_, files_, {.appID = appID_, .destinationFolder = Path("out"), .existing = existing});
    }
    /// The files below a folder of the disk, with what they hold.
    std::map<std::string, std::string> Files(std::string_view folder) const {
        std::map<std::string, std::string> files;
        const std::filesystem::path top = Path(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
            if (!entry.is_regular_file()) continue;
            files[entry.path().lexically_relative(top)] = ReadBytes(entry.path());
        }
        return files;
    }
    void PutOld(const Names& names) {
        files_.MakeFolders(Path("out"));
        for (const std::string& name : names)
            files_.WriteFile(Path("out/" + name), "old");
    }

    std::int32_t appID_ = 0;
};

TEST_F(ApplicationExportTest, WritesEveryClassUnderItsPath) {
    Make("A", "A.c");
    Make("B", "sub\\deep\\B.c");
    Make("C", "sub/C.c");
    MakeClass({.name = "Stranger", .pathInApp = "S.c"});
    const ExportResult result = Export();
    EXPECT_EQ(result.outcome, ExportOutcome::Finished);
    EXPECT_EQ(result.exported, (Names{"A.c", "sub\\deep\\B.c", "sub/C.c"}));
    EXPECT_EQ(Files("out"),
              (std::map<std::string, std::string>{
                  {"A.c", "A\r\n"}, {"sub/deep/B.c", "B\r\n"}, {"sub/C.c", "C\r\n"}}));
    ExpectInformation(kSuccess);
}

TEST_F(ApplicationExportTest, NamesTheClassesWithoutAPath) {
    Make("A", "");
    Make("B", "B.c");
    Make("C", "");
    EXPECT_EQ(Export().classesWithoutPath, (Names{"A", "C"}));
    ExpectInformation(
        "The classes listed below are not exported, because they do not have path.\r\nA\r\nC");
    ExpectInformation(kSuccess);
}

TEST_F(ApplicationExportTest, DoesNotClaimSuccessWhereNothingWasWritten) {
    EXPECT_EQ(Export().outcome, ExportOutcome::Finished);
    ExpectInformation("The application has no classes to export.");
    Make("A", "");
    EXPECT_EQ(Export().outcome, ExportOutcome::Finished);
    ExpectInformation(
        "The classes listed below are not exported, because they do not have path.\r\nA");
}

TEST_F(ApplicationExportTest, AsksForEachFileThatExistsUntilOneAnswerIsForAll) {
    using enum SeriesAnswer;
    const struct {
        std::vector<SeriesAnswer> answers;
        Names written;  // of A.c to D.c, of which B.c is new
        ExportOutcome outcome;
    } cases[] = {
        {{Yes, Yes, Yes}, {"A.c", "B.c", "C.c", "D.c"}, ExportOutcome::Finished},
        {{Yes, No, Yes}, {"A.c", "B.c", "D.c"}, ExportOutcome::Finished},
        {{No, No, No}, {"B.c"}, ExportOutcome::Finished},
        {{YesToAll}, {"A.c", "B.c", "C.c", "D.c"}, ExportOutcome::Finished},
        {{No, YesToAll}, {"B.c", "C.c", "D.c"}, ExportOutcome::Finished},
        {{NoToAll}, {"B.c"}, ExportOutcome::Finished},
        {{Yes, NoToAll}, {"A.c", "B.c"}, ExportOutcome::Finished},
        {{Cancel}, {}, ExportOutcome::Cancelled},
        {{Yes, Cancel}, {"A.c", "B.c"}, ExportOutcome::Cancelled},
    };
    for (const std::string name : {"A", "B", "C", "D"})
        Make(name, name + ".c");
    for (const auto& test : cases) {
        PutOld({"A.c", "C.c", "D.c"});
        std::filesystem::remove(Path("out/B.c"));
        for (const SeriesAnswer answer : test.answers)
            host_.messages.Expect(answer);
        const ExportResult result = Export();
        EXPECT_EQ(result.exported, test.written);
        EXPECT_EQ(result.outcome, test.outcome);
        for (const auto& [name, content] : Files("out")) {
            const bool isWritten = std::ranges::count(test.written, name) == 1;
            EXPECT_EQ(content == "old", !isWritten) << name;
        }
        EXPECT_EQ(
            TakeBox(),
            (ShownBox{BoxKind::Series, "",
                      "  The file A.c already exists.\r\nWould you like to overwrite the file?"}));
        for (std::size_t i = 1; i < test.answers.size(); ++i)
            EXPECT_EQ(TakeBox().kind, BoxKind::Series);
        if (test.outcome == ExportOutcome::Cancelled) {
            ExpectInformation("Code export was not completed.");
        } else if (result.problems.empty()) {
            ExpectInformation(kSuccess);
        }
        EXPECT_TRUE(host_.messages.shown.empty());
    }
}

TEST_F(ApplicationExportTest, AsksBeforeItOverwritesTheSource) {
    Make("A", "A.c");
    files_.MakeFolders(Path("source"));
    files_.WriteFile(Path("source/A.c"), "source");
    const ApplicationExport request{.appID = appID_,
                                    .destinationFolder = Path("source\\"),
                                    .existing = ExistingFile::Overwrite};
    const ShownBox question{BoxKind::YesNo, "Snippetarium Question",
                            "Your export destination is the same as original source location.\r\n"
                            "Are you sure you want to overwrite your existing source files?"};
    host_.messages.Expect(StandardAnswer::No);
    EXPECT_EQ(ExportApplication(db_, files_, request).outcome, ExportOutcome::Cancelled);
    EXPECT_EQ(TakeBox(), question);
    EXPECT_EQ(Read("source/A.c"), "source");

    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(ExportApplication(db_, files_, request).outcome, ExportOutcome::Finished);
    EXPECT_EQ(TakeBox(), question);
    EXPECT_EQ(Read("source/A.c"), "A\r\n");
    ExpectInformation(kSuccess);
}

TEST_F(ApplicationExportTest, WritesNothingOutsideTheDestination) {
    std::filesystem::create_directories(Path("out"));
    std::filesystem::create_directories(Path("elsewhere"));
    std::filesystem::create_symlink("../elsewhere", Path("out/link"));
    std::filesystem::create_symlink("../elsewhere/file.c", Path("out/file.c"));
    const Names hostile = {Path("elsewhere/x.c"),
                           "..\\elsewhere\\x.c",
                           "sub\\..\\..\\elsewhere\\x.c",
                           "link\\x.c",
                           "link\\new\\x.c",
                           "file.c",
                           "\\\\server\\x\\y.c",
                           "C:\\x.c"};
    for (std::size_t i = 0; i < hostile.size(); ++i)
        Make("A" + std::to_string(i), hostile[i]);
    Make("Z", "Z.c");
    const ExportResult result = Export(ExistingFile::Overwrite);
    EXPECT_EQ(result.exported, Names{"Z.c"});
    EXPECT_EQ(Files("elsewhere").size(), 0U);
    EXPECT_EQ(Files("out").size(), 1U);
    ASSERT_EQ(result.problems.size(), hostile.size());
    EXPECT_EQ(result.problems[1],
              "The class 'A1' was not exported. Its path '..\\elsewhere\\x.c' leads out of the "
              "destination folder.");
    EXPECT_EQ(result.problems[3],
              "The class 'A3' was not exported. Its path 'link\\x.c' leads out of the destination "
              "folder by a link.");
}

TEST_F(ApplicationExportTest, NeverWritesTwoClassesIntoOneFile) {
    Make("A", "sub\\x.c");
    Make("B", "sub/./x.c");
    const ExportResult result = Export(ExistingFile::Overwrite);
    EXPECT_EQ(Read("out/sub/x.c"), "A\r\n");
    EXPECT_EQ(result.problems, Names{"The class 'B' was not exported. Its path 'sub/./x.c' is also "
                                     "that of the class 'A', which has been written."});
}

TEST_F(ApplicationExportTest, NeverReplacesTheCatalogue) {
    Make("A", "QRT_SN.mde");
    Make("B", "B.c");
    const ExportResult result = ExportApplication(db_, files_,
                                                  {.appID = appID_,
                                                   .destinationFolder = folder_.Path(),
                                                   .existing = ExistingFile::Overwrite});
    ExpectError(Procedure::ExportApplication, "belongs to the catalogue");
    EXPECT_EQ(result.exported, Names{"B.c"});
}

TEST_F(ApplicationExportTest, GoesOnAfterAFailureAndKeepsWhatWasWritten) {
    FakeFileSystem disk;
    disk.AddFolder("/out/full");
    disk.readOnlyFolders.insert("/out/full");
    disk.AddFile("/out/wall", "a file");
    Make("A", "A.c");
    Make("B", "full\\B.c");
    Make("C", "wall\\C.c");
    Make("D", "D.c");
    const ExportResult result =
        ExportApplication(db_, disk, {.appID = appID_, .destinationFolder = "/out"});
    EXPECT_EQ(result.outcome, ExportOutcome::Finished);
    EXPECT_EQ(disk.written, (std::vector<FakeFileSystem::WrittenFile>{{"/out/A.c", "A\r\n"},
                                                                      {"/out/D.c", "D\r\n"}}));
    // One message for the first; the report has them all.
    ExpectError(Procedure::ExportApplication, "'/out/full/B.c' cannot be written");
    EXPECT_TRUE(host_.messages.shown.empty());
    const std::string report = ExportReport(result);
    EXPECT_NE(
        report.find("  The class 'B' was not exported. The file '/out/full/B.c' cannot be written"),
        report.npos)
        << report;
    EXPECT_NE(
        report.find("  The class 'C' was not exported. The folder '/out/wall' cannot be made"),
        report.npos)
        << report;
    EXPECT_NE(report.find(
                  "\r\nThe following files were successfully exported:\r\n\r\n  A.c\r\n  D.c\r\n"),
              report.npos)
        << report;
}

TEST_F(ApplicationExportTest, EndsAtOnceWhereTheDestinationIsNoFolder) {
    FakeFileSystem disk;
    disk.AddFile("/out", "a file");
    for (const std::string name : {"A", "B"})
        Make(name, name + ".c");
    const ExportResult result =
        ExportApplication(db_, disk, {.appID = appID_, .destinationFolder = "/out"});
    EXPECT_EQ(result.outcome, ExportOutcome::Failed);
    EXPECT_EQ(result.problems, Names{});
    ExpectError(Procedure::ExportApplication, "The folder '/out' cannot be made");
    EXPECT_TRUE(host_.messages.shown.empty());
}

TEST_F(ApplicationExportTest, ShowsItsProgressAndStopsWhenTheUserCancels) {
    for (const std::string name : {"A", "B", "C", "D"})
        Make(name, name + ".c");
    // The window opens only for an export that takes a while.
    host_.events.At(1, [this] { host_.clock.Advance(std::chrono::seconds(1)); });
    host_.PressCancelAt(4);
    const ExportResult result = Export();
    EXPECT_EQ(result.outcome, ExportOutcome::Cancelled);
    EXPECT_EQ(result.exported, (Names{"A.c", "B.c"}));
    EXPECT_EQ(host_.progress.opened, Names{"Exporting application"});
    EXPECT_EQ(host_.progress.TextsOf(ProgressText::ContentLine), (Names{"A", "B"}));
    EXPECT_EQ(host_.progress.totalValues, std::vector<double>{50});
    EXPECT_FALSE(host_.progress.IsOpen());
    EXPECT_EQ(Files("out").size(), 2U);
    ExpectInformation("Code export was not completed.");
}

TEST_F(ApplicationExportTest, RefusesAnApplicationThatIsNotThere) {
    EXPECT_EQ(
        ExportApplication(db_, files_, {.appID = 99, .destinationFolder = Path("out")}).outcome,
        ExportOutcome::Failed);
    ExpectError(Procedure::ExportApplication, "no application with the number 99");
}

}  // namespace
}  // namespace snippetarium::test
