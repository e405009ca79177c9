#include <utility>

#include "quick/text_rows.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

class TextWork final : public QuickWork {
  public:
    TextWork(QuickPlan& plan, PlannedTerm& term, QuickText text, QuickKind kind)
        : plan_(plan), term_(term), text_(text), kind_(kind) {}

    bool Advance() override {
        const std::string& literal = term_.pattern->Literal();
        CandidateRows& rows = term_.In(text_);
        if (!scan_) scan_ = ScanFor(kind_, text_, literal);
        if (scan_ && plan_.db.GetConnection().Advance(*scan_)) return true;
        if (!scan_) rows.Know(kind_);  // no row has such a text
        if (scan_ && scan_->IsKnown()) {
            rows.Of(kind_) = std::move(scan_->Rows());
            AddRowsThatAre(plan_.db, kind_, text_, literal, rows);
            rows.Know(kind_);
        }
        return false;
    }

  private:
    QuickPlan& plan_;
    PlannedTerm& term_;
    QuickText text_;
    QuickKind kind_;
    std::optional<TextScan> scan_;
};

}  // namespace

std::unique_ptr<QuickWork> LookUpTexts(QuickPlan& plan, std::size_t term, QuickText text,
                                       QuickKind kind) {
    return std::make_unique<TextWork>(plan, plan.terms[term], text, kind);
}

}  // namespace snippetarium
