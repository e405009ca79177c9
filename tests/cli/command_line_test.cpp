#include "cli/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/usage_error.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

/// A command line as understood, in one text: the globals that are set, the command, its arguments.
std::string Understood(const Words& words) {
    const CommandLine line = ParseCommandLine(words);
    std::string text;
    if (!line.folder.empty()) text += "folder=" + line.folder + " ";
    if (line.wantsJson) text += "json ";
    if (line.wantsHelp) text += "help ";
    if (line.wantsVersion) text += "version ";
    if (line.questions == QuestionPolicy::Yes) text += "yes ";
    if (line.questions == QuestionPolicy::No) text += "no ";
    text += line.command == nullptr ? "-" : std::string(line.command->name);
    for (const std::string name : {"KEY", "NAME", "VALUE", "--depth"}) {
        for (const std::string& value : line.arguments.All(name))
            text += " " + name + "=" + value;
    }
    return text;
}

TEST(CommandLine, IsUnderstoodInWhateverOrder) {
    const struct {
        Words words;
        std::string_view expected;
    } cases[] = {
        {{"--version"}, "version -"},
        {{"--help"}, "help -"},
        {{"tree", "--help"}, "help tree"},
        {{"--help", "tree"}, "help tree"},
        {{"tree"}, "tree"},
        {{"tree", "a12"}, "tree KEY=a12"},
        {{"tree", "a12", "--depth", "2"}, "tree KEY=a12 --depth=2"},
        {{"tree", "--depth=2", "a12"}, "tree KEY=a12 --depth=2"},
        {{"--json", "--folder", "x y", "tree"}, "folder=x y json tree"},
        {{"tree", "--json", "--folder=x"}, "folder=x json tree"},
        {{"--yes", "compact"}, "yes compact"},
        {{"compact", "--no"}, "no compact"},
        {{"query", "qryX", "1", "two", "3"}, "query NAME=qryX VALUE=1 VALUE=two VALUE=3"},
        {{"query", "qryX", "-5"}, "query NAME=qryX VALUE=-5"},
        {{"query", "qryX", ""}, "query NAME=qryX VALUE="},
        // A value may be the name of a command, and anything behind two hyphens.
        {{"query", "qryX", "tree", "new"}, "query NAME=qryX VALUE=tree VALUE=new"},
        {{"tree", "tree"}, "tree KEY=tree"},
        {{"query", "qryX", "--", "--json", "-x"}, "query NAME=qryX VALUE=--json VALUE=-x"},
        {{"query", "--", "qryX", "--"}, "query NAME=qryX VALUE=--"},
        // Who asks for help has not finished the command.
        {{"restore", "--help"}, "help restore"},
    };
    for (const auto& [words, expected] : cases) {
        EXPECT_EQ(Understood(words), expected) << ::testing::PrintToString(words);
    }
}

TEST(CommandLine, IsRefusedWithStatus2AndSaysWhatIsWrong) {
    const struct {
        Words words;
        std::string_view message;
    } cases[] = {
        {{}, "No command is given."},
        {{"--json"}, "No command is given."},
        {{"teee"}, "There is no command 'teee'. Did you mean 'tree'?"},
        {{"xylophone"}, "There is no command 'xylophone'.\n"},
        {{"--folder", "x", "shwo", "a1"}, "There is no command 'shwo'."},
        {{"--colour", "tree"}, "There is no option '--colour' for 'tree'."},
        {{"tree", "-x"}, "There is no option '-x' for 'tree'."},
        {{"new", "--depth", "2"}, "There is no option '--depth' for 'new'."},
        {{"tree", "a1", "a2"}, "'a2' is one argument too many for 'tree'."},
        {{"new", "new"}, "'new' is one argument too many for 'new'."},
        {{"tree", "--depth"}, "--depth must be given once and with its value."},
        {{"tree", "--depth", "1", "--depth", "2"}, "--depth must be given once"},
        {{"tree", "--folder"}, "--folder must be given once and with its value."},
        {{"tree", "--folder", ""}, "--folder takes the name of a folder."},
        {{"tree", "--yes", "--no"}, "--yes and --no exclude each other."},
        {{"restore"}, "'restore' needs BACKUP"},
        {{"tree", "--depth", "0"}, "--depth takes a number from 1 to 3, not '0'."},
        {{"tree", "--depth", "4"}, "--depth takes a number from 1 to 3, not '4'."},
        {{"tree", "--depth", "2x"}, "--depth takes a number from 1 to 3, not '2x'."},
        {{"tree", "--depth", "99999999999"}, "not '99999999999'."},
        {{"tree", "x12"}, "'x12' is no key of a node."},
        {{"tree", ""}, "'' is no key of a node."},
        {{"tree", "a"}, "'a' is no key of a node."},
        {{"tree", "a0"}, "'a0' is no key of a node."},
        {{"tree", "a01"}, "'a01' is no key of a node."},
        {{"tree", "a1f"}, "'a1f' is no key of a node."},
        {{"tree", "f3"}, "'f3' is no key of a node."},
        {{"tree", "ka1"}, "'ka1' is no key of a node."},
        {{"tree", "a1c3"}, "'a1c3' is no key of a node."},
        {{"tree", "a2147483648"}, "'a2147483648' is no key of a node."},
        {{"query", "qryAppNamRS"}, "Did you mean 'qryAppNameRS'"},
        {{"query", "nonsense"}, "There is no stored query 'nonsense'.\n"},
        {{"query", "qryAppNameByID"}, "'qryAppNameByID' takes 1 value (appID), not 0."},
        {{"query", "qryAppNameRS", "1"}, "'qryAppNameRS' takes no values, not 1."},
        {{"query", "qryDateRSByOwner", "1", "2", "3"},
         "takes 2 values (ownerID, ownerTableID), not 3."},
        {{"query", "qryAppNameByID", "one"},
         "The parameter 'appID' takes a whole number, not 'one'."},
        {{"query", "qryAppNameByID", "1.5"}, "not '1.5'."},
        {{"query", "qryAppNameByID", "2147483648"}, "not '2147483648'."},
        {{"query", "qryAppNameByID", " 1"}, "not ' 1'."},
    };
    for (const auto& [words, message] : cases) {
        SCOPED_TRACE(::testing::PrintToString(words));
        const CommandResult result = RunProgram(words);
        EXPECT_EQ(result.status, kWrongUsage);
        EXPECT_NE(result.error.find(message), std::string::npos) << result.error;
        EXPECT_NE(result.error.find("--help"), std::string::npos) << result.error;
        if (!AsksForJson(words)) {
            EXPECT_EQ(result.output, "");
        }
    }
}

TEST(CommandLine, IsRefusedInJsonToo) {
    for (const Words& words : {Words{"--json", "teee"}, Words{"tree", "--depth", "9", "--json"},
                               Words{"--json", "tree", "--depth"}}) {
        const CommandResult result = RunProgram(words);
        EXPECT_EQ(result.status, kWrongUsage);
        auto error = DocumentOf(result)["error"];
        EXPECT_EQ(error["code"], 5);
        EXPECT_NE(result.error.find(error["text"].get<std::string>()), std::string::npos);
    }
    EXPECT_NE(RunProgram({"--json", "tree", "caf\xe9"}).output.find("'caf\ufffd'"),
              std::string::npos);
    EXPECT_FALSE(AsksForJson(Words{"query", "qryX", "--", "--json"}));
}

}  // namespace
}  // namespace snippetarium::test
