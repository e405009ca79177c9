#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "quick/text_look_up.h"

namespace snippetarium {

/// Asks the text index for one term of an entry after the other which procedures may have it in
/// their names. It does not know each: not, for example, a single letter.
class NameLookUps {
  public:
    explicit NameLookUps(QuickPlan& plan) : plan_(plan), isFound_(plan.terms.size(), false) {}

    /// Does a piece. False when the index was asked for all terms.
    bool Advance();

    /// Whether the names of procedures tell nothing more than the index of who is a candidate.
    bool HasFoundAll() const;
    /// Makes every procedure of a block a candidate for the terms that the index does not know.
    void AssumeOthers(std::int32_t block);

  private:
    QuickPlan& plan_;
    std::size_t term_ = 0;
    std::optional<TextLookUp> lookUp_;
    std::vector<bool> isFound_;  // by term
};

}  // namespace snippetarium
