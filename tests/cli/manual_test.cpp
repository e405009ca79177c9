#include "cli/manual.h"

#include <gtest/gtest.h>
#include <wordexp.h>

#include <cstdlib>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command_line.h"
#include "cli/commands.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

std::vector<std::string> HeadingsOf(const std::string& page, const std::string& macro) {
    std::vector<std::string> headings;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(macro + " ")) headings.push_back(line.substr(macro.size() + 1));
    }
    return headings;
}

/// The words that a shell makes of a command line, up to a pipe.
std::vector<std::string> WordsOfShell(std::string_view line) {
    wordexp_t words;
    const std::string command(line.substr(0, line.find(" |")));
    EXPECT_EQ(wordexp(command.c_str(), &words, WRDE_NOCMD), 0) << line;
    const std::vector<std::string> result(words.we_wordv, words.we_wordv + words.we_wordc);
    wordfree(&words);
    return result;
}

TEST(Manual, HasASectionForEachCommandOfTheTable) {
    const CommandResult result = RunProgram({"manual"});
    EXPECT_EQ(result.status, kDone);
    std::vector<std::string> names;
    for (const CliCommand* command : Commands())
        names.emplace_back(command->name);
    EXPECT_EQ(HeadingsOf(result.output, ".SS"), names);
    const std::vector<std::string> sections = {"NAME",     "SYNOPSIS",    "DESCRIPTION", "OPTIONS",
                                               "COMMANDS", "EXIT STATUS", "ENVIRONMENT", "FILES"};
    EXPECT_EQ(HeadingsOf(result.output, ".SH"), sections);
    EXPECT_EQ(DocumentOf(RunProgram({"--json", "manual"}))["roff"], result.output);
}

TEST(Manual, IsSetWithoutAWarning) {
    if (std::system("command -v groff >/dev/null") != 0) GTEST_SKIP() << "groff is not installed";
    const TemporaryFolder folder;
    WriteBytes(folder.File("page.1"), ManualPage());
    const std::string command = "groff -man -ww -z -Tutf8 '" + folder.File("page.1") + "' 2> '" +
                                folder.File("warnings") + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadBytes(folder.File("warnings")), "");
}

/// The text with one blank for each line break and the indent behind it.
std::string OnOneLine(const std::string& text) {
    return std::regex_replace(text, std::regex("\n *"), " ");
}

TEST(Help, NamesEveryCommandWithWhatItTakes) {
    const std::string overview = RunProgram({"--help"}).output;
    std::set<std::string_view> names;
    for (const CliCommand* command : Commands()) {
        SCOPED_TRACE(command->name);
        EXPECT_TRUE(names.insert(command->name).second) << "there are two of that name";
        EXPECT_NE(overview.find("  " + std::string(command->name) + " "), std::string::npos);
        const CommandResult help = RunProgram({std::string(command->name), "--help"});
        EXPECT_EQ(help.status, kDone);
        EXPECT_NE(OnOneLine(help.output).find(Synopsis(*command)), std::string::npos);
        for (const CommandOption& option : command->options) {
            EXPECT_NE(help.output.find("\n  " + OptionSynopsis(option)), std::string::npos);
        }
        std::istringstream lines(help.output);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80U) << line;
    }
}

TEST(Help, GivesExamplesThatTheProgramUnderstands) {
    for (const CliCommand* command : Commands()) {
        EXPECT_FALSE(command->examples.empty()) << command->name;
        for (const CommandExample& example : command->examples) {
            const std::vector<std::string> words = WordsOfShell(example.arguments);
            EXPECT_EQ(ParseCommandLine(words).command, command) << example.arguments;
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
