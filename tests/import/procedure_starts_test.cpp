#include "import/procedure_starts.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace snippetarium {
namespace {

using enum ProcedureKind;

TEST(ProcedureStarts, AreTheTwentyHeads) {
    struct Row {
        std::string_view key;
        std::optional<ProcedureKind> kind;
    };
    constexpr Row kRows[] = {
        {"Sub Main()", Sub},
        {"PUBLIC sub Main()", Sub},
        {"Private Sub Form_Load", Sub},
        {"Friend Sub A()", Sub},
        {"Static Sub A()", Sub},
        {"Public Static Sub Run()", Sub},
        {"Private Static Sub A()", Sub},
        {"Friend Static Sub A()", Sub},
        {"function F()", Function},
        {"Public Function F()", Function},
        {"Private Function F()", Function},
        {"Friend Function F()", Function},
        {"Static Function F()", Function},
        {"Public Static Function F()", Function},
        {"Private Static Function F()", Function},
        {"Friend Static Function F()", Function},
        {"Property Get X()", Property},
        {"Public Property Let X(v)", Property},
        {"Friend Property Set X(v)", Property},
        {"Private Property Get X()", Property},
        // There is no static form of a property.
        {"Static Property Get X()", std::nullopt},
        {"Public Static Property Get X()", std::nullopt},
        {"Private Declare Sub Sleep Lib", std::nullopt},
        {"Public Event Done()", std::nullopt},
        {"End Sub", std::nullopt},
        {"Sub", std::nullopt},
        {"Sub\tMain()", std::nullopt},
        {"Subtotal()", std::nullopt},
        {"' Sub Main()", std::nullopt},
        {"", std::nullopt},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(IsProcedureStart(row.key), row.kind) << row.key;
}

TEST(ProcedureStarts, EndWithTheEndOfTheirKindAloneOnItsLine) {
    struct Row {
        std::string_view line;
        ProcedureKind kind;
        bool isEnd;
    };
    constexpr Row kRows[] = {
        {"End Sub", Sub, true},
        {"\t end SUB \t", Sub, true},
        {"End Function", Function, true},
        {"End Property", Property, true},
        {"End Function", Sub, false},
        {"End Sub", Property, false},
        {"End Sub ' done", Sub, false},
        {"End  Sub", Sub, false},
        {"x: End Sub", Sub, false},
        {"End Su", Sub, false},
        {"", Sub, false},
    };
    for (const Row& row : kRows)
        EXPECT_EQ(IsProcedureEnd(row.line, row.kind), row.isEnd) << row.line;
}

}  // namespace
}  // namespace snippetarium
