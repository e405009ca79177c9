#include <algorithm>

#include "quick/node_row.h"
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
                if (waiting_.none()) continue;
            }
            while (!waiting_.test(place_))
                ++place_;
            waiting_.reset(place_);
            LookAt(block_ * kIDsInBlock + static_cast<std::int32_t>(place_));
        }
        return true;
    }

  private:
    bool EnterNextBlock() {
        constexpr int kBlocksAtATime = 256;
        for (int i = 0; i < kBlocksAtATime; ++i) {
            if (--block_ < 0) {
                if (++level_ == kQuickKinds) return false;
                block_ = plan_.newestBlock[level_];
            }
            waiting_ = CandidatesOf(plan_, tier_, Kind(), block_);
            place_ = 0;
            if (waiting_.any()) break;
        }
        return true;
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
