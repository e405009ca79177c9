#include <gtest/gtest.h>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

class ShowCommandTest : public CommandTest {
  protected:
    ShowCommandTest() { MakeSample(); }
};

TEST_F(ShowCommandTest, PrintsThePageOfEachKindOfNode) {
    EXPECT_EQ(Run({"show", "a2"}).output,
              "Tide Tables\n"
              "Key:         a2\n"
              "Kind:        application\n"
              "Version:     1.4\n"
              "Path:        C:\\Projects\\Tides\n"
              "Authors:     Marta J. Lindqvist; Tom Okafor\n"
              "Dates:       1999-11-07\n"
              "Comment:     Prints a harbour's tides for a year.\n"
              "\n"
              "Prints a harbour's tides for a year.\n"
              "\n"
              "Classes:\n"
              "  a2f3  HeightRing  (2 procedures)\n"
              "  a2f2  modCalendar  (3 procedures)\n");
    EXPECT_EQ(Run({"show", "a2f2"}).output,
              "modCalendar\n"
              "Key:         a2f2\n"
              "Kind:        class\n"
              "Application: Tide Tables  (a2)\n"
              "Language:    Visual Basic\n"
              "Path:        modCalendar.bas\n"
              "Keywords:    calendar, leap year, month\n"
              "Comment:     Days, months and years of the Gregorian calendar.\n"
              "\n"
              "Days, months and years of the Gregorian calendar.\n"
              "\n"
              "Attribute VB_Name = \"modCalendar\"\n"
              "Option Explicit\n"
              "\n"
              "'***Procedure IsLeapYear***\n"
              "'***Procedure DaysInMonth***\n"
              "'***Procedure DayOfYear***\n"
              "\n"
              "Procedures:\n"
              "  a2f2c3  DayOfYear\n"
              "  a2f2c2  DaysInMonth\n"
              "  a2f2c1  IsLeapYear\n");
    EXPECT_EQ(Run({"show", "a2f3c5"}).output,
              "HeightRing.mean()\n"
              "Key:         a2f3c5\n"
              "Kind:        procedure\n"
              "Application: Tide Tables  (a2)\n"
              "Class:       HeightRing  (a2f3)\n"
              "Language:    Java\n"
              "Keywords:    ring buffer, queue\n"
              "Comment:     The mean of the last day's heights, in metres.\n"
              "\n"
              "/** The mean of the last day's heights, in metres. */\n"
              "\n"
              "double mean() {\n"
              "        int known = Math.min(count, heights.length);\n"
              "        double sum = 0;\n"
              "        for (int i = 0; i < known; i++) sum += heights[i];\n"
              "        return known == 0 ? 0 : sum / known;\n"
              "    }\n");
}

TEST_F(ShowCommandTest, GivesEveryFieldInJson) {
    Execute("INSERT INTO tblOverlong VALUES (5, 3, 'codeComment', ' and the rest')");
    EXPECT_EQ(DocumentOf(Run({"--json", "show", "a2f3c5"})).dump(),
              nlohmann::ordered_json::parse(R"json({
        "key": "a2f3c5", "kind": "procedure", "name": "HeightRing.mean()",
        "application": {"key": "a2", "kind": "application", "name": "Tide Tables"},
        "class": {"key": "a2f3", "kind": "class", "name": "HeightRing"},
        "languageID": 2, "language": "Java",
        "comment": "/** The mean of the last day's heights, in metres. */ and the rest",
        "code": "double mean() {\r\n        int known = Math.min(count, heights.length);\r\n        double sum = 0;\r\n        for (int i = 0; i < known; i++) sum += heights[i];\r\n        return known == 0 ? 0 : sum / known;\r\n    }",
        "authors": [], "dates": [],
        "keywords": {"text": "ring buffer, queue", "separatorID": 2, "separator": "Comma",
                     "searchWords": "ring buffer queue"}})json")
                  .dump());
    const auto application = DocumentOf(Run({"--json", "show", "a2"}));
    EXPECT_EQ(application["authors"][0].dump(),
              R"({"authorID":1,"first":"Marta","middle":"J.","last":"Lindqvist"})");
    EXPECT_EQ(application["dates"][0], "1999-11-07");
    EXPECT_EQ(application["keywords"], nullptr);
    EXPECT_EQ(application["classes"].dump(), R"([{"key":"a2f3","name":"HeightRing","count":2},)"
                                             R"({"key":"a2f2","name":"modCalendar","count":3}])");
}

TEST_F(ShowCommandTest, DoesNotLetATextSteerTheTerminal) {
    Execute("UPDATE tblCode SET code = 'a\x1b[2Jb\tc', codeName = 'x\r\ny' WHERE codeID = 1");
    const std::string page = Run({"show", "a2f2c1"}).output;
    EXPECT_TRUE(page.starts_with("x\u23cey\n")) << page;
    EXPECT_TRUE(page.ends_with("\na?[2Jb\tc\n")) << page;
}

}  // namespace
}  // namespace snippetarium::test
