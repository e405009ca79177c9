#include <gtest/gtest.h>

#include "tests/child_process.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

/// On the sample: application 2, classes 2 (Visual Basic) and 3 (Java), procedures 1 to 5.
class NodeCommandsTest : public CommandTest {
  protected:
    NodeCommandsTest() { MakeSample(); }

    nlohmann::ordered_json Show(const std::string& key) const {
        return DocumentOf(Run({"--json", "show", key}));
    }
    /// All that the catalogue holds, as far as these commands reach.
    std::string Everything() const {
        std::string all;
        for (const std::string query :
             {"qryAppNameRS", "qryLanguage", "qryCommonWordRS", "qryAllSearchWords", "qryFavorite"})
            all += Run({"--json", "query", query}).output;
        for (const Words& words : {Words{"authors"}, Words{"dates"}, Words{"keywords"}})
            all += Run(words).output;
        for (const std::string key : {"a2", "a2f2", "a2f3", "a2f2c1", "a2f2c2", "a2f3c4"})
            all += Show(key).dump();
        return all;
    }
    void ExpectDone(const Words& words, const std::string& output, const std::string& typed = {}) {
        const CommandResult result = Run(words, typed);
        EXPECT_EQ(result.status, kDone) << ::testing::PrintToString(words) << result.error;
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.output, output) << ::testing::PrintToString(words);
    }
};

TEST_F(NodeCommandsTest, AddEachKindWithAllItsFields) {
    WriteBytes(folder_.File("comment"), "Reads\ngauges.\n");
    ExpectDone({"add", "application", "Gauges", "--path", "/home/gauges", "--app-version", "2",
                "--comment", "All of them", "--authors", "Ann Lee; Ray, Bob", "--dates",
                "3/14/2001", "--keywords", "gauge/tide", "--separator", "slash"},
               "Added: a3  Gauges\n");
    ExpectDone({"add", "class", "Reader", "--application", "a3", "--language", "c++", "--path",
                "src/Reader.cpp", "--comment-from", folder_.File("comment"), "--text-from", "-"},
               "Added: a3f4  Reader\n", "class Reader {\n};\n");
    ExpectDone({"add", "procedure", "read()", "--class", "a3f4", "--code-from", "-"},
               "Added: a3f4c6  read()\n", "int read() { return '\xe4'; }\r\n");

    const auto application = Show("a3");
    EXPECT_EQ(application["path"], "\\home\\gauges") << "as an import of that folder looks for it";
    EXPECT_EQ(application["version"], "2");
    EXPECT_EQ(application["comment"], "All of them");
    EXPECT_EQ(application["authors"].dump(),
              R"([{"authorID":3,"first":"Ann","middle":"","last":"Lee"},)"
              R"({"authorID":4,"first":"Bob","middle":"","last":"Ray"}])");
    EXPECT_EQ(application["dates"].dump(), R"(["2001-03-14"])");
    EXPECT_EQ(application["keywords"]["searchWords"], "gauge tide");
    const auto reader = Show("a3f4");
    EXPECT_EQ(reader["path"], "src\\Reader.cpp");
    EXPECT_EQ(reader["language"], "C++");
    EXPECT_EQ(reader["text"], "class Reader {\r\n};\r\n/***Procedure read()***/");
    EXPECT_NE(reader["comment"].get<std::string>().find("\r\n*Reads\r\n*gauges.\r\n"),
              std::string::npos);
    const auto read = Show("a3f4c6");
    EXPECT_EQ(read["code"], "int read() { return '\u00e4'; }");
    EXPECT_EQ(read["language"], "C++");
    EXPECT_EQ(read["keywords"], nullptr);

    // Without a parent, and with a name of which every quote and letter counts.
    const std::string name = "It's \"\U0001F58D\" \u05e9\u05dc\u05d5\u05dd";
    ExpectDone({"add", "class", name, "--language", "HTML"}, "Added: a1f5  " + name + "\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "add", "procedure", name, "--code-from", "-"})).dump(),
              R"({"key":"a1f1c7","kind":"procedure","name":")" +
                  nlohmann::ordered_json(name).dump().substr(1) + "}");
}

TEST_F(NodeCommandsTest, EditOnlyWhatIsGiven) {
    const auto before = Show("a2f2c1");
    ExpectDone({"edit", "a2f2c1", "--code-from", "-", "--authors", "Tom Okafor"},
               "Changed: a2f2c1  IsLeapYear\n", "Function IsLeapYear()\nEnd Function");
    auto after = Show("a2f2c1");
    EXPECT_EQ(after["code"], "Function IsLeapYear()\r\nEnd Function");
    EXPECT_EQ(after["authors"][0]["authorID"], 2);
    for (const std::string field : {"name", "comment", "language", "dates", "keywords", "class"})
        EXPECT_EQ(after[field], before[field]) << field;

    ExpectDone({"edit", "a2f2c1", "--comment", "", "--keywords", "", "--dates", "2001-03-14"},
               "Changed: a2f2c1  IsLeapYear\n");
    after = Show("a2f2c1");
    EXPECT_EQ(after["comment"], "");
    EXPECT_EQ(after["keywords"], nullptr);
    EXPECT_EQ(after["dates"].dump(), R"(["2001-03-14"])");
    EXPECT_EQ(after["code"], "Function IsLeapYear()\r\nEnd Function");

    ExpectDone({"edit", "a2f2", "--separator", "|"}, "Changed: a2f2  modCalendar\n");
    EXPECT_EQ(Show("a2f2")["keywords"]["text"], "calendar, leap year, month");
    EXPECT_EQ(Show("a2f2")["keywords"]["separator"], "Vertical bar");
}

TEST_F(NodeCommandsTest, MoveANodeWithItsMarkerAndBookmark) {
    ExpectDone({"bookmarks", "--add", "a2f2c1"}, "Bookmarked: a2f2c1  IsLeapYear\n");
    ExpectDone({"edit", "a2f2c1", "--class", "a2f3"}, "Changed: a2f3c1  IsLeapYear\n");
    EXPECT_EQ(Show("a2f2")["text"].get<std::string>().find("IsLeapYear"), std::string::npos);
    EXPECT_TRUE(Show("a2f3")["text"].get<std::string>().ends_with("/***Procedure IsLeapYear***/"));
    ASSERT_EQ(Run({"add", "application", "Other"}).status, kDone);
    ExpectDone({"edit", "a2f3", "--application", "a3"}, "Changed: a3f3  HeightRing\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "bookmarks"}))["bookmarks"][0]["key"], "a3f3c1");
}

TEST_F(NodeCommandsTest, SayWhichProceduresATextHasLost) {
    const CommandResult result =
        Run({"edit", "a2f2", "--text-from", "-"}, "Option Explicit\n'***Procedure IsLeapYear***\n");
    EXPECT_EQ(result.status, kDone);
    EXPECT_NE(result.error.find("DayOfYear, DaysInMonth"), std::string::npos) << result.error;
    EXPECT_EQ(result.error.find("IsLeapYear"), std::string::npos) << result.error;
    // Another language has other markers.
    EXPECT_EQ(Run({"edit", "a2f2", "--language", "Java"}).error, "");
    EXPECT_EQ(Show("a2f2")["text"], "Option Explicit\r\n/***Procedure IsLeapYear***/");
}

TEST_F(NodeCommandsTest, RenameANodeAndTheMarkerOfAProcedure) {
    ExpectDone({"rename", "a2f2c1", "IsLeap"}, "Renamed: a2f2c1  IsLeap\n");
    EXPECT_NE(Show("a2f2")["text"].get<std::string>().find("'***Procedure IsLeap***"),
              std::string::npos);
    ExpectDone({"rename", "a2f2c1", "ISLEAP"}, "Renamed: a2f2c1  ISLEAP\n");
    ExpectDone({"rename", "a2", "--", "-x-"}, "Renamed: a2  -x-\n");
    ExpectDone({"rename", "a2f3", std::string(255, 'n')},
               "Renamed: a2f3  " + std::string(255, 'n') + "\n");
}

TEST_F(NodeCommandsTest, DeleteWhatIsBelowTooAndSayItBefore) {
    const CommandResult refused = Run({"delete", "a2f2"});
    EXPECT_EQ(refused.status, kFailed);
    EXPECT_NE(refused.error.find("Delete the class 'modCalendar' with its 3 procedures?"),
              std::string::npos)
        << refused.error;
    EXPECT_NE(refused.error.find("trash"), std::string::npos);
    EXPECT_EQ(Run({"--no", "delete", "a2f2"}).status, kFailed);
    EXPECT_EQ(Show("a2f2")["procedures"].size(), 3U);

    EXPECT_EQ(Run({"--yes", "delete", "a2f2"}).output, "Deleted: a2f2  modCalendar\n");
    EXPECT_EQ(Run({"show", "a2f2c1"}).status, kFailed);
    EXPECT_EQ(Run({"--yes", "delete", "a2f3c4"}).output,
              "Deleted: a2f3c4  HeightRing.add(double height)\n");
    EXPECT_EQ(Show("a2f3")["text"].get<std::string>().find("HeightRing.add"), std::string::npos);

    const CommandResult application = Run({"--yes", "--json", "delete", "a2"});
    EXPECT_NE(application.error.find("with its 1 class and 1 procedure?"), std::string::npos)
        << application.error;
    EXPECT_EQ(DocumentOf(application).dump(),
              R"({"key":"a2","kind":"application","name":"Tide Tables","stays":false,)"
              R"("classes":1,"procedures":1})");
    EXPECT_EQ(Run({"tree"}).output, "");
    EXPECT_EQ(Run({"--yes", "delete", "a2"}).status, kFailed);
}

TEST_F(NodeCommandsTest, CopyAClassWithItsProceduresAndAProcedureByItself) {
    ASSERT_EQ(Run({"add", "application", "Other"}).status, kDone);
    ExpectDone({"copy", "a2f3", "a3"}, "Copied: a3f4  HeightRing\n");
    ExpectDone({"copy", "a2f3", "a3", "--name", "Ring"}, "Copied: a3f5  Ring\n");
    ExpectDone({"copy", "a2f2c1", "a3f5", "--name", "Again"}, "Copied: a3f5c10  Again\n");
    EXPECT_EQ(Show("a3f5c10")["code"], Show("a2f2c1")["code"]);
    const auto copy = Show("a3f4");
    const auto original = Show("a2f3");
    for (const std::string field : {"text", "comment", "path", "language", "authors", "dates"})
        EXPECT_EQ(copy[field], original[field]) << field;
    EXPECT_EQ(copy["procedures"].size(), 2U);
    EXPECT_EQ(Show("a3f4c7")["code"], Show("a2f3c5")["code"]);
}

TEST_F(NodeCommandsTest, EmptyWhatIsPermanentAndSayThatItStays) {
    Execute("UPDATE tblClass SET appID = 1 WHERE classID = 2");
    Execute("UPDATE tblCode SET classID = 1 WHERE codeID = 5");
    const CommandResult aClass = Run({"--yes", "delete", "a1f1"});
    EXPECT_EQ(aClass.output, "Emptied: a1f1  Class/Module Undefined\n");
    EXPECT_NE(aClass.error.find("Delete all that is in the class 'Class/Module Undefined', 1 "
                                "procedure? It stays itself, empty."),
              std::string::npos)
        << aClass.error;
    const CommandResult application = Run({"--yes", "delete", "a1"});
    EXPECT_EQ(application.output, "Emptied: a1  Application Undefined\n");
    EXPECT_NE(application.error.find("1 class and 3 procedures"), std::string::npos);
    Execute("UPDATE tblClass SET appID = 2 WHERE classID = 1");
    const CommandResult elsewhere = Run({"--yes", "delete", "a1"});
    EXPECT_NE(elsewhere.error.find(" 0 classes and 0 procedures?"), std::string::npos)
        << elsewhere.error;
    Execute("UPDATE tblClass SET appID = 1 WHERE classID = 1");
    EXPECT_EQ(Run({"tree", "a1"}).output,
              "a1  Application Undefined  (1 class)\n"
              "  a1f1  Class/Module Undefined  (0 procedures)\n");
}

TEST_F(NodeCommandsTest, RefuseBadInputWithAMessageAndWriteNothing) {
    const std::string longName(256, 'n');
    const std::string tooLong = "The name you specified is too long (over 255 characters).";
    const struct {
        Words words;
        int status;
        std::string message;
        std::string typed = {};
    } cases[] = {
        // clang-format off
        {{"add", "application", ""}, kFailed, "Please enter a name."},
        {{"add", "application", longName}, kFailed, tooLong},
        {{"add", "application", "two\nlines"}, kFailed, "cannot hold a line break"},
        {{"add", "application", "\u00A0\u3000"}, kFailed, "Please enter a name."},
        {{"add", "application", "bad \xff"}, kWrongUsage, "not valid UTF-8"},
        {{"add", "application", "tide tables"}, kFailed, "A application with the name you specified already exists."},
        {{"add", "application", "New", "--dates", "2001-03-14; soon"}, kFailed, "'soon' is no date"},
        {{"add", "application", "New", "--separator", "comma"}, kWrongUsage, "needs --keywords"},
        {{"add", "application", "New", "--keywords", "x", "--separator", "dash"}, kFailed, "There are: blank, comma, semicolon, slash, vertical bar."},
        {{"add", "application", "New", "--language", "C"}, kWrongUsage, "no option for an app"},
        {{"add", "module", "New"}, kWrongUsage, "not 'module'"},
        {{"add", "class", "New"}, kWrongUsage, "--language is missing"},
        {{"add", "class", "New", "--language", "Jaba"}, kFailed, "Did you mean 'Java'?"},
        {{"add", "class", "New", "--language", "C", "--application", "a9"}, kFailed, "The catalogue has no 'a9'. 'snippetarium-cli tree' prints"},
        {{"add", "class", "New", "--language", "C", "--application", "a2f2"}, kWrongUsage, "takes the key of an application"},
        {{"add", "procedure", "New", "--class", "a2f2"}, kWrongUsage, "--code-from is missing"},
        {{"add", "procedure", "isleapyear", "--class", "a2f2", "--code-from", "-"}, kFailed, "already exists"},
        {{"add", "procedure", "New", "--class", "a2f2", "--code-from", "-"}, kFailed, "it has 64,001 characters", std::string(64'001, 'x')},
        {{"add", "procedure", "New", "--class", "a2f2", "--code-from", "-"}, kFailed, "more than 1000000 bytes", std::string(1'000'001, 'x')},
        {{"add", "procedure", "New", "--code-from", folder_.File("missing")}, kFailed, "cannot be opened"},
        {{"add", "procedure", "New", "--code-from", folder_.Path()}, kFailed, "is a folder"},
        {{"add", "procedure", "New", "--code-from", "-", "--comment-from", "-"}, kWrongUsage, "Only one text can come from the standard input."},
        {{"edit", "a2"}, kWrongUsage, "no option says what"},
        {{"edit", "a2", "--code-from", "-"}, kWrongUsage, "no option for an application"},
        {{"edit", "a2", "--comment", "x", "--comment-from", "-"}, kWrongUsage, "exclude"},
        {{"edit", "a1f1", "--comment", "x"}, kFailed, "You cannot view or edit this class."},
        {{"edit", "a2f2c1", "--class", "a2"}, kWrongUsage, "takes the key of a class"},
        {{"edit", "a2f2c9", "--comment", "x"}, kFailed, "The catalogue has no 'a2f2c9'."},
        {{"edit", "a2f2c1", "--comment", "x", "--dates", "2001-02-29"}, kFailed, "is no date"},
        {{"rename", "a2f2c1", "DaysInMonth"}, kFailed, "Cannot rename: A procedure with the name you specified already exists in this class."},
        {{"rename", "a2f2", longName}, kFailed, tooLong},
        {{"rename", "a2f3c1", "x"}, kFailed, "The key of this procedure is 'a2f2c1'."},
        {{"show", "a1"}, kFailed, "You cannot view or edit this application."},
        {{"--yes", "delete", "a2f9"}, kFailed, "The catalogue has no 'a2f9'."},
        {{"copy", "a2f3", "a2"}, kFailed, "already exists"},
        {{"copy", "a1f3", "a2"}, kFailed, "The key of this class is 'a2f3'."},
        {{"copy", "a2", "a2"}, kWrongUsage, "What is copied is a class"},
        {{"copy", "a2f2c1", "a2"}, kWrongUsage, "A procedure is copied into a class"},
        {{"copy", "a2f2c1", "a2f2"}, kFailed, "already exists"},
        {{"copy", "a2f2c1", "a2f2", "--name", "a\tb"}, kFailed, "A name cannot hold a line break"},
        {{"copy", "a2f3", "a2f2"}, kWrongUsage, "copied into an application"},
        {{"authors", "a2", "--add", " "}, kFailed, "Please enter the author's name."},
        {{"authors", "a2", "--remove", "Ann Lee"}, kFailed, "'Ann Lee' is no author of 'a2'. 'snippetarium-cli authors a2' lists"},
        {{"authors", "--add", "Ann Lee"}, kWrongUsage, "KEY is missing"},
        {{"authors", "--rename", "9", "--to", "Ann Lee"}, kFailed, "no author with the number 9. 'snippetarium-cli authors' lists"},
        {{"authors", "--rename", "Tom", "--to", "Ann Lee"}, kWrongUsage, "takes a number"},
        {{"authors", "--rename", "1"}, kWrongUsage, "--rename and --to go together."},
        {{"dates", "a2", "--add", "2001-02-29"}, kFailed, "'2001-02-29' is no date."},
        {{"dates", "a2", "--remove", "soon"}, kFailed, "is no date of 'a2'. 'snippetarium-cli dates a2' lists"},
        {{"keywords", "a2", "--separator", "comma"}, kFailed, "has no keywords yet. Give it some with --set."},
        {{"keywords", "a2f2", "--set", "x", "--clear"}, kWrongUsage, "exclude"},
        {{"languages", "--add", "JAVA"}, kFailed, "The language you specified already exists."},
        {{"languages", "--delete", "Java"}, kFailed, "The language 'Java' cannot be deleted, because 3 classes and procedures have it."},
        {{"languages", "--delete", "Jav"}, kFailed, "There is no language 'Jav'."},
        {{"languages", "--delete", ""}, kFailed, "There is no language ''. 'snippetarium-cli"},
        {{"index", "--rename", "leap", "--to", "leap year"}, kFailed, "Please enter one word."},
        {{"index", "--rename", "leap", "--to", "the"}, kFailed, "'the' is a noise word"},
        {{"index", "--rename", "leaps", "--to", "x"}, kFailed, "The index has no word 'leaps'."},
        {{"index", "--rename", "leap"}, kWrongUsage, "--rename and --to go together."},
        {{"index", "leap", "--delete", "leap"}, kWrongUsage, "names its word itself"},
        {{"noise", "--add", " ;-! "}, kFailed, "There is no word in"},
        {{"noise", "--add", "ebb " + longName}, kFailed, "The word you specified is too long (over 255 characters)."},
        {{"noise", "--delete", "over there"}, kFailed, "'over there' is no noise word. 'snippetarium-cli noise' lists"},
        {{"bookmarks", "--add", "a2"}, kWrongUsage, "Classes and procedures are bookmarked"},
        {{"bookmarks", "--remove", "a2f2"}, kFailed, "'a2f2' is not bookmarked."},
        // clang-format on
    };
    const std::string before = Everything();
    for (const auto& [words, status, message, typed] : cases) {
        SCOPED_TRACE(::testing::PrintToString(words).substr(0, 200));
        const CommandResult result = Run(words, typed);
        EXPECT_EQ(result.status, status);
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.error.find(message), std::string::npos) << result.error;
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(NodeCommandsTest, GiveTheReasonOfARefusalInJson) {
    EXPECT_EQ(DocumentOf(Run({"--json", "languages", "--add", "java"})).dump(),
              R"({"error":{"code":5,"text":"The language you specified already exists. Nothing )"
              R"(was changed."}})");
}

TEST_F(NodeCommandsTest, ChangeNothingWhileAnotherProgramMayWrite) {
    FakeHost host;
    Database first(host.host, CatalogueProviders(), folder_.Path());
    ChildProcess program([&] { first.Open(); });
    const std::string before = ReadBytes(Catalogue());
    const Words commands[] = {
        {"add", "application", "New"},   {"edit", "a2", "--comment", "x"},
        {"rename", "a2", "x"},           {"copy", "a2f2", "a1"},
        {"--yes", "delete", "a2"},       {"keywords", "a2", "--set", "x"},
        {"authors", "a2", "--add", "x"}, {"dates", "a2", "--add", "1/1/2001"},
        {"bookmarks", "--add", "a2f2"},  {"languages", "--add", "x"},
        {"noise", "--add", "x"},
    };
    for (const Words& words : commands) {
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kFailed) << words.front();
        EXPECT_NE(result.error.find("in use by another program"), std::string::npos)
            << result.error;
    }
    EXPECT_TRUE(ReadBytes(Catalogue()) == before);
    // Looking is not changing.
    for (const Words& words : {Words{"show", "a2"}, Words{"keywords"}, Words{"authors", "a2"}})
        EXPECT_EQ(Run(words).status, kDone);
}

}  // namespace
}  // namespace snippetarium::test
