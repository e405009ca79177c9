#include "quick/text_look_up.h"

#include <utility>

#include "quick/text_rows.h"
#include "store/database.h"

namespace snippetarium {

bool TextLookUp::Advance() {
    const std::string& literal = term_.pattern->Literal();
    if (!scan_) scan_ = ScanFor(kind_, text_, literal);
    if (scan_ && plan_.db.GetConnection().Advance(*scan_)) return true;
    CandidateRows& rows = term_.In(text_);
    hasFound_ = !scan_ || scan_->IsKnown();
    if (scan_ && hasFound_) {
        rows.Of(kind_) = std::move(scan_->Rows());
        AddRowsThatAre(plan_.db, kind_, text_, literal, rows);
    }
    if (hasFound_) rows.Know(kind_);  // where there is no such text, that is no row
    scan_.reset();
    return false;
}

}  // namespace snippetarium
