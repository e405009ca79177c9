#pragma once

#include <optional>

#include "engine/text_scan.h"
#include "quick/plan.h"

namespace snippetarium {

/// Asks the text index, piece by piece, which rows of a level may hold a term in their names,
/// comments or codes, and notes them as the candidates of the term.
class TextLookUp {
  public:
    /// The plan and the term must outlive this.
    TextLookUp(QuickPlan& plan, PlannedTerm& term, QuickText text, QuickKind kind)
        : plan_(plan), term_(term), text_(text), kind_(kind) {}

    /// Does a piece, which takes a millisecond or two at most. False when there is no more to do.
    bool Advance();

    /// Whether the candidates were found. Else the index does not know the word, and any row may
    /// have it.
    bool HasFound() const { return hasFound_; }

  private:
    QuickPlan& plan_;
    PlannedTerm& term_;
    QuickText text_;
    QuickKind kind_;
    std::optional<TextScan> scan_;
    bool hasFound_ = false;
};

}  // namespace snippetarium
