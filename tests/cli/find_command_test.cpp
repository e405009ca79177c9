#include <gtest/gtest.h>

#include <sstream>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

class FindCommandTest : public CommandTest {
  protected:
    FindCommandTest() { MakeSample(); }
};

TEST_F(FindCommandTest, PrintsEachHitWithItsPlaceAndTheLineInWhichItWasFound) {
    const CommandResult result = Run({"find", "leap"});
    EXPECT_EQ(result.status, kDone) << result.error;
    EXPECT_EQ(result.output,
              "a2f2c1  IsLeapYear  in modCalendar, Tide Tables\n"
              "        1: Public Function IsLeapYear(ByVal yearNumber As Integer) As Boolean\n"
              "a2f2    modCalendar  class in Tide Tables\n"
              "        keywords: calendar, leap year, month\n"
              "a2f2c2  DaysInMonth  in modCalendar, Tide Tables\n"
              "        6: DaysInMonth = IIf(IsLeapYear(yearNumber), 29, 28)\n"
              "3 found.\n");
    EXPECT_EQ(Run({"find", "laep"}).output,
              "a2f2c1  IsLeapYear  in modCalendar, Tide Tables, one letter off\n"
              "1 found.\n");
    EXPECT_EQ(Run({"find", "nowhere"}).output, "Nothing was found.\n");
    const CommandResult limited = Run({"find", "leap", "--limit", "1"});
    EXPECT_NE(limited.output.find("The first 1 of 3. --limit shows more.\n"), std::string::npos)
        << limited.output;
}

TEST_F(FindCommandTest, GivesADocumentWithThePlacesOfEveryMatch) {
    const auto document = DocumentOf(Run({"--json", "find", "\"turn of a\""}));
    EXPECT_EQ(document["total"], 1);
    EXPECT_EQ(document["hits"][0].dump(),
              R"({"key":"a2f2c1","kind":"procedure","tier":"comment","application":"Tide Tables",)"
              R"("class":"modCalendar","procedure":"IsLeapYear","nameMatches":[],"line":{)"
              R"("of":"comment","number":1,"place":43,"text":"'Every fourth year, but only every )"
              R"(fourth turn of a century.","matches":[{"place":43,"size":9}]}})");
}

TEST_F(FindCommandTest, SetsMatchesOffOnATerminalAndNothingElse) {
    Execute("UPDATE tblCode SET codeName = 'Is\x1b[2JLeapYear' WHERE codeID = 1");
    std::istringstream input;
    std::ostringstream output;
    std::ostringstream error;
    const Streams streams{input, output, error, {.output = true}};
    const std::vector<std::string> words = {"--folder", folder_.Path(), "find", "name:leap"};
    EXPECT_EQ(RunCommandLine(words, streams), kDone);
    EXPECT_NE(output.str().find("a2f2c1  Is?[2J\x1b[1;31mLeap\x1b[0mYear  in"), std::string::npos)
        << output.str();
}

TEST_F(FindCommandTest, RefusesAnEntryThatMakesNoSenseUnlessItIsStillTyped) {
    const CommandResult refused = Run({"--json", "find", "(leap or"});
    EXPECT_EQ(refused.status, kFailed);
    EXPECT_EQ(DocumentOf(refused)["error"]["text"],
              "In the entry, the bracket at 1 is never closed; the \"or\" at 7 has nothing behind "
              "it. Nothing was searched.");
    EXPECT_EQ(DocumentOf(Run({"--json", "find", "(leap or", "--as-typed"}))["total"], 3);
    EXPECT_EQ(Run({"find"}).status, kWrongUsage);
    EXPECT_EQ(Run({"find", "x", "--limit", "0"}).status, kWrongUsage);
}

}  // namespace
}  // namespace snippetarium::test
