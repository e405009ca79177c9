#include <algorithm>
#include <optional>

#include "quick/block_walk.h"
#include "quick/level_texts.h"
#include "quick/name_tiers.h"
#include "quick/node_row.h"
#include "quick/work.h"

namespace snippetarium {

namespace {

class TierWork final : public QuickWork {
  public:
    TierWork(QuickPlan& plan, QuickTier tier, FoundRows& found)
        : plan_(plan), tier_(tier), found_(found), walk_(plan) {
        for (PlannedTerm& term : plan_.terms) {
            if (tier_ == QuickTier::Slip) term.bySlip.KnowAll();
        }
    }

    bool Advance() override {
        constexpr std::size_t kRowsAtATime = 16;
        if (next_ == waiting_.size()) {
            FinishBlock();
            if (walk_.IsAtEnd()) return false;
            EnterNextBlock();
            return true;
        }
        const std::size_t end = std::min(next_ + kRowsAtATime, waiting_.size());
        while (next_ < end)
            LookAt(waiting_[next_++]);
        return true;
    }

  private:
    /// To look at so many rows takes longer than to look at the names of a block.
    static constexpr std::size_t kManyRows = 8;

    /// Looks at candidates of many blocks, but at the names or texts of one at most.
    void EnterNextBlock() {
        constexpr int kBlocksAtATime = 256;
        for (int i = 0; i < kBlocksAtATime && !walk_.IsAtEnd(); ++i) {
            if (AdvanceTexts()) return;
            if (tier_ == QuickTier::Slip) AssumeSlips();
            BlockMask mask = Candidates();
            const bool isRead = mask.any();
            if (isRead && tier_ == QuickTier::Slip) {
                FindSlips(plan_, walk_.Names(), walk_.Kind(), walk_.Block());
                mask = Candidates();
            }
            if (mask.count() >= kManyRows && LookAtNames(mask)) mask = Candidates();
            if (mask.any()) PutInOrder(mask);
            walk_.Next();
            if (isRead) return;
        }
    }

    BlockMask Candidates() const { return CandidatesOf(plan_, tier_, walk_.Kind(), walk_.Block()); }

    /// True when a piece was done of what has to be known of texts before.
    bool AdvanceTexts() {
        if (tier_ != QuickTier::Comment && tier_ != QuickTier::Code) return false;
        if (!texts_ || textsKind_ != walk_.Kind()) {
            textsKind_ = walk_.Kind();
            texts_.emplace(plan_, tier_, textsKind_);
        }
        return texts_->Advance(walk_.Block());
    }

    /// Names may rule out rows, of a block whose names were not looked at before. False when they
    /// were.
    bool LookAtNames(const BlockMask& rows) {
        if (!plan_.LooksAtNames() || plan_.notedNames.Holds(walk_.Kind(), walk_.Block()))
            return false;
        NoteNames(plan_, walk_.Names(), walk_.Kind(), walk_.Block(), rows, nameTiers_);
        return true;
    }

    /// Of the rows of a block, the shorter names come first. Where there are many rows, they are
    /// looked at in this order, so that each is there as soon as it has been looked at.
    void PutInOrder(BlockMask mask) {
        constexpr std::size_t kMany = 32;
        isInOrder_ = mask.count() >= kMany;
        if (isInOrder_) {
            for (const NameBlock::Entry& entry : walk_.Names().Entries()) {
                const auto place = static_cast<std::size_t>(entry.id % kIDsInBlock);
                if (!mask.test(place)) continue;
                Await(place, entry.place.size);
                mask.reset(place);
            }
        }
        for (std::size_t place = mask._Find_first(); place < mask.size();
             place = mask._Find_next(place))
            Await(place, 0);
        if (isInOrder_) std::ranges::sort(waiting_, ComesBefore);
    }

    void Await(std::size_t place, std::size_t nameSize) {
        waiting_.push_back({walk_.Kind(), tier_,
                            walk_.Block() * kIDsInBlock + static_cast<std::int32_t>(place),
                            static_cast<std::uint32_t>(nameSize)});
    }

    void AssumeSlips() {
        for (PlannedTerm& term : plan_.terms)
            term.bySlip.Of(walk_.Kind()).Replace(walk_.Block(), ~BlockMask());
    }

    void LookAt(FoundRow found) {
        auto row = NodeRow::Read(plan_.db, found.kind, found.id);
        if (!row || TierOfRow(plan_, *row, tier_) != tier_) return;
        found.nameSize = static_cast<std::uint32_t>(row->Name().size());
        (isInOrder_ ? found_ : ofBlock_).push_back(found);
    }

    void FinishBlock() {
        std::ranges::sort(ofBlock_, ComesBefore);
        found_.insert(found_.end(), ofBlock_.begin(), ofBlock_.end());
        ofBlock_.clear();
        waiting_.clear();
        next_ = 0;
    }

    QuickPlan& plan_;
    QuickTier tier_;
    FoundRows& found_;
    /// Behind the block that is looked at.
    BlockWalk walk_;
    /// Of the level that is looked at, where the tier is one of comments or codes.
    std::optional<LevelTexts> texts_;
    QuickKind textsKind_ = QuickKind::Application;
    std::vector<BlockTiers> nameTiers_;
    FoundRows waiting_;
    std::size_t next_ = 0;
    bool isInOrder_ = false;
    /// Where the rows are not looked at in their order.
    FoundRows ofBlock_;
};

}  // namespace

std::unique_ptr<QuickWork> FindByTier(QuickPlan& plan, QuickTier tier, FoundRows& found) {
    return std::make_unique<TierWork>(plan, tier, found);
}

}  // namespace snippetarium
