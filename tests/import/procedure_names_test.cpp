#include "import/procedure_names.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace snippetarium {
namespace {

using enum ProcedureKind;

TEST(ProcedureNames, ReachFromTheKeywordToTheLastBracket) {
    struct Row {
        std::string_view raw;
        ProcedureKind kind;
        std::string_view name;
    };
    constexpr Row kRows[] = {
        {"Sub Foo(ByVal n As Long)", Sub, "Foo(ByVal n As Long)"},
        {"\tpublic STATIC SUB  Foo()  ", Sub, "Foo()"},
        {"Private Function Sum(a, b) As Long", Function, "Sum(a, b)"},
        {"Function Lines(f As String) As String()", Function, "Lines(f As String) As String()"},
        {"Public Property Get Item(i) As Variant", Property, "Get Item(i)"},
        {"Sub A(b()) 'see (c) there", Sub, "A(b()) 'see (c)"},
        {"Private Sub Move(ByVal x, _\r\n    ByVal y)", Sub, "Move(ByVal x,     ByVal y)"},
        {"Sub A _\r\n  (x _\r\n  )", Sub, "A   (x   )"},
        {"Sub A(x, _ \r\n y)", Sub, "A(x, _ \r\n y)"},
        {"Sub A(a_)", Sub, "A(a_)"},
        {"Private Sub Form_Load", Sub, ""},
        {"Sub A(", Sub, ""},
        {"Sub ", Sub, ""},
        {"x) Sub A", Sub, ""},
        {"Sub )", Sub, ")"},
        {"Private Sub_\r\nFoo()", Sub, ""},
        {"", Function, ""},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(ProcedureName(row.raw, row.kind), row.name) << row.raw;
}

TEST(ProcedureNames, OfVbScriptNeedNoBrackets) {
    struct Row {
        std::string_view line;
        ProcedureKind kind;
        std::string_view name;
    };
    constexpr Row kRows[] = {
        {"Sub Main", Sub, "Main"},
        {"Sub Main 'starts", Sub, "Main"},
        {"Private Function Total : Total = 1 : End Function", Function, "Total"},
        {"Sub Draw(x) 'all", Sub, "Draw(x)"},
        {"Sub 'nothing", Sub, ""},
        {"Sub", Sub, ""},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(VbScriptProcedureName(row.line, row.line, row.kind), row.name) << row.line;
}

TEST(ProcedureNames, AreShownWithBrackets) {
    EXPECT_EQ(DisplayName("Private Sub Form_Load"), "Private Sub Form_Load()");
    EXPECT_EQ(DisplayName("Private Sub Form_Load()"), "Private Sub Form_Load()");
    EXPECT_EQ(DisplayName("Sub Odd("), "Sub Odd(");
}

TEST(ProcedureNames, ComeForClassesFromAnAttribute) {
    struct Row {
        std::string_view key;
        std::string_view name;
    };
    constexpr Row kRows[] = {
        {"Attribute VB_Name=\"modSort\"", "modSort"},
        {"ATTRIBUTE vb_name=\"x\"", "x"},
        {"Attribute VB_Name=\"Men\xC3\xBC\"", "Men\xC3\xBC"},
        {"Attribute VB_Name=\"a\xC3\xBC", "a"},
        {"Attribute VB_Name=\"\"", ""},
        {"Attribute VB_Name=\"", ""},
        {"Attribute VB_Name=", ""},
        {"Attribute VB_Name = \"modSort\"", ""},
        {"Attribute VB_Creatable=False", ""},
        // The attribute is taken to begin the line.
        {"x Attribute VB_Name=\"m\"", "=\"m"},
        {"", ""},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(ClassNameFromAttribute(row.key), row.name) << row.key;
}

}  // namespace
}  // namespace snippetarium
