#include <gtest/gtest.h>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

class ListCommandsTest : public CommandTest {
  protected:
    ListCommandsTest() { MakeSample(); }

    std::string Output(const Words& words) const {
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kDone) << result.error;
        return result.output;
    }
    std::string Document(Words words) const {
        words.insert(words.begin(), "--json");
        return DocumentOf(Run(words)).dump();
    }
};

TEST_F(ListCommandsTest, ListAndChangeAuthors) {
    EXPECT_EQ(Output({"authors"}),
              "number  author              used\n"
              "------  ------------------  ----\n"
              "     1  Marta J. Lindqvist     1\n"
              "     2  Tom Okafor             2\n");
    EXPECT_EQ(Output({"authors", "a2f2", "--add", "okafor, tom"}), "Tom Okafor\n");
    EXPECT_EQ(Output({"authors", "a2f2", "--add", "Ann Lee"}), "Tom Okafor\nAnn Lee\n");
    EXPECT_EQ(Output({"authors", "a2f2", "--remove", "TOM OKAFOR"}), "Ann Lee\n");
    EXPECT_EQ(Output({"authors", "--rename", "2", "--to", "Thomas Okafor"}),
              "Renamed: Thomas Okafor\n");
    EXPECT_EQ(Document({"authors", "a2f3"}),
              R"({"key":"a2f3","kind":"class","name":"HeightRing","authors":)"
              R"([{"authorID":2,"first":"Thomas","middle":"","last":"Okafor"}]})");
    EXPECT_EQ(Document({"authors"}),
              R"({"authors":[{"authorID":3,"first":"Ann","middle":"","last":"Lee","count":1},)"
              R"({"authorID":1,"first":"Marta","middle":"J.","last":"Lindqvist","count":1},)"
              R"({"authorID":2,"first":"Thomas","middle":"","last":"Okafor","count":2}]})");
}

TEST_F(ListCommandsTest, ListAndChangeDates) {
    EXPECT_EQ(Output({"dates", "a2", "--add", "March 14, 2001"}), "1999-11-07\n2001-03-14\n");
    EXPECT_EQ(Output({"dates", "a2", "--add", "3/14/2001"}), "1999-11-07\n2001-03-14\n");
    EXPECT_EQ(Output({"dates", "a2", "--remove", "7-Nov-1999"}), "2001-03-14\n");
    EXPECT_EQ(Output({"dates"}),
              "date        used\n"
              "----------  ----\n"
              "1999-11-07     0\n"
              "2001-03-14     1\n"
              "2003-02-18     1\n");
    EXPECT_EQ(Document({"dates", "a2"}),
              R"({"key":"a2","kind":"application","name":"Tide Tables","dates":["2001-03-14"]})");
    EXPECT_EQ(Output({"dates", "a2", "--remove", "2001-03-14"}), "");
}

TEST_F(ListCommandsTest, ListAndChangeKeywords) {
    EXPECT_EQ(Output({"keywords"}),
              "key     name               keywords\n"
              "------  -----------------  --------------------------\n"
              "a2f2    modCalendar        calendar, leap year, month\n"
              "a2f2c1  IsLeapYear         calendar, leap year, month\n"
              "a2f3    HeightRing         ring buffer, queue\n"
              "a2f3c5  HeightRing.mean()  ring buffer, queue\n");
    EXPECT_EQ(
        Output({"keywords", "a2", "--set", "the tides; 2nd tides; don't", "--separator", ";"}),
        "Keywords:     the tides; 2nd tides; don't\n"
        "Separator:    Semicolon\n"
        "Search words: tides don't\n");
    // Two owners share the row in the sample; the other keeps it.
    EXPECT_EQ(Output({"keywords", "a2f3", "--clear"}), "");
    EXPECT_EQ(Document({"keywords", "a2f3"}),
              R"({"key":"a2f3","kind":"class","name":"HeightRing","keywords":null})");
    EXPECT_EQ(Document({"keywords", "a2f3c5"}),
              R"json({"key":"a2f3c5","kind":"procedure","name":"HeightRing.mean()","keywords":)json"
              R"({"text":"ring buffer, queue","separatorID":2,"separator":"Comma",)"
              R"("searchWords":"ring buffer queue"}})");
    EXPECT_EQ(Run({"check"}).status, kDone);
}

TEST_F(ListCommandsTest, ListAndChangeBookmarks) {
    EXPECT_EQ(Output({"bookmarks", "--add", "a2f2"}), "Bookmarked: a2f2  modCalendar\n");
    EXPECT_EQ(Output({"bookmarks", "--add", "a2f2c1"}), "Bookmarked: a2f2c1  IsLeapYear\n");
    EXPECT_NE(Run({"bookmarks", "--add", "a2f2"}).error.find("bookmarked already"),
              std::string::npos);
    EXPECT_EQ(Document({"bookmarks"}),
              R"({"bookmarks":[{"key":"a2f2","kind":"class","application":"Tide Tables",)"
              R"("class":"modCalendar"},{"key":"a2f2c1","kind":"procedure","application":)"
              R"("Tide Tables","class":"modCalendar","procedure":"IsLeapYear"}]})");
    EXPECT_EQ(Output({"bookmarks", "--remove", "a2f2"}),
              "No longer bookmarked: a2f2  modCalendar\n");
    EXPECT_EQ(Output({"bookmarks"}),
              "key     application  class        procedure\n"
              "------  -----------  -----------  ----------\n"
              "a2f2c1  Tide Tables  modCalendar  IsLeapYear\n");
}

TEST_F(ListCommandsTest, ListAndChangeLanguages) {
    EXPECT_EQ(Output({"languages", "--add", "Fortran"}), "Added: Fortran\n");
    EXPECT_EQ(Output({"languages", "--rename", "fortran", "--to", "Fortran 90 "}),
              "Renamed: Fortran 90\n");
    EXPECT_NE(Document({"languages"})
                  .find(R"({"languageID":12,"language":"Fortran 90","Status":1,"classCount":0,)"
                        R"("codeCount":0})"),
              std::string::npos);
    EXPECT_NE(Output({"languages"}).find("  Java               1           1          2\n"),
              std::string::npos)
        << Output({"languages"});
    EXPECT_EQ(Document({"languages", "--delete", "Fortran 90"}), R"({"language":"Fortran 90"})");
    EXPECT_EQ(Output({"languages"}).find("Fortran"), std::string::npos);
}

TEST_F(ListCommandsTest, ListAndChangeWordsOfTheIndex) {
    EXPECT_EQ(Output({"index", "--rename", "LEAP", "--to", "jump"}), "Renamed: jump\n");
    EXPECT_NE(Output({"index"}).find("\njump\n"), std::string::npos) << Output({"index"});
    EXPECT_NE(Output({"index", "jump"}).find("modCalendar"), std::string::npos);
    EXPECT_NE(Output({"keywords"}).find("calendar, leap year"), std::string::npos);
    // Two words become one only where that is wanted.
    EXPECT_EQ(Run({"--no", "index", "--rename", "jump", "--to", "Ring"}).status, kFailed);
    EXPECT_EQ(Output({"--yes", "index", "--rename", "jump", "--to", "Ring"}), "Renamed: Ring\n");
    EXPECT_NE(Output({"index", "ring"}).find("modCalendar"), std::string::npos);
    EXPECT_NE(Output({"index", "ring"}).find("HeightRing"), std::string::npos);
    EXPECT_EQ(Run({"--no", "index", "--delete", "ring"}).status, kFailed);
    EXPECT_EQ(Document({"--yes", "index", "--delete", "ring"}), R"({"word":"ring"})");
    EXPECT_EQ(Output({"index"}).find("ring"), std::string::npos);
    EXPECT_EQ(Run({"check"}).status, kDone);
}

TEST_F(ListCommandsTest, ListAndChangeNoiseWords) {
    EXPECT_EQ(Output({"noise", "--add", "Leap; month"}),
              "Added: Leap\nAdded: month\nKeywords changed: 1\n");
    EXPECT_EQ(Output({"noise", "--add", "LEAP"}), "Is a noise word already: LEAP\n");
    EXPECT_EQ(Document({"noise", "--add", "the; ebb"}),
              R"({"noiseWords":["ebb"],"alreadyNoiseWords":["the"],"changedKeywords":0})");
    EXPECT_NE(Output({"noise"}).find("Leap"), std::string::npos);
    EXPECT_NE(Output({"keywords", "a2f2"}).find("Search words: calendar year\n"),
              std::string::npos);
    EXPECT_EQ(Output({"noise", "--delete", "leap"}), "Deleted: leap\n");
    EXPECT_EQ(Output({"noise"}).find("Leap"), std::string::npos);
    const auto words = DocumentOf(Run({"--json", "noise"}))["noiseWords"];
    EXPECT_EQ(words[0], "a");
    EXPECT_GT(words.size(), 100U);
}

}  // namespace
}  // namespace snippetarium::test
