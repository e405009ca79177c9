#include <gtest/gtest.h>

#include "tests/cli/command_runner.h"

namespace snippetarium::test {
namespace {

class TreeCommandTest : public CommandTest {
  protected:
    TreeCommandTest() { MakeSample(); }
};

constexpr std::string_view kCalendar =
    "  a2f2  modCalendar  (3 procedures)\n"
    "    a2f2c3  DayOfYear\n"
    "    a2f2c2  DaysInMonth\n"
    "    a2f2c1  IsLeapYear\n";
constexpr std::string_view kRing =
    "  a2f3  HeightRing  (2 procedures)\n"
    "    a2f3c4  HeightRing.add(double height)\n"
    "    a2f3c5  HeightRing.mean()\n";

TEST_F(TreeCommandTest, PrintsTheNodesBelowTheKeyDownToTheDepth) {
    const std::string whole =
        "a2  Tide Tables  (2 classes)\n" + std::string(kRing) + std::string(kCalendar);
    const struct {
        std::vector<std::string> words;
        std::string expected;
    } cases[] = {
        {{"tree"}, whole},
        {{"tree", "--depth", "3"}, whole},
        {{"tree", "--depth", "2"},
         "a2  Tide Tables  (2 classes)\n"
         "  a2f3  HeightRing  (2 procedures)\n"
         "  a2f2  modCalendar  (3 procedures)\n"},
        {{"tree", "--depth", "1"}, "a2  Tide Tables  (2 classes)\n"},
        {{"tree", "a2"}, whole},
        {{"tree", "a2", "--depth", "1"}, "a2  Tide Tables  (2 classes)\n"},
        {{"tree", "a2f3"},
         "a2f3  HeightRing  (2 procedures)\n"
         "  a2f3c4  HeightRing.add(double height)\n"
         "  a2f3c5  HeightRing.mean()\n"},
        {{"tree", "a2f3", "--depth", "1"}, "a2f3  HeightRing  (2 procedures)\n"},
        {{"tree", "a2f2c1"}, "a2f2c1  IsLeapYear\n"},
        // The undefined application is there, although the whole tree leaves it out while it is
        // empty.
        {{"tree", "a1"},
         "a1  Application Undefined  (1 class)\n"
         "  a1f1  Class/Module Undefined  (0 procedures)\n"},
    };
    for (const auto& [words, expected] : cases) {
        const CommandResult result = Run(words);
        EXPECT_EQ(result.status, kDone) << result.error;
        EXPECT_EQ(result.output, expected) << ::testing::PrintToString(words);
        EXPECT_EQ(result.error, "");
    }
}

TEST_F(TreeCommandTest, PutsTheUndefinedApplicationFirstWhenItHoldsSomething) {
    Execute("INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('Stray', 'x', 1)");
    const std::string tree = Run({"tree"}).output;
    EXPECT_EQ(tree.find("a1  Application Undefined  (1 class)\n"
                        "  a1f1  Class/Module Undefined  (1 procedure)\n"
                        "    a1f1c6  Stray\n"
                        "a2  Tide Tables"),
              0U)
        << tree;
}

TEST_F(TreeCommandTest, KeepsANameOnOneLine) {
    Execute("UPDATE tblApplication SET appName = 'Two\r\nlines\tand \x1b[31mred' WHERE appID = 2");
    EXPECT_EQ(Run({"tree", "--depth", "1"}).output,
              "a2  Two\u23celines and ?[31mred  (2 classes)\n");
    EXPECT_EQ(DocumentOf(Run({"--json", "tree"}))["nodes"][0]["name"],
              "Two\r\nlines\tand \x1b[31mred");
}

TEST_F(TreeCommandTest, NestsTheNodesInJson) {
    Execute("INSERT INTO tblApplication(appName) VALUES('Empty');");
    EXPECT_EQ(DocumentOf(Run({"--json", "tree"})).dump(), nlohmann::ordered_json::parse(R"json({
        "nodes": [
            {"key": "a3", "kind": "application", "name": "Empty", "count": 0},
            {"key": "a2", "kind": "application", "name": "Tide Tables", "count": 2, "children": [
                {"key": "a2f3", "kind": "class", "name": "HeightRing", "count": 2, "children": [
                    {"key": "a2f3c4", "kind": "procedure", "name": "HeightRing.add(double height)"},
                    {"key": "a2f3c5", "kind": "procedure", "name": "HeightRing.mean()"}]},
                {"key": "a2f2", "kind": "class", "name": "modCalendar", "count": 3, "children": [
                    {"key": "a2f2c3", "kind": "procedure", "name": "DayOfYear"},
                    {"key": "a2f2c2", "kind": "procedure", "name": "DaysInMonth"},
                    {"key": "a2f2c1", "kind": "procedure", "name": "IsLeapYear"}]}]}]})json")
                                                              .dump());
    EXPECT_EQ(
        DocumentOf(Run({"--json", "tree", "a2f2", "--depth", "1"})).dump(),
        R"json({"nodes":[{"key":"a2f2","kind":"class","name":"modCalendar","count":3}]})json");
}

TEST_F(TreeCommandTest, RefusesANodeThatIsNotThereAndNamesTheKeyOfOneThatIsElsewhere) {
    const std::string list = " 'snippetarium-cli tree' prints the keys it has.";
    const struct {
        std::string key;
        std::string hint;
    } cases[] = {
        {"a3", list},
        {"a2147483647", list},
        {"a2f1", " The key of this class is 'a1f1'."},
        {"a1f2", " The key of this class is 'a2f2'."},
        {"a3f2", " The key of this class is 'a2f2'."},
        {"a2f4", list},
        {"a2f3c1", " The key of this procedure is 'a2f2c1'."},
        {"a2f0c1", " The key of this procedure is 'a2f2c1'."},
        {"a2f2c9", list},
    };
    for (const auto& [key, hint] : cases) {
        const std::string message = "The catalogue has no '" + key + "'." + hint;
        const CommandResult result = Run({"tree", key});
        EXPECT_EQ(result.status, kFailed) << key;
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error, "snippetarium-cli: " + message + "\n");
        EXPECT_EQ(DocumentOf(Run({"--json", "tree", key}))["error"]["text"], message);
    }
}

}  // namespace
}  // namespace snippetarium::test
