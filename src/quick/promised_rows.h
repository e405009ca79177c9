#pragma once

#include <array>
#include <cstddef>

#include "quick/name_match.h"
#include "quick/work.h"

namespace snippetarium {

/// The tiers of hits that are found by their names.
inline constexpr std::size_t kNameTiers = static_cast<std::size_t>(QuickTier::NamePart) + 1;

/// Leaves rows of one block where they are.
bool BlockComesBefore(const FoundRow& a, const FoundRow& b);

/// Rows by the tier that their names promise, until that is listed. Blocks are looked into in their
/// order, but for those that are put off: behind the others, in an order of their own.
class PromisedRows {
  public:
    /// The row has the tier that it is promised for.
    void Add(const FoundRow& row) { promised_[Index(row)].push_back(row); }
    /// Adds a row whose filters leave it a worse tier than its name promised.
    void AddLate(const FoundRow& row) { late_[Index(row)].push_back(row); }
    /// All blocks that were not put off have been looked into.
    void BeginPutOff();

    /// The rows of a tier, block after block.
    FoundRows Take(std::size_t tier);

  private:
    static std::size_t Index(const FoundRow& row) { return static_cast<std::size_t>(row.tier); }

    std::array<FoundRows, kNameTiers> promised_;
    /// How many of those are of blocks that were not put off.
    std::array<std::size_t, kNameTiers> notPutOff_{};
    std::array<FoundRows, kNameTiers> late_;
};

}  // namespace snippetarium
