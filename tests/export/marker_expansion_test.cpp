#include "export/marker_expansion.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/error.h"
#include "tests/export/combinations.h"

namespace snippetarium {
namespace {

constexpr MarkerFamily kFamilies[] = {MarkerFamily::VisualBasic, MarkerFamily::C,
                                      MarkerFamily::Page};

using ProcedureTexts = std::vector<ProcedureText>;

/// The rule, one procedure after the other, in the plainest way.
std::string Reference(MarkerFamily family, std::string text, const ProcedureTexts& procedures) {
    const std::string lineBreak = family == MarkerFamily::C ? "" : "\r\n";
    for (const ProcedureText& procedure : procedures) {
        const std::string marker = MarkerText(family, procedure.codeName) + lineBreak;
        const std::string comment = procedure.comment ? *procedure.comment + lineBreak : "";
        const std::string inserted = comment + procedure.code + lineBreak;
        for (std::size_t at = text.find(marker); at != text.npos;
             at = text.find(marker, at + inserted.size())) {
            text.replace(at, marker.size(), inserted);
        }
    }
    return text;
}

TEST(MarkerExpansion, PutsEachProcedureInThePlaceOfItsMarkers) {
    const ProcedureTexts procedures = {
        {"Draw", "'draws", "Sub Draw"},
        {"Load", std::nullopt, "Sub Load"},
        {"Save", "", "Sub Save"},
    };
    const struct {
        MarkerFamily family;
        std::string_view description;
        std::string classText;
        std::string expected;
    } cases[] = {
        {MarkerFamily::VisualBasic, "comment, code, line breaks",
         "Option Explicit\r\n'***Procedure Draw***\r\nEnd",
         "Option Explicit\r\n'draws\r\nSub Draw\r\nEnd"},
        {MarkerFamily::VisualBasic, "no comment", "'***Procedure Load***\r\n", "Sub Load\r\n"},
        {MarkerFamily::VisualBasic, "an empty comment is a line", "'***Procedure Save***\r\n",
         "\r\nSub Save\r\n"},
        {MarkerFamily::VisualBasic, "every occurrence",
         "'***Procedure Load***\r\n.'***Procedure Load***\r\n", "Sub Load\r\n.Sub Load\r\n"},
        {MarkerFamily::VisualBasic, "another letter case",
         "'***Procedure draw***\r\n'***procedure Draw***\r\n",
         "'***Procedure draw***\r\n'***procedure Draw***\r\n"},
        {MarkerFamily::VisualBasic, "no line break behind it", "'***Procedure Draw***",
         "'***Procedure Draw***"},
        {MarkerFamily::VisualBasic, "another family's", "/***Procedure Draw***/\r\n",
         "/***Procedure Draw***/\r\n"},
        {MarkerFamily::VisualBasic, "of nobody, beside one that is known",
         "'***Procedure Gone***\r\n'***Procedure Load***\r\n",
         "'***Procedure Gone***\r\nSub Load\r\n"},
        {MarkerFamily::C, "within a line, nothing added", "{/***Procedure Draw***/;}",
         "{'drawsSub Draw;}"},
        {MarkerFamily::C, "no comment, an empty one",
         "/***Procedure Load***/ /***Procedure Save***/", "Sub Load Sub Save"},
        {MarkerFamily::C, "the line break stays", "/***Procedure Load***/\r\n", "Sub Load\r\n"},
        {MarkerFamily::Page, "comment, code, line breaks", "<%\r\n<!--**Procedure Draw**-->\r\n%>",
         "<%\r\n'draws\r\nSub Draw\r\n%>"},
        {MarkerFamily::Page, "no line break behind it", "<!--**Procedure Draw**-->%>",
         "<!--**Procedure Draw**-->%>"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ExpandMarkers(test.family, test.classText, procedures).text, test.expected)
            << test.description;
        EXPECT_EQ(Reference(test.family, test.classText, procedures), test.expected)
            << test.description;
    }
}

TEST(MarkerExpansion, TakesTheProceduresInTheirOrder) {
    const auto vb = [](std::string_view name) {
        return MarkerLine(MarkerFamily::VisualBasic, name);
    };
    const struct {
        std::string_view description;
        ProcedureTexts procedures;
        std::string expected;
        std::vector<std::string> leftOut = {};
    } cases[] = {
        {"a later one's marker in an earlier one's code is replaced",
         {{"A", {}, vb("B") + "a"}, {"B", {}, "b"}},
         "b\r\na\r\n"},
        {"an earlier one's in a later one's stays",
         {{"B", {}, "b"}, {"A", {}, vb("B") + "a"}},
         vb("B") + "a\r\n",
         {"B"}},
        {"its own stays", {{"A", {}, vb("A") + "a"}}, vb("A") + "a\r\n"},
        {"of equal names the first one wins", {{"A", {}, "1"}, {"A", {}, "2"}}, "1\r\n", {"A"}},
        {"one without a marker is left out", {{"A", {}, "1"}, {"B", {}, "2"}}, "1\r\n", {"B"}},
        {"and the second finds what the first brings",
         {{"A", {}, vb("A") + "1"}, {"A", {}, "2"}},
         "2\r\n1\r\n"},
    };
    for (const auto& test : cases) {
        const ExpandedText expanded =
            ExpandMarkers(MarkerFamily::VisualBasic, vb("A"), test.procedures);
        EXPECT_EQ(expanded.text, test.expected) << test.description;
        EXPECT_EQ(expanded.leftOut, test.leftOut) << test.description;
    }
}

/// What markers are made of, whole markers among it, and what they can be mixed up with.
struct Alphabet {
    std::vector<std::string> texts;
    std::vector<std::string> names;
    std::vector<std::string> inserted;
};

Alphabet AlphabetOf(MarkerFamily family) {
    const MarkerForm form = FormOf(family);
    const std::string beginning(form.beginning);
    const std::string end = std::string(form.end).append(form.lineBreak);
    const std::string a = MarkerLine(family, "a");
    const std::string b = MarkerLine(family, "b");
    return {
        {beginning, beginning.substr(0, 1), beginning.substr(1), "a", end, a, b},
        {"a", "b", "*", "a" + end + "a", "a" + a, beginning + "a"},
        {"", "a", end, beginning, beginning.substr(0, 3), beginning.substr(1) + "b" + end, b,
         "a***"},
    };
}

std::vector<ProcedureTexts> PairsOf(const Alphabet& alphabet) {
    std::vector<ProcedureTexts> pairs;
    for (const std::string& first : alphabet.names) {
        for (const std::string& second : alphabet.names) {
            for (const std::string& code : alphabet.inserted) {
                for (const std::string& otherCode : {alphabet.inserted.back(), code})
                    pairs.push_back({{first, std::nullopt, code}, {second, "c", otherCode}});
            }
        }
    }
    return pairs;
}

TEST(MarkerExpansion, ComesToTheSameAsOneProcedureAfterTheOther) {
    for (const MarkerFamily family : kFamilies) {
        const Alphabet alphabet = AlphabetOf(family);
        const std::vector<std::string> texts = test::Combinations(alphabet.texts, 3);
        for (const ProcedureTexts& pair : PairsOf(alphabet)) {
            for (const std::string& text : texts) {
                ASSERT_EQ(ExpandMarkers(family, text, pair).text, Reference(family, text, pair))
                    << text << "\nwith the procedures " << pair[0].codeName << " = " << pair[0].code
                    << "\nand " << pair[1].codeName << " = " << pair[1].code;
            }
        }
    }
}

TEST(MarkerExpansion, ReadsTheTextOnceHoweverManyProceduresThereAre) {
    // By the rule alone, this would move 60 GB.
    ProcedureTexts procedures;
    std::string text = MarkerLine(MarkerFamily::VisualBasic, "nobody's");
    std::string expected = text;
    for (int i = 0; i < 3000; ++i) {
        const std::string name = "Draw" + std::to_string(i);
        procedures.push_back({name, "'it''s " + name, std::string(10'000, 'x')});
        text += MarkerLine(MarkerFamily::VisualBasic, name);
        expected += *procedures.back().comment + "\r\n" + procedures.back().code + "\r\n";
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(ExpandMarkers(MarkerFamily::VisualBasic, text, procedures).text == expected);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(MarkerExpansion, RefusesProceduresThatMultiplyEachOther) {
    ProcedureTexts procedures;
    for (int i = 0; i < 60; ++i) {
        const std::string next = MarkerText(MarkerFamily::C, std::to_string(i + 1));
        procedures.push_back(
            {std::to_string(i), std::nullopt, next + next + std::string(1'000'000, 'x')});
    }
    EXPECT_THROW(ExpandMarkers(MarkerFamily::C, MarkerText(MarkerFamily::C, "0"), procedures),
                 Error);
}

}  // namespace
}  // namespace snippetarium
