#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "engine/id_set.h"
#include "quick/name_block.h"
#include "quick/plan.h"

namespace snippetarium {

/// How well each name of a block fits a term.
class BlockTiers {
  public:
    BlockTiers() { tiers_.fill(kNone); }

    /// Looks through all names of the block.
    static BlockTiers Of(const PlannedTerm& term, NameBlock& block);
    /// Looks at the names of these rows only.
    static BlockTiers OfRows(const PlannedTerm& term, NameBlock& block, const BlockMask& rows);

    /// The rows whose names have the term.
    const BlockMask& Rows() const { return rows_; }
    /// Nothing where the name does not have the term.
    std::optional<QuickTier> At(std::size_t place) const {
        if (tiers_[place] == kNone) return {};
        return static_cast<QuickTier>(tiers_[place]);
    }

  private:
    static constexpr std::uint8_t kNone = 0xFF;

    void Note(std::int32_t id, QuickTier tier);
    void NoteName(const PlannedTerm& term, NameBlock& block, const NameBlock::Entry& entry);

    std::array<std::uint8_t, kIDsInBlock> tiers_;
    BlockMask rows_;
};

/// Notes for each term that is looked for in names which of these rows have it, or which of the
/// whole block where that takes less. Gives the tiers of the rows, by term.
void NoteNames(QuickPlan& plan, NameBlock& names, QuickKind kind, std::int32_t block,
               const BlockMask& rows, std::vector<BlockTiers>& tiers);

/// The tier of a row by its name alone, if all filters let it through. `tiers` are those of its
/// block, by term.
std::optional<QuickTier> TierOfName(const QuickPlan& plan, const std::vector<BlockTiers>& tiers,
                                    std::size_t place);

}  // namespace snippetarium
