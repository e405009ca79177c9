#include <gtest/gtest.h>

#include "store/names.h"
#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

using QueryCommandTest = CommandTest;

TEST_F(QueryCommandTest, PrintsRowsAsATable) {
    MakeSample();
    const struct {
        std::vector<std::string> words;
        std::string_view expected;
    } cases[] = {
        {{"qryAuthorsRSByOwner", "2", "1"},
         "authorID  authorFName  authorMName  authorLName\n"
         "--------  -----------  -----------  -----------\n"
         "       1  Marta        J.           Lindqvist\n"
         "       2  Tom                       Okafor\n"
         "(2 rows)\n"},
        {{"QRYAPPNAMEBYID", "2"}, "appName\n-----------\nTide Tables\n(1 row)\n"},
        {{"qryAppNameByID", "-2"}, "appName\n-------\n(0 rows)\n"},
        {{"qryCodeIDByCodeNameClassID", "isleapyear", "2"}, "codeID\n------\n     1\n(1 row)\n"},
    };
    for (const auto& [words, expected] : cases) {
        std::vector<std::string> line = words;
        line.insert(line.begin(), "query");
        const CommandResult result = Run(line);
        EXPECT_EQ(result.status, kDone) << result.error;
        EXPECT_EQ(result.output, expected);
    }
}

TEST_F(QueryCommandTest, CutsLongTextsForPeopleAndNotInJson) {
    MakeSample();
    const std::string code =
        "Public Function DayOfYear(ByVal someDay As Date) As Integer\r\n"
        "    DayOfYear = someDay - DateSerial(Year(someDay), 1, 1) + 1\r\n"
        "End Function";
    const CommandResult text = Run({"query", "qryCodeByID", "3"});
    EXPECT_NE(text.output.find("Public Function DayOfYear(ByVal someDay\u2026  "),
              std::string::npos)
        << text.output;
    EXPECT_EQ(text.output.find("End Function"), std::string::npos);

    auto document = DocumentOf(Run({"--json", "query", "qryCodeByID", "3"}));
    EXPECT_EQ(document["query"], "qryCodeByID");
    ASSERT_EQ(document["rows"].size(), 1U);
    EXPECT_EQ(document["rows"][0]["code"], code);
    EXPECT_EQ(document["rows"][0]["codeID"], 3);
    EXPECT_EQ(document["rows"][0]["codeComment"], nullptr);
}

TEST_F(QueryCommandTest, ListsTheQueriesAndEachOfThemRuns) {
    MakeSample();
    const auto queries = DocumentOf(Run({"--json", "query"}))["queries"];
    ASSERT_EQ(queries.size(), StoredQueries().size());
    const std::string list = Run({"query"}).output;
    for (const auto& query : queries) {
        const std::string name = query["name"];
        EXPECT_NE(list.find(name), std::string::npos);
        std::vector<std::string> words = {"--json", "query", name};
        for (const auto& parameter : query["parameters"]) {
            words.push_back(parameter["kind"] == "number" ? "2" : "IsLeapYear");
        }
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kDone) << name << ": " << result.error;
        EXPECT_TRUE(DocumentOf(result)["rows"].is_array()) << name;
    }
}

}  // namespace
}  // namespace snippetarium::test
