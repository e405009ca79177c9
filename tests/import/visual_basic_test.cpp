#include "import/visual_basic.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/import/class_in_memory.h"
#include "tests/import/cut_basic.h"

namespace snippetarium {
namespace {

using test::CutUndisturbed;

/// A text written with "|" for its line breaks.
std::string Lines(std::string_view text) {
    std::string lines;
    for (const char character : text)
        character == '|' ? lines += "\r\n" : lines += character;
    return lines;
}

struct HeaderRow {
    std::string_view text;
    std::string_view header;
    /// Without the marker of the one procedure, which is "Sub A()".
    std::string_view left;
    std::string_view procedureComment;
};

void ExpectCut(const HeaderRow& row) {
    const CutFile file = CutUndisturbed(Lines(row.text), CutVisualBasic);
    EXPECT_EQ(file.comment, Lines(row.header)) << row.text;
    EXPECT_EQ(file.text, Lines(row.left)) << row.text;
    const bool hasComment = !file.procedures.empty() && !file.procedures.front().comment.empty();
    EXPECT_EQ(hasComment ? file.procedures.front().comment : "", Lines(row.procedureComment))
        << row.text;
}

TEST(VisualBasicHeader, IsTheBlockAboveTheFirstOptionExplicit) {
    constexpr HeaderRow kRows[] = {
        {"'h|Option Explicit|x", "'h", "Option Explicit|x", ""},
        {"a|'h|option explicit|x", "'h", "a|option explicit|x", ""},
        {"a||'h|Option Explicit|x", "'h", "a|Option Explicit|x", ""},
        {"a|||'h||'i||Option Explicit|x", "'h||'i|", "a||Option Explicit|x", ""},
        {"'top|a|'h|Option Explicit|x", "'h", "'top|a|Option Explicit|x", ""},
        {"' Option Explicit below|Option Explicit", "' Option Explicit below", "Option Explicit",
         ""},
        // Export would write it elsewhere.
        {"'h|  Option Explicit|x", "", "'h|  Option Explicit|x", ""},
        {"'h|Option  Explicit|x", "'h", "Option  Explicit|x", ""},
        {"a 'no Option Explicit|'h|Option Explicit", "", "a 'no Option Explicit|'h|Option Explicit",
         ""},
        {"a|'h|b|Option Explicit|x", "", "a|'h|b|Option Explicit|x", ""},
        {"'h|x|Option Explicit", "", "'h|x|Option Explicit", ""},
    };
    for (const HeaderRow& row : kRows)
        ExpectCut(row);
}

TEST(VisualBasicHeader, IsTheBlockOnTopWhereThereIsNoOptionExplicit) {
    constexpr HeaderRow kRows[] = {
        {"'h|x|", "'h", "x", ""},
        {"'h||'i|||x|", "'h||'i", "||x", ""},
        {"'h|'i|", "'h|'i", "", ""},
        {"a|'h|x|", "", "a|'h|x", ""},
        {"|'h|x|", "", "|'h|x", ""},
        {"'h|x = \"option explicit\"|", "", "'h|x = \"option explicit\"", ""},
        {"'h|x|Sub A()|'Option Explicit|End Sub", "", "'h|x|||", ""},
    };
    for (const HeaderRow& row : kRows)
        ExpectCut(row);
}

TEST(VisualBasicHeader, LeavesTheFirstProcedureItsComment) {
    constexpr HeaderRow kRows[] = {
        {"'c|Sub A()|End Sub", "", "||", "'c"},
        {"'h||Sub A()|End Sub", "'h", "|||", ""},
        {"'h|||'c|'d|Sub A()|End Sub", "'h", "||||", "'c|'d"},
        {"'h|x|'c||'d||Sub A()|End Sub", "'h", "x|||", "'c||'d|"},
        {"'h|Option Explicit|'c|Sub A()|End Sub", "'h", "Option Explicit|||", "'c"},
        {"'h||'c|Sub A()|'Option Explicit|End Sub", "", "||", "'h||'c"},
        {"'h||Sub Main|End Sub", "'h", "|Sub Main|End Sub", ""},
        {"'h|Sub Main|End Sub", "", "'h|Sub Main|End Sub", ""},
    };
    for (const HeaderRow& row : kRows)
        ExpectCut(row);
}

TEST(VisualBasic, TakesBlankLinesBelowAProcedureIntoTheBreaksBehindItsMarker) {
    struct Row {
        std::string_view below;
        std::string_view left;
    };
    constexpr Row kRows[] = {
        {"", "||"},      {"|", "||"},       {"||", "||"},      {"|||", "||"},
        {"||||", "||"},  {"|||||", "|||"},  {"|x", "||x"},     {"||x", "||x"},
        {"|||x", "||x"}, {"||||x", "|||x"}, {"| |x", "|| |x"}, {"|||x|", "||x"},
    };
    for (const Row& row : kRows) {
        const std::string text = Lines("Sub A()|End Sub" + std::string(row.below));
        const CutFile file = CutUndisturbed(text, CutVisualBasic);
        EXPECT_EQ(file.text, Lines(row.left)) << row.below;
        ASSERT_EQ(file.procedures.size(), 1U);
        EXPECT_EQ(file.procedures.front().code, Lines("Sub A()|End Sub|")) << row.below;
    }
}

TEST(VisualBasic, KeepsBlankLinesBelowAProcedureWithoutEndOutOfIt) {
    const CutFile file = CutUndisturbed(Lines("Sub A()|x||||||"), CutVisualBasic);
    ASSERT_EQ(file.procedures.size(), 1U);
    EXPECT_EQ(file.procedures.front().code, Lines("Sub A()|x|"));
    EXPECT_EQ(file.text, Lines("||||"));
}

TEST(VisualBasic, GivesCommentsBetweenProceduresToTheNextUnlessOtherLinesFollow) {
    const CutFile file = CutUndisturbed(
        Lines("Sub A()|End Sub|||'1||'2|Sub B()|End Sub|'3|#End If|'4||Sub C()|End Sub|'5"),
        CutVisualBasic);
    ASSERT_EQ(file.procedures.size(), 3U);
    EXPECT_EQ(file.procedures[1].comment, Lines("'1||'2"));
    EXPECT_EQ(file.procedures[2].comment, Lines("'4|"));
    EXPECT_EQ(file.text, Lines("||||'3|#End If|||'5"));
    EXPECT_EQ(file.procedures[1].position, 4U);
    EXPECT_EQ(file.procedures[2].position, Lines("||||'3|#End If|").size());
}

TEST(VisualBasic, LeavesAProcedureWithoutNameInTheText) {
    const CutFile file =
        CutUndisturbed(Lines("'m|Sub Main|Sub B()|x|End Sub|||'c|Sub C()|End Sub"), CutVisualBasic);
    ASSERT_EQ(file.procedures.size(), 2U);
    EXPECT_EQ(file.procedures[0].name, "");
    EXPECT_EQ(file.procedures[0].code, "");
    EXPECT_EQ(file.procedures[1].name, "C()");
    EXPECT_EQ(file.text, Lines("'m|Sub Main|Sub B()|x|End Sub|||||"));
}

TEST(VisualBasic, ReportsTheLineAtWhichAProcedureRunsIntoTheNext) {
    const CutFile file =
        CutUndisturbed(Lines("|'c|Private Sub A( _|)|'Sub X()||Function B()|End Function|End Sub|"
                             "Sub Main|Sub C()|End Sub|Sub D()"),
                       CutVisualBasic);
    EXPECT_EQ(
        file.problems,
        (std::vector<std::string>{
            "The procedure A( ) of line 3 has no end before line 7, where another one begins.",
            "The procedure of line 10 has no end before line 11, where another one begins."}));
}

TEST(VisualBasic, TakesItsNameFromTheFirstAttributeAboveAllProcedures) {
    constexpr std::pair<std::string_view, std::string_view> kRows[] = {
        {"\tAttribute  VB_Name = \"one\"|Attribute VB_Name = \"two\"", "one"},
        {"Attribute VB_Name = \"\"|Attribute VB_Name = \"two\"", "two"},
        {"'Attribute VB_Name = \"no\"|Sub A()|End Sub|Attribute VB_Name = \"no\"", ""},
        {"Sub A()|Attribute VB_Name = \"no\"|End Sub", ""},
    };
    for (const auto& [text, name] : kRows)
        EXPECT_EQ(CutUndisturbed(Lines(text), CutVisualBasic).className, name) << text;
}

TEST(VisualBasic, LosesNothingWhenItIsCancelled) {
    const std::string text = Lines("'h||Sub A()|1|End Sub|Sub B()|2|End Sub|");
    for (int line = 1; line <= 8; ++line) {
        test::FakeHost world;
        ImportState state;
        world.events.At(line, [&] { state.importCancelled = true; });
        LineProgress progress(world.host, state, 0);
        const CutFile file = CutVisualBasic(text, progress);
        EXPECT_EQ(world.events.yields, line);
        const test::ClassInMemory stored = test::Store(file, MarkerFamily::VisualBasic);
        EXPECT_EQ(test::FilledLines(test::WriteVbClass(stored)), test::FilledLines(text)) << line;
    }
}

TEST(VbScript, KnowsNoPropertiesAndNamesHeadsWithoutBrackets) {
    const CutFile file = CutUndisturbed(
        Lines("Attribute VB_Name = \"no\"|Class C|Public Property Get X()|End Property|"
              "'c|Sub Main 'all|End Sub|End Class"),
        CutVbScript);
    EXPECT_EQ(file.className, "");
    ASSERT_EQ(file.procedures.size(), 1U);
    EXPECT_EQ(file.procedures.front().name, "Main");
    EXPECT_EQ(file.procedures.front().comment, "'c");
    EXPECT_EQ(file.text, Lines("Attribute VB_Name = \"no\"|Class C|Public Property Get X()|"
                               "End Property|||End Class"));
}

std::string Repeated(std::string_view text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i)
        repeated += text;
    return repeated;
}

TEST(VisualBasic, IsCutInTimeThatGrowsWithTheTextOnly) {
    // What took the square of the length would take minutes here.
    const std::string texts[] = {
        "Sub A()\r\n" + std::string(2'000'000, '_') + "\r\nEnd Sub\r\n",
        Repeated("'c\r\nSub A()\r\nEnd Sub\r\n", 20'000),
        Repeated("x _\r\n", 100'000) + "x\r\nSub A()\r\nEnd Sub\r\n",
        Repeated("'c\r\n", 100'000) + "Sub A()\r\n" + Repeated("\r\n", 100'000),
        "Sub A()\r\n" + Repeated("Function A()\r\n", 50'000),
    };
    for (const std::string& text : texts)
        EXPECT_FALSE(CutUndisturbed(text, CutVisualBasic).procedures.empty()) << text.substr(0, 20);
}

}  // namespace
}  // namespace snippetarium
