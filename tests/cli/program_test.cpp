#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include "tests/child_process.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

/// The built program, run as a process of its own. Its messages stand among the output.
CommandResult RunProcess(const std::string& arguments) {
    const std::string command = "'" SNIPPETARIUM_CLI_PROGRAM "' " + arguments + " 2>&1 </dev/null";
    FILE* const pipe = popen(command.c_str(), "r");
    EXPECT_NE(pipe, nullptr);
    CommandResult result;
    char buffer[4096];
    for (std::size_t size = fread(buffer, 1, sizeof buffer, pipe); size > 0;
         size = fread(buffer, 1, sizeof buffer, pipe)) {
        result.output.append(buffer, size);
    }
    const int status = pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

class ProgramTest : public CommandTest {
  protected:
    CommandResult RunHere(const std::string& arguments) const {
        return RunProcess("--folder '" + folder_.Path() + "' " + arguments);
    }
};

TEST_F(ProgramTest, SaysItsVersionWithoutLookingForACatalogue) {
    const CommandResult result = RunProcess("--folder /nowhere/at/all --version");
    EXPECT_EQ(result.status, kDone);
    EXPECT_EQ(result.output, "snippetarium-cli " SNIPPETARIUM_VERSION "\n");
    EXPECT_EQ(RunProcess("").status, kWrongUsage);
    EXPECT_EQ(RunProcess("--help").output, RunProgram({"--help"}).output);
}

TEST_F(ProgramTest, IsToldWhenAnotherProgramMayWrite) {
    MakeSample();
    const std::string tree = RunHere("tree").output;
    const std::string before = ReadBytes(Catalogue());
    FakeHost host;
    Database first(host.host, CatalogueProviders(), folder_.Path());
    ChildProcess program([&] { first.Open(); });

    const CommandResult compact = RunHere("compact");
    EXPECT_EQ(compact.status, kFailed);
    EXPECT_NE(compact.output.find("it has been opened for reading only"), std::string::npos)
        << compact.output;
    EXPECT_NE(compact.output.find("Nothing was changed"), std::string::npos) << compact.output;
    EXPECT_TRUE(ReadBytes(Catalogue()) == before);
    // Whoever only reads need not be told.
    const CommandResult reading = RunHere("tree");
    EXPECT_EQ(reading.status, kDone);
    EXPECT_EQ(reading.output, tree);

    program.Kill();
    EXPECT_EQ(RunHere("compact").status, kDone);
    EXPECT_EQ(RunHere("tree").output, tree);
}

TEST_F(ProgramTest, ReadingLeavesTheRightToWriteToOthers) {
    MakeSample();
    FakeHost host;
    Database reader(host.host, CatalogueProviders(), folder_.Path());
    reader.SetMode(AccessMode::Read);
    reader.Open();
    Execute("UPDATE tblApplication SET appName = 'Written meanwhile' WHERE appID = 2");
    EXPECT_NE(RunHere("tree").output.find("Written meanwhile"), std::string::npos);
}

TEST_F(ProgramTest, DemonstratesItselfOnACatalogueOfItsOwn) {
    const CommandResult shown = RunDemonstration();
    const CommandResult json = RunDemonstration({"--json"});
    EXPECT_EQ(shown.status, kDone) << shown.error;
    EXPECT_NE(shown.output.find("The export equals the samples"), std::string::npos);
    auto document = DocumentOf(json);
    EXPECT_GT(document["files"], 10);
    EXPECT_EQ(RunProgram({"--folder", document["folder"], "check"}).status, kDone);
}

TEST_F(ProgramTest, FailsWhereTheOutputCannotBeWritten) {
    MakeSample();
    EXPECT_EQ(RunHere("tree >/dev/full").status, kFailed);
    EXPECT_EQ(RunHere("--json tree >/dev/full").status, kFailed);
}

}  // namespace
}  // namespace snippetarium::test
