#include "import/syntax_parser.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "tests/fakes.h"

namespace snippetarium {
namespace {

constexpr Grammar kGrammars[] = {Grammar::Java, Grammar::CSharp, Grammar::JavaScript};

ParseResult Parse(std::string_view text, Grammar grammar) {
    test::FakeHost world;
    const ImportState state;
    LineProgress progress(world.host, state, 1);
    return ParseSyntax(text, grammar, progress);
}

std::string Repeated(std::string_view part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += part;
    return text;
}

TEST(SyntaxTree, WritesANodeOnOneLineWithoutComments) {
    const std::string text = "class A { void f(int /* { */ a,\r\n  // no\r\n  String  b) { } }";
    const ParseResult parsed = Parse(text, Grammar::Java);
    const SyntaxNode method = parsed.tree.Root()
                                  .ChildOfKind("class_declaration")
                                  .Field("body")
                                  .ChildOfKind("method_declaration");
    EXPECT_EQ(TextOnOneLine(method.Field("parameters"), text), "(int a, String b)");
    EXPECT_EQ(TextOnOneLine(method.Field("no such field"), text), "");
}

TEST(SyntaxTree, CutsALongLineBehindTheLastCharacterThatANameHas) {
    const std::string name = Repeated("\xC3\xA9", 300);
    const ParseResult parsed = Parse("class " + name + " { }", Grammar::Java);
    const SyntaxNode type = parsed.tree.Root().ChildOfKind("class_declaration");
    EXPECT_EQ(TextOnOneLine(type.Field("name"), "class " + name + " { }"),
              Repeated("\xC3\xA9", 255));
}

TEST(SyntaxTree, FindsTheCommentsAboveUnits) {
    const std::string text = "/*1*/ class A { /*2*/ // 3\n /*4*/int a; /*5*/ } /*6*/";
    const ParseResult parsed = Parse(text, Grammar::Java);
    const auto unit = [&](std::string_view start) {
        return SourceUnit{.code = {text.find(start), text.size()}};
    };
    std::string found;
    for (const TextRange& comment : CommentsAbove(
             parsed.tree, text, std::array{unit("class"), unit("int"), unit("int"), unit("a;")}))
        found += text.substr(comment.begin, comment.end - comment.begin) + "|";
    EXPECT_EQ(found, "/*1*/|/*2*/|// 3|/*4*/|");
}

TEST(SyntaxTree, TellsTheProgressOfEveryLineWhateverTheEnd) {
    for (const std::string& text : {Repeated("int a;\r\n", 9), Repeated("{\r\n", 30'000)}) {
        test::FakeHost world;
        const ImportState state;
        LineProgress progress(world.host, state, 1);
        ParseSyntax(text, Grammar::Java, progress);
        EXPECT_EQ(world.progress.unitValues.size(),
                  static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')));
    }
}

TEST(SyntaxTree, GivesUpWhatNestsTooDeepOrTakesTooMuch) {
    for (const Grammar grammar : kGrammars) {
        EXPECT_EQ(Parse(Repeated("{", 10'000), grammar).end, ParseEnd::Done);
        for (const std::string_view part : {"{", "if(a)", "x=", "if(a){}else "})
            EXPECT_EQ(Parse(Repeated(part, 100'000), grammar).end, ParseEnd::TooTangled) << part;
        const std::string functions = Repeated("void a(int b) { d(); }\r\n", 4'000);
        EXPECT_EQ(Parse("class C {" + functions + "}", grammar).end, ParseEnd::Done);
    }
    EXPECT_EQ(Parse(Repeated("a<", 20'000), Grammar::Java).end, ParseEnd::TooTangled);
    EXPECT_EQ(Parse(Repeated("a<b;", 20'000), Grammar::Java).end, ParseEnd::Done);
    const std::string table = "var table = [" + Repeated("1, ", 100'000) + "];";
    EXPECT_EQ(Parse(table, Grammar::JavaScript).end, ParseEnd::Done);
}

TEST(SyntaxTree, IsNotBuiltWhenTheUserHasCancelled) {
    test::FakeHost world;
    ImportState state;
    state.importCancelled = true;
    LineProgress progress(world.host, state, 1);
    const ParseResult parsed =
        ParseSyntax(Repeated("int a;\r\n", 100'000), Grammar::Java, progress);
    EXPECT_EQ(parsed.end, ParseEnd::Cancelled);
    EXPECT_TRUE(parsed.tree.Root().IsNull());
}

}  // namespace
}  // namespace snippetarium
