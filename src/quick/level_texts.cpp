#include "quick/level_texts.h"

#include <algorithm>

#include "quick/text_rows.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// To look up so little text takes a look at some hundred lists.
constexpr std::size_t kShortLiteral = 2;
constexpr int kPatience = 4;

}  // namespace

LevelTexts::LevelTexts(QuickPlan& plan, QuickTier tier, QuickKind kind)
    : plan_(plan),
      tier_(tier),
      text_(tier == QuickTier::Comment ? QuickText::Comment : QuickText::Code),
      kind_(kind),
      patience_(kPatience) {
    for (std::size_t i = 0; i < plan.terms.size(); ++i) {
        PlannedTerm& term = plan.terms[i];
        if (term.isNegated || !term.IsLookedForIn(text_)) continue;
        terms_.push_back(i);
        lookUps_.emplace_back(plan, term, text_, kind);
        const bool isShort = CharacterCount(term.pattern->Literal()) <= kShortLiteral;
        if (isShort && text_ == QuickText::Code) patience_ = 0;
    }
}

bool LevelTexts::Advance(std::int32_t block) {
    if (nextLookUp_ < lookUps_.size() && !IsReadBeforeLookUps(block)) {
        if (lookUps_[nextLookUp_].Advance()) {
            --patience_;
        } else {
            ++nextLookUp_;
        }
        return true;
    }
    return ReadPart(block);
}

bool LevelTexts::IsReadBeforeLookUps(std::int32_t block) const {
    constexpr std::size_t kMostTerms = 4;
    return patience_ <= 0 && kind_ == QuickKind::Procedure && terms_.size() <= kMostTerms &&
           block == plan_.newestBlock[static_cast<std::size_t>(kind_)];
}

/// Much quicker than to read many rows and look at each; but not than to look at a few.
bool LevelTexts::ReadPart(std::int32_t block) {
    constexpr std::size_t kMany = 128;
    for (; term_ < terms_.size(); ++term_) {
        PlannedTerm& term = plan_.terms[terms_[term_]];
        CandidateRows& rows = term.In(text_);
        if (rows.IsBlockKnown(kind_, block)) continue;
        if (part_ == 0 && CandidatesOf(plan_, tier_, kind_, block).count() < kMany) break;
        found_ |= RowsOfPartWithText(plan_.db, kind_, text_, term.pattern->Literal(), block, part_);
        if (++part_ == kPartsOfBlock) {
            rows.KnowBlock(kind_, block, found_);
            found_.reset();
            part_ = 0;
        }
        return true;
    }
    term_ = 0;
    return false;
}

}  // namespace snippetarium
