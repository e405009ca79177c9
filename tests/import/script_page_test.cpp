#include "import/script_page.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>

#include "tests/fakes.h"
#include "tests/import/cut_reassembly.h"

namespace snippetarium {
namespace {

/// The regions as "VS:text" (VBScript, server), "JB:text" (JavaScript, browser) ..., with " | "
/// between them.
std::string Regions(std::string_view page, PageKind kind) {
    std::string regions;
    for (const PageRegion& region : FindPageRegions(page, kind)) {
        if (!regions.empty()) regions += " | ";
        regions += region.language == ScriptLanguage::VbScript ? 'V' : 'J';
        regions += region.side == ScriptSide::Server ? "S:" : "B:";
        regions += page.substr(region.range.begin, region.range.end - region.range.begin);
    }
    return regions;
}

TEST(PageRegions, AreThePartsThatHoldProgramText) {
    struct Case {
        const char* page;
        const char* serverPage;
        const char* html;
    };
    // clang-format off
    const Case cases[] = {
        {"a <% b %> c", "VS: b ", ""},
        {"<%@ language=\"JScript\" %><% b %>", "JS: b ", ""},
        {"<%@LANGUAGE=VBScript CODEPAGE=65001%><%b%>", "VS:b", ""},
        {"<% a %><%= b %><% = c %><% d %>", "VS: a  | VS: d ", ""},
        {"<% a", "VS: a", ""},
        {"<script>a</script><SCRIPT LANGUAGE=vbs>b</SCRIPT>", "JB:a | VB:b", "JB:a | VB:b"},
        {"<script type='text/vbscript'>a</script>", "VB:a", "VB:a"},
        {"<script type=module>a</script><script type='text/x-template'>b</script>", "JB:a", "JB:a"},
        {"<script runat=server>a</script>", "VS:a", "VS:a"},
        {"<script language=javascript runat=\"server\">a</script>", "JS:a", "JS:a"},
        {"<script src=\"a>b.js\"></script><scripted>c</scripted>", "JB:", "JB:"},
        {"<!-- <script>a</script> --><script>b</script>", "JB:b", "JB:b"},
        {"<!-- <% a %> -->", "VS: a ", ""},
        {"<script>a<% b %>c</script>", "JB:a<% b %>c | VS: b ", "JB:a<% b %>c"},
        {"<script>a", "JB:a", "JB:a"},
        {"<script", "", ""},
    };
    // clang-format on
    for (const Case& test : cases) {
        SCOPED_TRACE(test.page);
        EXPECT_EQ(Regions(test.page, PageKind::ServerPage), test.serverPage);
        EXPECT_EQ(Regions(test.page, PageKind::Html), test.html);
    }
}

constexpr std::string_view kSample = R"(<%@ language="VBScript" %>
<!-- a --><% ' Shows.
Sub Show(x) %>
<b><%= x %></b>
<%
' Ends.
End Sub
' Two.
Function Two()
    Two = "%>"
End Function
%>
<script language="JavaScript">
// One.
function one(a) { return "<%= a %>"; }
var two = {
    f: function () { }
};
</script>
<script language="vbs">
Sub Last
End Sub
</script>
)";

void ExpectNothingLost(std::string_view text) {
    test::FakeHost world;
    const ImportState state;
    for (const auto kind : {PageKind::ServerPage, PageKind::Html}) {
        LineProgress progress(world.host, state, 1);
        const CutFile cut = CutScriptPage(text, kind, progress);
        ASSERT_EQ(test::Reassemble(cut, UnitPlacement::WholeLines, text), text);
    }
}

TEST(ScriptPage, LosesNothingOfAPageChoppedAnywhere) {
    const std::string text = test::WithCrLf(kSample);
    for (std::size_t i = 0; i <= text.size(); ++i) {
        ExpectNothingLost(std::string_view(text).substr(0, i));
        ExpectNothingLost(std::string_view(text).substr(i));
    }
}

TEST(ScriptPage, LosesNothingOfAPageWithNoiseInIt) {
    std::mt19937 random(11);
    constexpr std::string_view kNoise = "<%>='\"\n\r {}()/-!sS\x80";
    for (int round = 0; round < 500; ++round) {
        std::string text = test::WithCrLf(kSample);
        for (int i = 0; i < 5; ++i)
            text[random() % text.size()] = kNoise[random() % kNoise.size()];
        ExpectNothingLost(text);
    }
}

}  // namespace
}  // namespace snippetarium
