#include <algorithm>

#include "quick/node_row.h"
#include "quick/text_rows.h"
#include "quick/work.h"

namespace snippetarium {

namespace {

class TierWork final : public QuickWork {
  public:
    TierWork(QuickPlan& plan, QuickTier tier, FoundRows& found)
        : plan_(plan), tier_(tier), found_(found), block_(plan.newestBlock.front() + 1) {}

    bool Advance() override {
        constexpr int kRowsAtATime = 16;
        for (int i = 0; i < kRowsAtATime; ++i) {
            if (waiting_.none()) {
                FinishBlock();
                if (!EnterNextBlock()) return false;
                if (waiting_.none()) return true;
            }
            while (!waiting_.test(place_))
                ++place_;
            waiting_.reset(place_);
            LookAt(block_ * kIDsInBlock + static_cast<std::int32_t>(place_));
        }
        return true;
    }

  private:
    /// Looks at candidates of many blocks, but at the texts of one at most.
    bool EnterNextBlock() {
        constexpr int kBlocksAtATime = 256;
        bool isRead = false;
        for (int i = 0; i < kBlocksAtATime && !isRead; ++i) {
            if (--block_ < 0) {
                if (++level_ == kQuickKinds) return false;
                block_ = plan_.newestBlock[level_];
            }
            waiting_ = CandidatesOf(plan_, tier_, Kind(), block_);
            isRead = waiting_.any();
            if (isRead) waiting_ &= RowsWithTextOfTier();
            place_ = 0;
        }
        return true;
    }

    /// Where the index knows no list for a word, the texts of the block are looked through in one
    /// go: much quicker than to read all rows and look at each.
    BlockMask RowsWithTextOfTier() const {
        if (tier_ != QuickTier::Comment && tier_ != QuickTier::Code) return ~BlockMask();
        const QuickText text = tier_ == QuickTier::Comment ? QuickText::Comment : QuickText::Code;
        BlockMask mask;
        for (const PlannedTerm& term : plan_.terms) {
            if (term.isNegated || !term.IsLookedForIn(text)) continue;
            const CandidateRows& rows = term.In(text);
            mask |= rows.isEverything ? RowsOfBlockWithText(plan_.db, Kind(), text,
                                                            term.pattern->Literal(), block_)
                                      : rows.Of(Kind()).Block(block_);
        }
        return mask;
    }

    void LookAt(std::int32_t id) {
        auto row = NodeRow::Read(plan_.db, Kind(), id);
        if (!row || TierOfRow(plan_, *row, tier_) != tier_) return;
        ofBlock_.push_back({Kind(), tier_, id, static_cast<std::uint32_t>(row->Name().size())});
    }

    void FinishBlock() {
        std::ranges::sort(ofBlock_, ComesBefore);
        found_.insert(found_.end(), ofBlock_.begin(), ofBlock_.end());
        ofBlock_.clear();
    }

    QuickKind Kind() const { return static_cast<QuickKind>(level_); }

    QuickPlan& plan_;
    QuickTier tier_;
    FoundRows& found_;
    std::size_t level_ = 0;
    std::int32_t block_;
    BlockMask waiting_;  // what is left of the block
    std::size_t place_ = 0;
    FoundRows ofBlock_;
};

}  // namespace

std::unique_ptr<QuickWork> FindByTier(QuickPlan& plan, QuickTier tier, FoundRows& found) {
    return std::make_unique<TierWork>(plan, tier, found);
}

}  // namespace snippetarium
