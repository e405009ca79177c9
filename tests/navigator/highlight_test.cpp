#include "navigator/highlight.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "navigator/name_pattern.h"
#include "support/error.h"

namespace snippetarium::test {
namespace {

using namespace std::chrono_literals;

// clang-format off
enum Language : std::int32_t {
    kBasic = 1,
    kJava,
    kCSharp,
    kCpp,
    kC,
    kAsp,
    kJavaScript,
    kVbScript,
    kHtml,
    kHeader
};

constexpr std::string_view kLetters = "KTSECNPFOpVLGAo.%";

/// The text with each part of a kind in braces behind its letter: "K{int} F{main}()". Operators and
/// punctuation are left as they are.
std::string Marked(const std::string& text, const std::vector<HighlightSpan>& spans) {
    std::string marked;
    std::size_t copied = 0;
    for (const auto& [range, kind] : spans) {
        if (kind == HighlightKind::Operator || kind == HighlightKind::Punctuation) continue;
        marked += text.substr(copied, range.begin - copied);
        marked += kLetters.at(static_cast<std::size_t>(kind));
        marked += "{" + text.substr(range.begin, range.end - range.begin) + "}";
        copied = range.end;
    }
    return marked + text.substr(copied);
}

std::string Marked(const std::string& text, std::int32_t language) {
    Highlighter highlighter(text, language);
    highlighter.Finish();
    return Marked(text, highlighter.Spans({0, text.size()}));
}

TEST(Highlighter, KnowsTheWordsOfEachLanguage) {
    const struct {
        std::int32_t language;
        const char* text;
        const char* marked;
    } cases[] = {
        {kC,
         "#define MAX 10\nstatic int f(char *s) { return s[0] == 'x' ? MAX : g(\"a\\n\"); } /* c "
         "*/",
         "P{#define} O{MAX} 10\nK{static} T{int} F{f}(T{char} *s) { K{return} s[N{0}] == S{'x'} ? "
         "O{MAX} : F{g}(S{\"a\\n\"}); } C{/* c */}"},
        {kCpp, "namespace n { class A final : B { A() noexcept; auto f() const -> int; }; }", "K{namespace} n { K{class} T{A} K{final} : T{B} { F{A}() K{noexcept}; T{auto} F{f}() "
         "K{const} -> T{int}; }; }"},
        {kHeader, "template <typename T> T Max(T a, T b) { return this->x; } // c", "K{template} <K{typename} T{T}> T{T} F{Max}(T{T} a, T{T} b) { K{return} V{this}->p{x}; } "
         "C{// c}"},
        {kJava, "@Override public int size(String s) { return null == s ? 0 : s.length(); }", "@A{Override} K{public} T{int} F{size}(T{String} s) { K{return} O{null} == s ? N{0} : "
         "s.F{length}(); }"},
        {kCSharp, "public class A { [Obsolete] int F(string s) => s.Length + 1; } // c", "K{public} K{class} T{A} { [A{Obsolete}] T{int} F{F}(T{string} s) => s.Length + N{1}; } "
         "C{// c}"},
        {kJavaScript, "const f = (a) => `x${a}y`; function g() { return /r/.test(MAX_X) && this; }",
         "K{const} F{f} = (a) => S{`x}${a}S{y`}; K{function} F{g}() { K{return} "
         "/S{r}/.F{test}(O{MAX_X}) && V{this}; }"},
        {kHtml, "<p class=\"a\">x</p><script>var a = 'b';</script><!-- c -->", "<G{p} A{class}=\"S{a}\">x</G{p}><G{script}>K{var} a = S{'b'};</G{script}>C{<!-- c -->}"},
        {kBasic,
         "Private Sub Draw(ByVal x As Long, p As ADODB.Connection) 'says \"hi\"\n"
         "#If DEBUG_ON Then\n"
         "Rem a comment _\n  goes on\n"
         "Start: s = \"a\"\"b\" & vbCrLf & Me.Name: x = &HFF& + 1.5 - #1/2/2003#\n"
         "Set o = New Collection: Remove x: If Not True Then Exit Sub",
         "K{Private} K{Sub} F{Draw}(K{ByVal} x K{As} T{Long}, p K{As} T{ADODB}.T{Connection}) "
         "C{'says \"hi\"}\nP{#If} DEBUG_ON K{Then}\nC{Rem a comment _}\nC{  goes on}\n"
         "L{Start}: s = S{\"a\"\"b\"} & O{vbCrLf} & V{Me}.p{Name}: x = N{&HFF&} + N{1.5} - "
         "O{#1/2/2003#}\nK{Set} o = K{New} T{Collection}: Remove x: K{If} K{Not} O{True} K{Then} "
         "K{Exit} K{Sub}"},
        {kVbScript, "Function F(a): Dim b: b = Null: End Function", "K{Function} F{F}(a): K{Dim} b: b = O{Null}: K{End} K{Function}"},
        {kAsp,
         "<%@ language=\"VBScript\" %>\n<a href=\"<%= Url(1) %>\">x</a>\n<% If a Then 'c\nEnd If %>"
         "<script>var n = <%= n %>;</script>",
         "%{<%@} language=S{\"VBScript\"} %{%>}\n<G{a} A{href}=\"%{<%=} Url(N{1}) %{%>}\">x</G{a}>\n"
         "%{<%} K{If} a K{Then} C{'c}\nK{End} K{If} %{%>}<G{script}>K{var} n = %{<%=} n "
         "%{%>};</G{script}>"},
        {0, "int x;", "int x;"},
        {77, "int x;", "int x;"},
    };
    for (const auto& test : cases)
        EXPECT_EQ(Marked(test.text, test.language), test.marked);
}

TEST(NamePattern, MatchesAsTheQueriesMeanIt) {
    const struct {
        const char* expression;
        const char* fits;
        const char* differs;
    } cases[] = {
        {"^[A-Z]", "A Ab Z9", "a 9 _A"},
        {"^[A-Z][A-Z\\d_]*$", "A AB A_9", "Ab aB 9A A-"},
        {"^_*[A-Z][A-Z\\d_]+$", "AB __A1 _AB_", "A __A Ab"},
        {"^(console|window)$", "console window", "consol windows con"},
        {"b+c", "abbc bc xbcx", "b c ac"},
    };
    const auto words = [](const std::string& text) {
        std::istringstream stream(text);
        return std::vector<std::string>(std::istream_iterator<std::string>(stream), {});
    };
    for (const auto& test : cases) {
        const NamePattern pattern(test.expression);
        for (const std::string& name : words(test.fits))
            EXPECT_TRUE(pattern.Matches(name)) << test.expression << " " << name;
        for (const std::string& name : words(test.differs))
            EXPECT_FALSE(pattern.Matches(name)) << test.expression << " " << name;
        EXPECT_FALSE(pattern.Matches("")) << test.expression;
    }
    EXPECT_THROW(NamePattern("a{2}"), Error);
    EXPECT_THROW(NamePattern("\\w"), Error);
    EXPECT_THROW(NamePattern("[a"), Error);
}

constexpr std::int32_t kEveryLanguage[] = {kBasic,      kJava,     kCSharp, kCpp, kC, kAsp,
                                           kJavaScript, kVbScript, kHtml,   kHeader};

/// What a view relies on, whatever the text: spans in order, none empty, none over another; a part
/// of the text gives the same as the whole.
void ExpectSound(const std::string& text, std::int32_t language) {
    Highlighter highlighter(text, language);
    highlighter.Finish();
    EXPECT_GE(highlighter.KnownUpTo(), text.size());
    const std::vector<HighlightSpan> all = highlighter.Spans({0, text.size()});
    std::size_t behind = 0;
    for (const HighlightSpan& span : all) {
        ASSERT_GE(span.range.begin, behind) << language << " " << text;
        ASSERT_LT(span.range.begin, span.range.end) << language << " " << text;
        behind = span.range.end;
    }
    ASSERT_LE(behind, text.size());
    const TextRange middle{text.size() / 3, text.size() * 2 / 3};
    const auto kindAt = [](const std::vector<HighlightSpan>& spans, std::size_t place) {
        for (const auto& [range, kind] : spans)
            if (range.begin <= place && place < range.end) return static_cast<int>(kind);
        return -1;
    };
    const std::vector<HighlightSpan> part = highlighter.Spans(middle);
    for (std::size_t place = middle.begin; place < middle.end; ++place)
        ASSERT_EQ(kindAt(part, place), kindAt(all, place)) << language << " " << text;
}

TEST(Highlighter, StaysSoundOnPiecesOfEveryLanguageInEveryOther) {
    const std::string pieces[] = {"\"", "'", "/*", "*/", "//", "<%", "%>", "<script>", "</script>",
                                  "{", "}", "(", ")", "#", "if x", "\n", "\r\n", " _\n", "Rem ",
                                  "é", "€😀", "<a b=", ">", "`${", "0x1F", "&H", "1.", "class A",
                                  "Sub F", "'***Procedure X***", "<!--", "-->", "@", ";", "\\"};
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (std::size_t i = random() % 12; i > 0; --i)
            text += pieces[random() % std::size(pieces)] + (random() % 3 == 0 ? " " : "");
        for (const std::int32_t language : kEveryLanguage)
            ExpectSound(text, language);
    }
}

/// Each would fill the parser's stack or its memory, or take time by the square.
TEST(Highlighter, EndsSoonOnTextsThatRepeatOneThing) {
    const std::string pieces[] = {"(", "{", "[", "<", "<a>", "<%", "if(", "a<", "\"", "'", "/*",
                                  "#", "a.", "1+", "else ", "<div ", "`${", "x ", "\n", "Sub F\n"};
    for (const std::string& piece : pieces) {
        std::string text;
        while (text.size() < 64'000)
            text += piece;
        for (const std::int32_t language : kEveryLanguage) {
            Highlighter highlighter(text, language);
            const auto start = std::chrono::steady_clock::now();
            highlighter.Finish();
            highlighter.Spans({0, 4'000});
            EXPECT_LT(std::chrono::steady_clock::now() - start, 20s) << piece << language;
        }
    }
}

TEST(Highlighter, WorksInStepsToTheSameEnd) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {kC, "int f(char *s) { return g(s, \"x\") + 1; }\n"},
        {kBasic, "Sub Draw(x As Long): s = \"x\": End Sub 'ends\n"},
        {kJavaScript, "function f(s) { return g(s, 'x') + 1; } // ends\n"},
    };
    for (const auto& [language, line] : cases) {
        std::string text;
        while (text.size() < 64'000)
            text += line;
        Highlighter whole(text, language);
        whole.Finish();
        Highlighter steps(text, language);
        EXPECT_FALSE(steps.Work(1us));
        std::size_t known = 0;
        while (!steps.Work(1us)) {
            EXPECT_GE(steps.KnownUpTo(), known);
            known = steps.KnownUpTo();
        }
        const TextRange all{0, text.size()};
        EXPECT_EQ(steps.Spans(all), whole.Spans(all));
    }
}

TEST(Highlighter, LeavesOutWhatIsSkipped) {
    const std::string text = "int a; '***Procedure f***\nint b;";
    const TextRange marker{7, 25};
    Highlighter highlighter(text, kCSharp, {&marker, 1});
    highlighter.Finish();
    EXPECT_EQ(Marked(text, highlighter.Spans({0, text.size()})),
              "T{int} a; '***Procedure f***\nT{int} b;");
}

}  // namespace
}  // namespace snippetarium::test
