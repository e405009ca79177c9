#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/closest_names.h"
#include "cli/text_layout.h"
#include "cli/text_table.h"
#include "support/utf8.h"

namespace snippetarium {
namespace {

TEST(ClosestNames, ComeNearestFirst) {
    constexpr std::string_view kNames[] = {"backup",           "check",          "compact",
                                           "restore",          "qryAppNameRS",   "qryAppNameByID",
                                           "qryClassIDByName", "qryCodeNameByID"};
    using Names = std::vector<std::string>;
    const struct {
        std::string_view typed;
        Names expected;
    } cases[] = {
        {"chekc", {"check"}},
        {"CHECK", {"check"}},
        {"compct", {"compact"}},
        {"xyz", {}},
        {"", {}},
        {"a", {}},
        {"qryAppNameBID", {"qryAppNameByID", "qryAppNameRS"}},
        {"namebyid", {"qryAppNameByID", "qryCodeNameByID"}},
        {"qry", {"qryAppNameRS", "qryAppNameByID", "qryCodeNameByID"}},
    };
    for (const auto& [typed, expected] : cases) {
        EXPECT_EQ(ClosestNames(typed, kNames, 3), expected) << typed;
    }
    EXPECT_EQ(ClosestNamesHint("chekc", kNames), " Did you mean 'check'?");
    EXPECT_EQ(ClosestNamesHint("namebyid", kNames),
              " Did you mean 'qryAppNameByID', 'qryCodeNameByID'?");
    EXPECT_EQ(ClosestNamesHint("xyz", kNames), "");
}

TEST(ReadNumber, TakesWholeNumbersOf32BitsOnly) {
    const struct {
        std::string_view text;
        std::optional<std::int32_t> expected;
    } cases[] = {
        {"0", 0},
        {"-5", -5},
        {"007", 7},
        {"2147483647", 2147483647},
        {"-2147483648", INT32_MIN},
        {"2147483648", std::nullopt},
        {"", std::nullopt},
        {"-", std::nullopt},
        {"+1", std::nullopt},
        {" 1", std::nullopt},
        {"1 ", std::nullopt},
        {"1e3", std::nullopt},
        {"0x10", std::nullopt},
        {std::string_view("1\0", 2), std::nullopt},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(ReadNumber(text), expected) << text;
}

TEST(OneLine, ShowsWhatBreaksALineAndHidesWhatSteersATerminal) {
    EXPECT_EQ(OneLine("one\r\ntwo\nthree\tfour"), "one\u23cetwo\u23cethree four");
    EXPECT_EQ(OneLine("red \x1b[31m \xff caf\u00e9"), "red ?[31m ? caf\u00e9");
    EXPECT_EQ(OneLine(""), "");
}

TEST(TextTable, AlignsByCharactersAndCutsLongCells) {
    TextTable table({"ID", "name"});
    using enum TextTable::Align;
    table.AddRow({{"7", Right}, {"caf\u00e9"}});
    table.AddRow({{"1234", Right}, {"x\r\ny"}});
    table.AddRow({{"", Right}, {std::string(40, 'a')}});
    table.AddRow({{"12", Right}, {std::string(39, 'b') + "\u00e9\u00e9"}});
    std::ostringstream output;
    table.Print(output);
    EXPECT_EQ(output.str(),
              "ID    name\n"
              "----  ----------------------------------------\n"
              "   7  caf\u00e9\n"
              "1234  x\u23cey\n"
              "      aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n"
              "  12  bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb\u2026\n");
}

TEST(TextLayout, BreaksAtBlanksAndKeepsEveryWord) {
    EXPECT_EQ(WrapParagraphs("", 2), "");
    EXPECT_EQ(WrapParagraphs("one two\n\nthree", 2), "  one two\n\n  three\n");
    EXPECT_EQ(DefinitionRow("tree", "prints", 8), "  tree  prints\n");
    EXPECT_EQ(DefinitionRow("longer", "prints", 8), "  longer\n        prints\n");

    const std::string unbroken(100, 'x');
    EXPECT_EQ(WrapParagraphs("a " + unbroken + " b", 0), "a\n" + unbroken + "\nb\n");
    // Whatever the words' lengths are, lines are as full as 80 columns allow.
    for (std::size_t length = 1; length < 80; ++length) {
        std::string text;
        for (int i = 0; i < 30; ++i)
            text += std::string(length, 'w') + " ";
        std::istringstream lines(WrapParagraphs(text, 0));
        const std::size_t wordsInLine = 81 / (length + 1);
        std::string line;
        ASSERT_TRUE(std::getline(lines, line));
        EXPECT_EQ(line.size(), std::min<std::size_t>(wordsInLine, 30) * (length + 1) - 1);
    }
}

}  // namespace
}  // namespace snippetarium
