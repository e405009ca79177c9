#include "import/source_units.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/import/cut_reassembly.h"

namespace snippetarium {

namespace {

/// Cuts out what stands between angle brackets, with the comments between square ones. The brackets
/// themselves are not part of the text.
struct Marked {
    std::string text;
    std::vector<SourceUnit> units;
    std::vector<TextRange> comments;

    explicit Marked(std::string_view source) {
        for (const char character : source) {
            if (character == '<') {
                units.push_back({"unit", {text.size(), 0}, ""});
            } else if (character == '>') {
                units.back().code.end = text.size();
            } else if (character == '[') {
                comments.push_back({text.size(), 0});
            } else if (character == ']') {
                comments.back().end = text.size();
            } else {
                if (character == '\n') text += '\r';
                text += character;
            }
        }
    }

    CutFile Cut(UnitPlacement placement) const {
        return CutUnits(text, units, comments, placement);
    }
};

struct Case {
    const char* what;
    const char* source;
    /// Of the first unit, with "|" between comment and code; "stays" where it is not cut.
    const char* exact;
    const char* wholeLines;
};

// clang-format off
const Case kCases[] = {
    {"no comment", "a\n<f {\n}>\nb\n", "|f {\r\n}", "|f {\r\n}"},
    {"a comment", "a\n[/*1*/]\n<f>\nb\n", "/*1*/\r\n|f", "/*1*/|f"},
    {"a block of comments", "[//1]\n[//2]\n<f>\nb\n", "//1\r\n//2\r\n|f", "//1\r\n//2|f"},
    {"a blank line inside", "[//1]\n\n[//2]\n<f>\nb\n", "//2\r\n|f", "//2|f"},
    {"a blank line before the code", "[//1]\n\n<f>\nb\n", "|f", "|f"},
    {"a comment behind code", "a [//1]\n<f>\nb\n", "|f", "|f"},
    {"indentation", "  [//1]\n  <f>\nb\n", "//1\r\n  |f", "  //1|  f"},
    {"blanks behind", "<f>  \nb\n", "|f", "|f  "},
    {"code behind", "<f> g();\nb\n", "|f", "stays"},
    {"a semicolon and a comment behind", "<f>; /* a */ // b\nb\n", "|f", "|f; /* a */ // b"},
    {"a comment that goes on", "<f> /* a\nb */\n", "|f", "stays"},
    {"code behind a comment", "<f> /* a */ b\nc\n", "|f", "stays"},
    {"code before", "a <f>\nb\n", "|f", "stays"},
    {"a comment on the line", "[/*1*/] <f>\nb\n", "/*1*/ |f", "stays"},
    {"the end of the text", "a\n<f>", "|f", "stays"},
    {"the last line", "a\n<f>\n", "|f", "stays"},
};
// clang-format on

std::string FirstUnit(const CutFile& cut) {
    if (cut.procedures.empty()) return "stays";
    return cut.procedures.front().comment + "|" + cut.procedures.front().code;
}

TEST(SourceUnits, TakeTheCommentAboveAndWhatTheMarkersNeed) {
    for (const Case& test : kCases) {
        SCOPED_TRACE(test.what);
        const Marked marked(test.source);
        for (const auto placement : {UnitPlacement::Exact, UnitPlacement::WholeLines}) {
            const CutFile cut = marked.Cut(placement);
            EXPECT_EQ(FirstUnit(cut),
                      placement == UnitPlacement::Exact ? test.exact : test.wholeLines);
            EXPECT_EQ(test::Reassemble(cut, placement, marked.text), marked.text);
        }
    }
}

TEST(SourceUnits, TwoUnitsShareNoComment) {
    const Marked marked("<f>\n[//1]\n<g>\n<h> [//2]\n<i>\n");
    const CutFile cut = marked.Cut(UnitPlacement::Exact);
    ASSERT_EQ(cut.procedures.size(), 4U);
    EXPECT_EQ(cut.procedures[1].comment, "//1\r\n");
    EXPECT_EQ(cut.procedures[2].comment, "");
    EXPECT_EQ(cut.procedures[3].comment, "");
    EXPECT_EQ(cut.text, "\r\n\r\n //2\r\n");
    EXPECT_EQ(test::Reassemble(cut, UnitPlacement::Exact, marked.text), marked.text);
}

TEST(SourceUnits, LeaveOutAUnitInsideAnother) {
    Marked marked("<abc>d\n");
    marked.units.push_back({"inner", {1, 2}, ""});
    EXPECT_EQ(marked.Cut(UnitPlacement::Exact).procedures.size(), 1U);
}

}  // namespace

}  // namespace snippetarium
