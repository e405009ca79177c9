#include "import/type_bodies.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "import/type_members.h"
#include "tests/fakes.h"

namespace snippetarium {
namespace {

// clang-format off
constexpr std::string_view kJava[] = {
    "int a() { return 1; } ",
    "int field = 3; ",
    "@A({1, 2}) @B(x = {\"}\"}) void b(@C({}) int x) throws E { if (x) { } else { } } ",
    "static { run(); } { run(); } ",
    "int[] table = {1, 2}, other = {3}; Runnable r = () -> { run(); }; ",
    "Object o = new Object() { public String toString() { return \"{\"; } }; ",
    "@A(1) class Inner<T extends Comparable<T>> { void c() { } class Deep { void d() { } } } ",
    "@interface Mark { String[] value() default {\"{\"}; int size() default 1; } ",
    "enum E { ONE, TWO(2) { void e() { } }, @A THREE { void f() { } }; E() { } void g() { } } ",
    "enum Bare { ONE { void h() { } } } ",
    "record Pair(int x, int y) implements I { Pair { check(); } int sum() { return x + y; } } ",
    "void record(int x) { } <T> record call() { return null; } ",
    "String text() { return \"\"\"\n  { \\\"\"\" \"\n  \"\"\"; } ",
    "char brace() { return '{'; } char quote() { return '\\''; } // }\n",
    "interface Shape { default void i() { } void j(); static <T> T k() { return null; } } ",
    "abstract int l(); native void m(); ",
    "Class<?> type = Inner.class; int n() { class Local { void hidden() { } } return 1; } ",
};
constexpr std::string_view kCSharp[] = {
    "int A() { return 1; } ",
    "int B(int x) => x; int field = 3; ",
    "[D(\"}\")] int P { get { return 1; } set { if (a) { } } } ",
    "int Q { get; set; } = new X { Y = { 1 } }.Z; int R => 1; ",
    "int this[int i] { get { return i; } } ",
    "event E Changed { add { } remove { } } ",
    "public static bool operator ==(T a, T b) { return true; } void C() { } ",
    "public static implicit operator int(T t) { return 1; } ",
    "T(int x) : base(new X { A = x }) { } ~T() { } ",
    "void F<K>(K k) where K : class, new() { switch (k) { case 1: break; } } ",
    "class Inner<K> where K : class { void G() { } struct S { void H() { } } } ",
    "record Pair(int X, int Y) : Base(X) { int Sum() { return X + Y; } } record struct V { } ",
    "void @class(int x) { void Local() { } } void @int() { } ",
    "string I() { return $\"{a[\"}\"]}\" + @\"\"\"{\" + $@\"{{\"; } ",
    "string J() { return \"\"\"\n  { \" \"\" }\n  \"\"\"; } char c = '{'; ",
    "int K(int x) => x switch { 1 => 2, _ => 3 }; ",
    "Func<int> f = () => { return 1; }; X x = new() { { 1 } }; ",
    "enum Color { Red = 1, [D(2)] Green } interface IShape { void L(); int M { get { return 1; } } } ",
    "void IShape.L() { } int IShape.N { get { return 1; } } /* } */ ",
    "delegate void D(int x); const int Max = 2; ",
};
// clang-format on

std::vector<std::tuple<std::string, std::size_t, std::size_t>> Members(
    const std::string& text, Grammar grammar, std::span<const TextRange> skipped) {
    test::FakeHost world;
    const ImportState state;
    LineProgress progress(world.host, state, 1);
    const ParseResult parsed = ParseSyntax(text, grammar, progress, skipped);
    std::vector<std::tuple<std::string, std::size_t, std::size_t>> members;
    for (const SourceUnit& unit : FindTypeMembers(parsed.tree.Root(), text).units)
        members.emplace_back(unit.name, unit.code.begin, unit.code.end);
    return members;
}

void ExpectSameWithoutBodies(const std::string& text, Grammar grammar) {
    const std::vector<TextRange> bodies =
        FindTypeBodies(TokeniseTypes(text, grammar).tokens, grammar);
    EXPECT_EQ(Members(text, grammar, bodies), Members(text, grammar, {})) << text;
}

template <std::size_t N>
void ExpectSameForAllPairs(const std::string_view (&declarations)[N], Grammar grammar) {
    for (const std::string_view first : declarations) {
        for (const std::string_view second : declarations)
            ExpectSameWithoutBodies(
                "class T { " + std::string(first) + std::string(second) + "void last() { } }",
                grammar);
    }
}

TEST(TypeBodies, AreNotMissedWhenMembersAreLookedFor) {
    ExpectSameForAllPairs(kJava, Grammar::Java);
    ExpectSameForAllPairs(kCSharp, Grammar::CSharp);
    ExpectSameWithoutBodies("module m { requires a; } class A { void f() { } }", Grammar::Java);
    ExpectSameWithoutBodies(
        "using System; int x = 1; if (x > 0) { Run(); } else { } void Run() { x++; } "
        "namespace N.M { class A { void F() { } } } unsafe { } class B { void F() { } }",
        Grammar::CSharp);
}

TEST(TypeBodies, AreWhatStandsBetweenTheBracesOfCode) {
    const auto found = [](std::string_view text, Grammar grammar) {
        std::string bodies;
        for (const auto& [begin, end] :
             FindTypeBodies(TokeniseTypes(text, grammar).tokens, grammar))
            bodies.append(text.substr(begin, end - begin)).append("|");
        return bodies;
    };
    EXPECT_EQ(
        found("enum E { A(1) { int f() {1} }; static {2} E() {3} int[] a = {0}; }", Grammar::Java),
        "1|2|3|");
    EXPECT_EQ(found("class C { int P { get {1} set {2} } C() : base() {3} int[] a = {0}; }",
                    Grammar::CSharp),
              "1|2|3|");
    EXPECT_EQ(found("class C { void f() {1} void g() {2} }}", Grammar::Java), "");
    EXPECT_EQ(found("class C { void f( {1} void g() {2} }", Grammar::Java), "");
}

}  // namespace
}  // namespace snippetarium
