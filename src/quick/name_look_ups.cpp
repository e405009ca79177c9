#include "quick/name_look_ups.h"

namespace snippetarium {

namespace {

bool MakesHits(const PlannedTerm& term) {
    return !term.isNegated && term.IsLookedForIn(QuickText::Name);
}

}  // namespace

bool NameLookUps::Advance() {
    if (term_ == plan_.terms.size()) return false;
    PlannedTerm& term = plan_.terms[term_];
    if (MakesHits(term)) {
        if (!lookUp_) lookUp_.emplace(plan_, term, QuickText::Name, QuickKind::Procedure);
        if (lookUp_->Advance()) return true;
        isFound_[term_] = lookUp_->HasFound();
        lookUp_.reset();
    }
    ++term_;
    return true;
}

bool NameLookUps::HasFoundAll() const {
    for (std::size_t i = 0; i < plan_.terms.size(); ++i) {
        if (plan_.terms[i].IsLookedForIn(QuickText::Name) && !isFound_[i]) return false;
    }
    return true;
}

void NameLookUps::AssumeOthers(std::int32_t block) {
    for (std::size_t i = 0; i < plan_.terms.size(); ++i) {
        PlannedTerm& term = plan_.terms[i];
        if (!MakesHits(term) || isFound_[i]) continue;
        term.In(QuickText::Name).Of(QuickKind::Procedure).Replace(block, ~BlockMask());
    }
}

}  // namespace snippetarium
