#include <algorithm>

#include "quick/text_rows.h"
#include "quick/work.h"

namespace snippetarium {

namespace {

class TextWork final : public QuickWork {
  public:
    TextWork(QuickPlan& plan, PlannedTerm& term, QuickText text)
        : plan_(plan), term_(term), text_(text) {}

    /// One level of the catalogue at a time.
    bool Advance() override {
        const QuickLevel& level = kQuickLevels[level_];
        const bool hasText = text_ == QuickText::Comment || !level.code.empty();
        if (hasText) {
            const TextRows rows =
                RowsWithText(plan_.db, level.kind, text_, term_.pattern->Literal());
            // One level that has to be read whole is all that the index is good for then.
            if (!rows) return false;
            for (const std::int64_t id : *rows) {
                if (id > 0) candidates_.Of(level.kind).Add(static_cast<std::int32_t>(id));
            }
        }
        if (++level_ < kQuickKinds) return true;
        candidates_.isEverything = false;
        term_.In(text_) = std::move(candidates_);
        return false;
    }

  private:
    QuickPlan& plan_;
    PlannedTerm& term_;
    QuickText text_;
    std::size_t level_ = 0;
    CandidateRows candidates_;
};

}  // namespace

std::unique_ptr<QuickWork> LookUpTexts(QuickPlan& plan, std::size_t term, QuickText text) {
    return std::make_unique<TextWork>(plan, plan.terms[term], text);
}

}  // namespace snippetarium
