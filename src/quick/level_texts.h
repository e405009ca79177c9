#pragma once

#include <cstdint>
#include <vector>

#include "quick/plan.h"
#include "quick/text_look_up.h"

namespace snippetarium {

// The text index names the rows whose comments or codes may hold a word. To ask it takes long for a
// word that many rows have; but then the newest rows have it too, and their texts are quickly
// looked through. So where the index does not answer at once, the texts of the newest block are
// read first, and what is found there can be shown. Texts are also read where the index does not
// know a word at all.

/// Finds out which rows of a level have the words of an entry in their comments or codes, as far as
/// it has to be known of one block after the other, the newest first.
class LevelTexts {
  public:
    /// `tier` is Comment or Code.
    LevelTexts(QuickPlan& plan, QuickTier tier, QuickKind kind);

    /// Does a piece of what there is to do before the candidates of a block can be looked at. False
    /// when there is nothing more.
    bool Advance(std::int32_t block);

  private:
    bool IsReadBeforeLookUps(std::int32_t block) const;
    bool ReadPart(std::int32_t block);

    QuickPlan& plan_;
    QuickTier tier_;
    QuickText text_;
    QuickKind kind_;
    /// Those that are looked for in these texts.
    std::vector<std::size_t> terms_;
    std::vector<TextLookUp> lookUps_;
    std::size_t nextLookUp_ = 0;
    /// So many pieces of looking up are waited for that are not the last of a term.
    int patience_;
    /// What is read of the block: which of terms_, which part, and what was found.
    std::size_t term_ = 0;
    std::int32_t part_ = 0;
    BlockMask found_;
};

}  // namespace snippetarium
