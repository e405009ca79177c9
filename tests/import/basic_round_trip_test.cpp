#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/import/class_in_memory.h"
#include "tests/import/cut_basic.h"

namespace snippetarium {
namespace {

using test::CutUndisturbed;
using test::FaultOfRoundTrip;

// A file that was cut and stored is written with the lines that it had, in their order, and what
// was written is cut into the same records: an exported file can be imported and exported for ever
// and stays the same.

std::string FaultOf(std::string_view text, test::BasicCut cut) {
    return FaultOfRoundTrip(text,
                            [cut](std::string_view file) { return CutUndisturbed(file, cut); });
}

/// Tries the text with and without a line end behind its last line, in both dialects.
void ExpectRoundTrip(std::string text) {
    for (const test::BasicCut cut : {CutVisualBasic, CutVbScript}) {
        if (const std::string fault = FaultOf(text, cut); !fault.empty())
            ADD_FAILURE() << (cut == CutVbScript ? "VBScript:\n" : "Visual Basic:\n") << text
                          << "-----\n"
                          << fault;
    }
}

/// Every text of up to `longest` of these lines.
void ExpectRoundTripOfAll(std::span<const std::string_view> lines, std::size_t longest) {
    std::vector<std::size_t> choice;
    for (;;) {
        std::string text;
        for (const std::size_t number : choice)
            text.append(lines[number]).append("\r\n");
        ExpectRoundTrip(text);
        if (!text.empty()) ExpectRoundTrip(text.substr(0, text.size() - 2));
        if (::testing::Test::HasFailure()) return;

        std::size_t place = choice.size();
        while (place > 0 && choice[place - 1] + 1 == lines.size())
            choice[--place] = 0;
        if (place > 0) {
            ++choice[place - 1];
        } else if (choice.size() < longest) {
            choice.push_back(0);
        } else {
            return;
        }
    }
}

constexpr std::string_view kEveryLine[] = {
    "",
    " ",
    "'c",
    "x = 1",
    "Option Explicit",
    "  Option Explicit 'kept",
    "' Option Explicit",
    "Attribute VB_Name = \"M\"",
    "Sub A()",
    "Public Sub A(): x: End Sub",
    "Private Sub B() _",
    "End Sub",
    "Function A()",
    "End Function",
    "End Function 'c",
    "Sub Main",
    "Property As String",
    "#If X Then",
    "#Else",
    "#End If",
    "'______",
    "'***Procedure A()***",
    "'***Procedure A() (2)***",
    "lone\rreturn\r",
};

TEST(BasicRoundTrip, KeepsEveryTextOfAFewLines) {
    ExpectRoundTripOfAll(kEveryLine, 3);
}

TEST(BasicRoundTrip, KeepsHeadersAndCommentsWhereTheyStood) {
    constexpr std::string_view kLines[] = {"",        "'c",      "Option Explicit",
                                           "Sub A()", "End Sub", "x = 1"};
    ExpectRoundTripOfAll(kLines, 5);
}

TEST(BasicRoundTrip, KeepsTheBlankLinesBelowProcedures) {
    constexpr std::string_view kLines[] = {"", "'c", "Sub A()", "End Sub"};
    ExpectRoundTripOfAll(kLines, 7);
}

TEST(BasicRoundTrip, KeepsLongTexts) {
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> anyLine(0, std::size(kEveryLine) - 1);
    std::uniform_int_distribution<int> anyLength(5, 60);
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (int left = anyLength(random); left > 0; --left)
            text.append(kEveryLine[anyLine(random)]).append("\r\n");
        ExpectRoundTrip(text);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace snippetarium
