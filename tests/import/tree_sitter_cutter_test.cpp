#include "import/tree_sitter_cutter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>

#include "tests/import/cut_basic.h"
#include "tests/import/cut_reassembly.h"

namespace snippetarium {
namespace {

struct Language {
    test::BasicCut cut;
    UnitPlacement placement;
    std::string_view sample;
};

// clang-format off
constexpr Language kLanguages[] = {
    {CutJava, UnitPlacement::Exact,
     "package p;\r\n/** T. */ class T<K> {\r\n  // f\r\n  @A(x = {1}) int f(int a, K b) { return a < b ? 1 : 'x'; }\r\n"
     "  enum E { A(1) { void g() { } }, B; E() { } }\r\n  record R(int x) { R { } }\r\n}\r\n"},
    {CutCSharp, UnitPlacement::WholeLines,
     "namespace N {\r\n#if A\r\n[B(\"}\")]\r\nclass T<K> where K : new() {\r\n#else\r\nclass T {\r\n#endif\r\n// f\r\n"
     "int F(int a) => a;\r\nint P { get { return 1; } set { } }\r\nstring S() { return $\"{a[\"}\"]}\" + @\"\"\"{\"; }\r\n"
     "public static T operator +(T a, T b) { return a; }\r\n}\r\n}\r\n"},
    {CutJavaScript, UnitPlacement::Exact,
     "(function ($) {\r\n// f\r\nfunction f(a, b = {}) { return /[/{]/.test(`${a} {`); }\r\n"
     "var o = { m: function () { }, get x() { return 1; } };\r\nclass C { #p = () => 1; static s() { } }\r\n})(j);\r\n"},
};
// clang-format on

/// Cuts whatever it is, and expects that nothing of it is lost.
CutFile ExpectKept(const Language& language, std::string_view text) {
    CutFile cut = test::CutUndisturbed(text, language.cut);
    EXPECT_EQ(test::Reassemble(cut, language.placement, text), text);
    return cut;
}

TEST(TreeSitterCutter, KeepsATextThatEndsAnywhere) {
    for (const Language& language : kLanguages) {
        for (std::size_t end = 0; end <= language.sample.size(); ++end) {
            ExpectKept(language, language.sample.substr(0, end));
            ExpectKept(language, language.sample.substr(end));
        }
    }
}

TEST(TreeSitterCutter, KeepsATextWithNoiseInIt) {
    constexpr std::string_view kNoise[] = {"{",    "}",  "(",  ")",  "\"",   "'",
                                           "`",    "/*", "*/", "#",  "\r\n", "//",
                                           "\x1A", "<",  "\\", "=>", ";",    "class "};
    std::mt19937 random(5);
    const auto any = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    for (int round = 0; round < 300; ++round) {
        for (const Language& language : kLanguages) {
            std::string text(language.sample);
            for (int i = 0; i < 4; ++i)
                text.insert(any(text.size()), kNoise[any(std::size(kNoise))]);
            ExpectKept(language, text);
        }
    }
}

TEST(TreeSitterCutter, KeepsTextsThatAreNoSource) {
    const auto repeated = [](std::string_view part) {
        std::string text;
        while (text.size() < 10'000)
            text += part;
        return text;
    };
    constexpr std::string_view kParts[] = {
        "{",         "}",     "(",  ")",  "[",         ";",          "class A{", "a.b(function(){",
        "x=",        "if(a)", "\"", "/*", "#if X\r\n", "#endif\r\n", "$\"{",     "\xF4\x8F\xBA\x80",
        "\xC3\xA9 ",
    };
    for (const std::string_view part : kParts) {
        for (const Language& language : kLanguages)
            ExpectKept(language, repeated(part));
    }
}

TEST(TreeSitterCutter, FindsProceduresBesideBytesThatAreNoCharacters) {
    // The byte E9, alone, in a name, and in a literal.
    const CutFile cut = ExpectKept(kLanguages[0],
                                   "class A { int \xF4\x8F\xBB\xA9"
                                   "a() { return \"\xF4\x8F\xBB\xA9\"; } int b() { } }");
    ASSERT_EQ(cut.procedures.size(), 2U);
    EXPECT_EQ(cut.procedures[0].name,
              "A.\xF4\x8F\xBB\xA9"
              "a()");
}

TEST(TreeSitterCutter, BoundsTheNamesOfTypesWithinTypes) {
    std::string text;
    for (int depth = 0; depth < 100; ++depth)
        text += "class " + std::string(200, 'a') + " { ";
    const CutFile cut = ExpectKept(kLanguages[0], text + "void f() { }" + std::string(100, '}'));
    ASSERT_EQ(cut.procedures.size(), 1U);
    EXPECT_EQ(cut.procedures[0].name.size(), 255U);
}

TEST(TreeSitterCutter, FindsEveryMethodOfALongTypeOnOneLine) {
    constexpr std::size_t kCount = 20'000;
    std::string text = "class A { ";
    for (std::size_t i = 0; i < kCount; ++i)
        text += "void f(int a) { x(a); } ";
    EXPECT_EQ(ExpectKept(kLanguages[0], text + "}").procedures.size(), kCount);
}

TEST(TreeSitterCutter, StoresATangledFileWholeAndSaysSo) {
    const std::string text(100'000, '(');
    for (const Language& language : kLanguages) {
        const CutFile cut = ExpectKept(language, text);
        EXPECT_TRUE(cut.procedures.empty());
        EXPECT_EQ(cut.problems.size(), 1U);
    }
}

}  // namespace
}  // namespace snippetarium
