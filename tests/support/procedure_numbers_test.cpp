#include "support/procedure_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace snippetarium {
namespace {

const NumberBlock* BlockOf(std::string_view module) {
    const auto blocks = NumberBlocks();
    const auto found = std::ranges::find(blocks, module, &NumberBlock::module);
    return found == blocks.end() ? nullptr : &*found;
}

TEST(ProcedureNumbers, EachProcedureHasANumberOfItsModuleOrALaterAddition) {
    for (const ProcedureRow& row : Procedures()) {
        const NumberBlock* const block = BlockOf(row.module);
        ASSERT_NE(block, nullptr) << row.name << " names the unknown module " << row.module;
        EXPECT_TRUE(block->Holds(row.number) || kLaterAdditions.Holds(row.number))
            << row.name << " has " << row.number << ", its module has " << block->first << " to "
            << block->last;
    }
}

TEST(ProcedureNumbers, RowsStandInTheOrderOfTheirNumbersAndShareNone) {
    const auto rows = Procedures();
    const auto wrong =
        std::ranges::adjacent_find(rows, std::greater_equal{}, &ProcedureRow::number);
    EXPECT_TRUE(wrong == rows.end()) << wrong->name;
}

TEST(ProcedureNumbers, PublishedNumbersStay) {
    EXPECT_EQ(ErrorCode(Procedure::OpenCatalogue), 11151);
    EXPECT_EQ(ErrorCode(Procedure::RunCompaction), 11152);
    EXPECT_EQ(ErrorCode(Procedure::CompactCatalogue), 11153);
}

TEST(ProcedureNumbers, BlocksFollowEachOtherAndOnlyTwoPairsMeet) {
    using Pair = std::pair<std::string_view, std::string_view>;
    std::vector<Pair> meeting;
    const auto blocks = NumberBlocks();
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        EXPECT_LE(blocks[i].first, blocks[i].last) << blocks[i].module;
        EXPECT_LT(blocks[i].last, kLaterAdditions.first) << blocks[i].module;
        if (i == 0) continue;
        EXPECT_LT(blocks[i - 1].module, blocks[i].module);
        if (blocks[i].first <= blocks[i - 1].last) {
            meeting.emplace_back(blocks[i - 1].module, blocks[i].module);
        }
    }
    EXPECT_EQ(meeting,
              (std::vector<Pair>{{"fProgressBar1", "fProgressBar2"}, {"modFSOUtil", "modImport"}}));
    EXPECT_EQ(BlockOf("modFSOUtil")->last, BlockOf("modImport")->first);
}

}  // namespace
}  // namespace snippetarium
