#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using Words = std::vector<std::string>;

class SearchCommandTest : public CommandTest {
  protected:
    SearchCommandTest() { MakeSample(); }

    std::string Output(const Words& words) const {
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kDone) << result.error;
        return result.output;
    }
    /// The keys of the topics that a run lists as a document, sorted, with blanks between them.
    static std::string KeysOf(const CommandResult& result) {
        EXPECT_EQ(result.status, kDone) << result.error;
        std::set<std::string> sorted;
        const auto document = DocumentOf(result);
        for (const auto& topic : document["topics"])
            sorted.insert(topic["key"].get<std::string>());
        std::string keys;
        for (const std::string& key : sorted)
            keys.append(keys.empty() ? "" : " ").append(key);
        return keys;
    }
    /// The keys of the hits of quick search, in their order.
    static std::string KeysOfHits(const CommandResult& result) {
        EXPECT_EQ(result.status, kDone) << result.error;
        std::string keys;
        const auto document = DocumentOf(result);
        for (const auto& hit : document["hits"])
            keys.append(keys.empty() ? "" : " ").append(hit["key"].get<std::string>());
        return keys;
    }
    std::string Keys(Words words) const {
        words.insert(words.begin(), "--json");
        return KeysOf(Run(words));
    }
};

TEST_F(SearchCommandTest, PrintsTopicsWithTheirKeysInTheTree) {
    EXPECT_EQ(Output({"search", "keyword", "leap"}),
              "key     procedure   class        application\n"
              "------  ----------  -----------  -----------\n"
              "a2f2                modCalendar  Tide Tables\n"
              "a2f2c1  IsLeapYear  modCalendar  Tide Tables\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "search", "keyword", "leap"})).dump(),
              R"({"topics":[{"key":"a2f2","kind":"class","application":"Tide Tables",)"
              R"("class":"modCalendar"},{"key":"a2f2c1","kind":"procedure","application":)"
              R"("Tide Tables","class":"modCalendar","procedure":"IsLeapYear"}]})");
}

TEST_F(SearchCommandTest, FindsByLanguageAndDates) {
    const struct {
        Words words;
        std::string_view keys;
    } cases[] = {
        {{"keyword", "leap queue", "--language", "java"}, "a2f3 a2f3c5"},
        {{"author", "Marta"}, "a2"},
        {{"date", "--from", "Nov 7, 1999", "--to", "1999-11-07"}, "a2"},
        {{"date", "--from", "1999-11-08", "--to", "1999-11-07"}, ""},
    };
    for (const auto& [words, keys] : cases) {
        Words line = words;
        line.insert(line.begin(), "search");
        EXPECT_EQ(Keys(line), keys) << words[0] << " " << words[1];
    }
}

TEST_F(SearchCommandTest, FindsWhatTheUsersGuideSaysThatItFinds) {
    const std::string demonstrated = DocumentOf(RunDemonstration({"--json"}))["folder"];
    const std::regex example(R"(\| (\w+) \| `(.+)` \| ([a-z0-9 ]*?) ?\|)");
    std::ifstream guide(SNIPPETARIUM_SEARCH_GUIDE);
    int count = 0;
    for (std::string line; std::getline(guide, line);) {
        std::smatch part;
        if (!std::regex_match(line, part, example)) continue;
        ++count;
        if (part[1] == "find") {
            EXPECT_EQ(KeysOfHits(RunProgram({"--folder", demonstrated, "--json", "find", part[2]})),
                      part[3])
                << line;
            continue;
        }
        EXPECT_EQ(
            KeysOf(RunProgram({"--folder", demonstrated, "--json", "search", part[1], part[2]})),
            part[3])
            << line;
    }
    EXPECT_GT(count, 40);
}

TEST_F(SearchCommandTest, PrintsTheStatementThatRanAlsoWhenItWasRefused) {
    const std::string output = Output({"search", "code", "DateSerial", "--sql"});
    EXPECT_EQ(output.find("SELECT a.appName, a.appID, "), 0U) << output;
    EXPECT_NE(output.find("cd.Code LIKE '%DateSerial%'  OR cls.classDI LIKE '%DateSerial%' ;\n\n"
                          "key "),
              std::string::npos)
        << output;
    EXPECT_EQ(DocumentOf(Run({"--json", "search", "name", "leap", "--sql"}))["sql"],
              "EXECUTE qryCodeClassAppRSByName 'leap';");

    const CommandResult refused = Run({"search", "code", "it's", "--sql"});
    EXPECT_EQ(refused.status, kFailed);
    EXPECT_NE(refused.output.find("LIKE '%it's%'"), std::string::npos) << refused.output;
    EXPECT_NE(refused.error.find("11154"), std::string::npos) << refused.error;
}

TEST_F(SearchCommandTest, FailsForARefusedEntryAndNotForOneThatFindsNothing) {
    const CommandResult refused = Run({"--json", "search", "code", "(leap", "--sql"});
    EXPECT_EQ(refused.status, kFailed);
    EXPECT_EQ(DocumentOf(refused)["error"]["text"],
              "There is an error with the brackets in your search entry. Please modify your "
              "search entry and try again. Nothing was searched.");

    const CommandResult nothing = Run({"search", "code", "nowhere"});
    EXPECT_EQ(nothing.status, kDone);
    EXPECT_NE(nothing.error.find("No topics found."), std::string::npos);
}

TEST_F(SearchCommandTest, RefusesWhatMakesNoSense) {
    const struct {
        Words words;
        std::string_view part;
    } cases[] = {
        {{"search", "keywords", "x"}, "Did you mean"},
        {{"search", "code"}, "ENTRY"},
        {{"search", "code", "x", "--from", "2001-01-01"}, "--from and --to are for"},
        {{"search", "date"}, "takes --from and --to"},
        {{"search", "date", "--from", "2001-01-01"}, "takes --from and --to"},
        {{"search", "date", "--from", "soon", "--to", "2001-01-01"}, "'soon' is no date"},
        {{"search", "date", "x", "--from", "2001-01-01", "--to", "2001-01-01"}, "no ENTRY"},
    };
    for (const auto& [words, part] : cases) {
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kWrongUsage) << part;
        EXPECT_NE(result.error.find(part), std::string::npos) << result.error;
    }
    EXPECT_EQ(Run({"search", "code", "x", "--language", "Klingon"}).status, kFailed);
}

TEST_F(SearchCommandTest, ListsTheIndexAndWhatHasAWordOfIt) {
    EXPECT_EQ(Output({"index"}), "buffer\ncalendar\nleap\nmonth\nqueue\nring\nyear\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "index"}))["words"].size(), 7U);
    EXPECT_EQ(Keys({"index", "LEAP"}), "a2f2 a2f2c1");
    const CommandResult unknown = Run({"index", "lep"});
    EXPECT_EQ(unknown.status, kFailed);
    EXPECT_NE(unknown.error.find("The index has no word 'lep'. Did you mean 'leap'"),
              std::string::npos)
        << unknown.error;
}

}  // namespace
}  // namespace snippetarium::test
