#include "quick/quick_search.h"

#include <chrono>
#include <utility>

#include "quick/hit.h"
#include "quick/node_row.h"
#include "quick/plan.h"
#include "quick/work.h"
#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// The pieces of work are short, so a step is over soon behind this.
constexpr std::chrono::milliseconds kStep{4};

/// The undefined application is always there.
constexpr std::string_view kHeldRead = "SELECT appID FROM tblApplication";

}  // namespace

struct QuickSearch::State {
    State(Database& db, const QuickQuery& query) : plan(db, query) {}

    QuickPlan plan;
    std::vector<std::unique_ptr<QuickWork>> works;
    std::size_t nextWork = 0;
    FoundRows found;
    std::size_t read = 0;
    /// Rows that were found and had gone when they were to be shown.
    std::size_t gone = 0;

    bool HasWork() const { return nextWork < works.size(); }
    void Add(std::unique_ptr<QuickWork> work) { works.push_back(std::move(work)); }

    /// What has to be known of terms before any row can be judged.
    void AddPreparation() {
        for (std::size_t i = 0; i < plan.terms.size(); ++i) {
            PlannedTerm& term = plan.terms[i];
            if (term.term.field == QuickField::Language) FindLanguages(plan, term);
            if (!IsTextField(term.term.field) && !term.isNegated) Add(NarrowByFilter(plan, i));
        }
    }

    /// The tiers one after the other, the best first.
    void AddTiers() {
        if (plan.UsesText(QuickText::Name)) Add(FindByNames(plan, found));
        for (std::size_t i = 0; i < plan.terms.size(); ++i) {
            const PlannedTerm& term = plan.terms[i];
            if (!term.isNegated && term.IsLookedForIn(QuickText::Keyword))
                Add(LookUpKeywords(plan, i));
        }
        for (const QuickText text : {QuickText::Keyword, QuickText::Comment, QuickText::Code}) {
            if (plan.UsesText(text)) Add(FindByTier(plan, TierOfText(text), found));
        }
        if (plan.UsesSlips()) Add(FindByTier(plan, QuickTier::Slip, found));
        if (CanBeMetByFilters(plan.root, plan.terms)) {
            Add(FindByTier(plan, QuickTier::Filter, found));
        }
    }
};

QuickSearch::QuickSearch(Database& db, std::string_view entry, std::size_t wantedHits)
    : db_(db), query_(ParseQuickQuery(entry)), wanted_(wantedHits) {}

QuickSearch::~QuickSearch() = default;

void QuickSearch::Prepare() {
    state_ = std::make_unique<State>(db_, query_);
    state_->AddPreparation();
    state_->AddTiers();
}

bool QuickSearch::DoSomeWork() {
    const auto end = std::chrono::steady_clock::now() + kStep;
    // A read that is begun and not ended: the thousands of small ones within it then need no locks
    // of their own.
    const auto held = db_.GetConnection().OpenCursor(kHeldRead);
    held->Next();
    if (!state_) Prepare();
    const bool waitsForFirst = hits_.empty();
    do {
        if (HasUnreadHits()) {
            ReadNextHit();
        } else if (waitsForFirst && !hits_.empty()) {
            break;  // the caller will want to show them
        } else if (state_->HasWork()) {
            QuickWork& work = *state_->works[state_->nextWork];
            if (!work.Advance()) state_->works[state_->nextWork++].reset();
        } else {
            return false;
        }
    } while (std::chrono::steady_clock::now() < end);
    return HasUnreadHits() || state_->HasWork();
}

bool QuickSearch::Step() {
    if (!query_.root || hasFailed_) return false;
    hasFailed_ = true;  // until the step has ended well
    const bool hasMore = Guarded(db_.Reporter(), Procedure::QuickSearchStep, [&] {
        const bool isUnfinished = DoSomeWork();
        hasFailed_ = false;
        return isUnfinished;
    });
    return hasMore;
}

bool QuickSearch::HasUnreadHits() const {
    return state_ && hits_.size() < wanted_ && state_->read < state_->found.size();
}

void QuickSearch::ReadNextHit() {
    const FoundRow& found = state_->found[state_->read++];
    auto row = NodeRow::Read(db_, found.kind, found.id);
    if (row) {
        hits_.push_back(DescribeHit(state_->plan, *row, found.tier));
    } else {
        ++state_->gone;
    }
}

std::size_t QuickSearch::FoundCount() const {
    return state_ ? state_->found.size() - state_->gone : 0;
}

std::optional<std::size_t> QuickSearch::Total() const {
    if (!query_.root) return 0;
    if (hasFailed_ || !state_ || state_->HasWork()) return {};
    return FoundCount();
}

}  // namespace snippetarium
