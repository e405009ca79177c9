#include <gtest/gtest.h>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

/// The sample's application a2 has the classes a2f2 (modCalendar.bas) and a2f3.
class ExportCommandTest : public CommandTest {
  protected:
    ExportCommandTest() {
        MakeSample();
        Execute("UPDATE tblClass SET classPathInApp = 'src\\HeightRing.java' WHERE classID = 3");
    }
    std::string Path(std::string_view name) const { return disk_.File(name); }
    std::string Read(std::string_view name) const { return ReadBytes(Path(name)); }

    TemporaryFolder disk_;
};

TEST_F(ExportCommandTest, WritesAnApplicationAndPrintsTheReport) {
    const CommandResult result = Run({"export", "a2", Path("out")});
    EXPECT_EQ(result.status, kDone) << result.error;
    EXPECT_EQ(result.output,
              "The following files were successfully exported:\n\n"
              "  src\\HeightRing.java\n"
              "  modCalendar.bas\n");
    EXPECT_NE(Read("out/modCalendar.bas").find("Public Function IsLeapYear("), std::string::npos);
    EXPECT_EQ(Read("out/modCalendar.bas").find("***Procedure"), std::string::npos);
    EXPECT_NE(Read("out/src/HeightRing.java").find("mean()"), std::string::npos);
}

TEST_F(ExportCommandTest, WritesAClassOrAProcedureIntoAFile) {
    EXPECT_EQ(Run({"export", "a2f2", Path("new/Calendar.bas")}).status, kDone);
    const CommandResult result = Run({"export", "a2f2c1", Path("new/leap.bas")});
    EXPECT_EQ(result.status, kDone);
    EXPECT_EQ(result.error, "Snippetarium Information: The code has been successfully exported.\n");
    EXPECT_NE(Read("new/Calendar.bas").find(Read("new/leap.bas")), std::string::npos);

    const CommandResult refused = Run({"export", "a2f2c1", Path("new/leap")});
    EXPECT_EQ(refused.status, kFailed);
    EXPECT_NE(refused.error.find("Please enter a file name with extention."), std::string::npos);
}

TEST_F(ExportCommandTest, DoesNothingToAFileThatNobodyCanBeAskedAbout) {
    const std::string out = Path("x.bas");
    const struct {
        std::vector<std::string> words;
        int status;
        std::string_view begins;
        bool isWritten;
    } cases[] = {
        {{"export", "a2f2c1", out}, kFailed, "old", false},
        {{"export", "a2f2c1", out, "--existing", "skip"}, kDone, "old", false},
        {{"export", "a2f2c1", out, "--existing", "append"}, kDone, "old", true},
        {{"export", "a2f2c1", out, "--existing", "overwrite"}, kDone, "", true},
        {{"--yes", "export", "a2f2c1", out}, kDone, "old", true},
        {{"--no", "export", "a2f2c1", out}, kDone, "", true},
    };
    for (const auto& [words, status, begins, isWritten] : cases) {
        WriteBytes(out, "old\n");
        EXPECT_EQ(Run(words).status, status) << ::testing::PrintToString(words);
        EXPECT_TRUE(Read("x.bas").starts_with(begins)) << Read("x.bas");
        EXPECT_EQ(Read("x.bas").find("IsLeapYear") != std::string::npos, isWritten);
    }
}

TEST_F(ExportCommandTest, FailsWhereAClassCannotBeWritten) {
    Execute("UPDATE tblClass SET classPathInApp = '..\\x.java' WHERE classID = 3");
    const CommandResult result = Run({"export", "a2", Path("out")});
    EXPECT_EQ(result.status, kFailed);
    EXPECT_EQ(result.output,
              "  The class 'HeightRing' was not exported. Its path '..\\x.java' leads out of the "
              "destination folder.\n\n"
              "The following files were successfully exported:\n\n"
              "  modCalendar.bas\n");
    EXPECT_EQ(Read("x.java"), "");
}

TEST_F(ExportCommandTest, PrintsTheReportAsADocument) {
    Execute("UPDATE tblClass SET classPathInApp = null WHERE classID = 3");
    const CommandResult result =
        Run({"--json", "export", "a2", Path("out"), "--existing", "overwrite"});
    EXPECT_EQ(result.status, kDone);
    EXPECT_EQ(DocumentOf(result).dump(),
              R"({"outcome":"finished","exported":["modCalendar.bas"],"problems":[],)"
              R"("classesWithoutPath":["HeightRing"]})");
    EXPECT_EQ(DocumentOf(Run({"--json", "export", "a2f2", "calendar"}))["outcome"], "refused");
}

TEST_F(ExportCommandTest, RefusesWhatMakesNoSense) {
    EXPECT_EQ(Run({"export", "a2", Path("out"), "--existing", "maybe"}).status, kWrongUsage);
    EXPECT_EQ(Run({"export", "2", Path("out")}).status, kWrongUsage);
    EXPECT_EQ(Run({"export", "a2"}).status, kWrongUsage);
    EXPECT_EQ(Run({"export", "a9", Path("out")}).status, kFailed);
    EXPECT_EQ(Run({"export", "a1f2", Path("out/x.bas")}).status, kFailed);
}

}  // namespace
}  // namespace snippetarium::test
