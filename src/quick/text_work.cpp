#include <utility>

#include "quick/text_rows.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

class TextWork final : public QuickWork {
  public:
    TextWork(QuickPlan& plan, PlannedTerm& term, QuickText text)
        : plan_(plan), term_(term), text_(text) {}

    bool Advance() override {
        const QuickKind kind = kQuickLevels[level_].kind;
        const std::string& literal = term_.pattern->Literal();
        CandidateRows& rows = term_.In(text_);
        if (!scan_) scan_ = ScanFor(kind, text_, literal);
        if (scan_ && plan_.db.GetConnection().Advance(*scan_)) return true;
        if (!scan_) rows.Know(kind);  // no row has such a text
        if (scan_ && scan_->IsKnown()) {
            rows.Of(kind) = std::move(scan_->Rows());
            AddRowsThatAre(plan_.db, kind, text_, literal, rows);
            rows.Know(kind);
        }
        scan_.reset();
        return ++level_ < kQuickKinds;
    }

  private:
    QuickPlan& plan_;
    PlannedTerm& term_;
    QuickText text_;
    std::size_t level_ = 0;
    std::optional<TextScan> scan_;
};

}  // namespace

std::unique_ptr<QuickWork> LookUpTexts(QuickPlan& plan, std::size_t term, QuickText text) {
    return std::make_unique<TextWork>(plan, plan.terms[term], text);
}

}  // namespace snippetarium
