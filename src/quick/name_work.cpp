#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "quick/block_fit.h"
#include "quick/block_walk.h"
#include "quick/name_index.h"
#include "quick/name_look_ups.h"
#include "quick/name_tiers.h"
#include "quick/node_row.h"
#include "quick/promised_rows.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

// The names of all levels are looked through, applications and classes first, then procedures, the
// newest first. What is found goes into the tier that its name promises, and a tier is listed when
// nothing more can come into it. For the hits to be there before all names have been read, the
// index on the names of procedures is asked first: which are exactly a word of the entry, and
// whether any begins with one. The tier for which it cannot rule out more procedures is the
// `floor_`: what is better is complete before procedures are read, and what is just that good is
// listed as it comes. The text index then tells which blocks of procedures need not be read: all of
// them, for a word that is in no name. Of the others, many can only hold hits of worse tiers: where
// no word starts as the entry wants it, all are of the last one. They are put off until their tier
// is listed, and then looked into one after the other.
class NameWork final : public QuickWork {
  public:
    NameWork(QuickPlan& plan, FoundRows& found)
        : plan_(plan), found_(found), walk_(plan), lookUps_(plan) {
        for (PlannedTerm& term : plan_.terms) {
            if (term.IsLookedForIn(QuickText::Name)) term.In(QuickText::Name).KnowAll();
        }
    }

    bool Advance() override {
        if (next_ < toConfirm_.size()) {
            ConfirmSome();
            return true;
        }
        toConfirm_.clear();
        next_ = 0;
        inOrderTo_ = 0;
        switch (phase_) {
            case Phase::UpperLevels:
                LookInto(walk_, ~BlockMask());
                walk_.Next();
                if (walk_.IsAtEnd() || walk_.Kind() == QuickKind::Procedure) AskIndex();
                return true;
            case Phase::BetterTiers:
                toConfirm_ = promised_.Take(tier_);
                if (tier_++ == floor_) phase_ = Phase::TextIndex;
                return true;
            case Phase::TextIndex:
                if (!lookUps_.Advance()) {
                    phase_ = Phase::Procedures;
                    areAllInIndex_ = lookUps_.HasFoundAll();
                }
                return true;
            case Phase::Procedures:
                ReadSomeBlocks();
                if (walk_.IsAtEnd()) {
                    phase_ = Phase::OtherTiers;
                    promised_.BeginPutOff();
                }
                return true;
            case Phase::OtherTiers:
                if (tier_ == kNameTiers) break;
                ContinueTier();
                return true;
        }
        return false;
    }

  private:
    enum class Phase { UpperLevels, BetterTiers, TextIndex, Procedures, OtherTiers };

    void AskIndex() {
        phase_ = Phase::BetterTiers;
        NamesInIndex known = AskNameIndex(plan_);
        floor_ = static_cast<std::size_t>(known.bestOfOthers);
        for (const FoundRow& row : known.exact)
            promised_.Add(row);
    }

    /// Looks at the candidates of many blocks, but at the names of one at most.
    void ReadSomeBlocks() {
        constexpr int kBlocksAtATime = 256;
        for (int i = 0; i < kBlocksAtATime && !walk_.IsAtEnd(); ++i) {
            if (areAllInIndex_) {
                plan_.notedNames.Add(QuickKind::Procedure, walk_.Block());
            } else {
                lookUps_.AssumeOthers(walk_.Block());
            }
            const BlockMask rows =
                CandidatesOf(plan_, QuickTier::NamePart, QuickKind::Procedure, walk_.Block());
            const bool isRead = rows.any();
            if (isRead) ReadBlock(rows);
            walk_.Next();
            if (isRead) return;
        }
    }

    /// Looks into a block, unless all it can hold is worse than what is listed now.
    void ReadBlock(const BlockMask& rows) {
        // A few names are looked at as quickly.
        constexpr std::size_t kFew = 8;
        const BlockFit fit = rows.count() <= kFew ? BlockFit::Whole
                                                  : FitOfEntry(plan_, walk_.Names(), walk_.Block());
        if (fit == BlockFit::None) return;
        const auto best = static_cast<std::size_t>(BestTierOf(fit));
        if (best <= floor_) {
            LookInto(walk_, rows);
        } else {
            putOff_[best].push_back(walk_.Block());
        }
    }

    static QuickTier BestTierOf(BlockFit fit) {
        if (fit == BlockFit::Whole) return QuickTier::ExactName;
        return fit == BlockFit::AtWordStart ? QuickTier::NamePrefix : QuickTier::NamePart;
    }

    /// Looks at the names of some rows of a block, or of all.
    void LookInto(BlockWalk& walk, BlockMask rows) {
        NameBlock& names = walk.Names();
        NoteNames(plan_, names, walk.Kind(), walk.Block(), rows, tiers_);
        rows = CandidatesOf(plan_, QuickTier::NamePart, walk.Kind(), walk.Block());
        if (rows.any()) Sort(names, walk.Kind(), rows);
    }

    /// Lists what was promised for a tier, and between that, in their places, the blocks that were
    /// put off until then.
    void ContinueTier() {
        const std::vector<std::int32_t>& blocks = putOff_[tier_];
        if (!putOffWalk_) {
            floor_ = tier_;
            ofTier_ = promised_.Take(tier_);
            ofTierTaken_ = 0;
            putOffRead_ = 0;
            putOffWalk_.emplace(plan_, QuickKind::Procedure);
        }
        if (putOffRead_ < blocks.size()) {
            ReadPutOffBlock(blocks[putOffRead_++]);
        } else {
            TakePromised(ofTier_.size());
            putOffWalk_.reset();
            ++tier_;
        }
    }

    void ReadPutOffBlock(std::int32_t block) {
        while (putOffWalk_->Block() != block)
            putOffWalk_->Next();
        const auto isNewer = [block](const FoundRow& row) {
            return row.kind != QuickKind::Procedure || BlockOf(row.id) >= block;
        };
        const auto rest = ofTier_.begin() + static_cast<std::ptrdiff_t>(ofTierTaken_);
        const auto end = std::partition_point(rest, ofTier_.end(), isNewer);
        TakePromised(static_cast<std::size_t>(end - ofTier_.begin()));
        LookInto(*putOffWalk_,
                 CandidatesOf(plan_, QuickTier::NamePart, QuickKind::Procedure, block));
    }

    void TakePromised(std::size_t end) {
        if (ofTierTaken_ == 0 && end == ofTier_.size()) {
            toConfirm_ = std::move(ofTier_);  // may be most of the catalogue
            ofTier_.clear();
            return;
        }
        toConfirm_.assign(ofTier_.begin() + static_cast<std::ptrdiff_t>(ofTierTaken_),
                          ofTier_.begin() + static_cast<std::ptrdiff_t>(end));
        ofTierTaken_ = end;
    }

    /// Puts the candidates of a block into the tiers that their names promise. They are put in
    /// order when they are confirmed: most are promised and never shown.
    void Sort(NameBlock& block, QuickKind kind, const BlockMask& mask) {
        const bool areListed = phase_ == Phase::Procedures || phase_ == Phase::OtherTiers;
        for (const NameBlock::Entry& entry : block.Entries()) {
            const auto place = static_cast<std::size_t>(entry.id % kIDsInBlock);
            if (!mask.test(place)) continue;
            const auto promise = TierOfName(plan_, tiers_, place);
            if (!promise || *promise > QuickTier::NamePart) continue;
            auto tier = static_cast<std::size_t>(*promise);
            if (areListed && tier < floor_) {
                if (listed_.contains(entry.id)) continue;
                tier = floor_;  // a filter did not let it through at its best
            }
            const FoundRow row{kind, static_cast<QuickTier>(tier), entry.id,
                               static_cast<std::uint32_t>(entry.place.size)};
            if (areListed && tier == floor_) {
                toConfirm_.push_back(row);
            } else {
                promised_.Add(row);
            }
        }
    }

    void ConfirmSome() {
        constexpr std::size_t kRowsAtATime = 64;
        if (next_ == inOrderTo_) PutNextBlockInOrder();
        const std::size_t end = std::min(next_ + kRowsAtATime, inOrderTo_);
        while (next_ < end)
            ConfirmRow(toConfirm_[next_++]);
    }

    void PutNextBlockInOrder() {
        const auto begin = toConfirm_.begin() + static_cast<std::ptrdiff_t>(next_);
        const auto end = std::upper_bound(begin, toConfirm_.end(), *begin, BlockComesBefore);
        std::sort(begin, end, ComesBefore);
        inOrderTo_ = static_cast<std::size_t>(end - toConfirm_.begin());
    }

    /// Reads a row. One whose filters leave it a worse tier than its name promised waits for that,
    /// or for its block where that has still to be read.
    void ConfirmRow(FoundRow row) {
        auto read = NodeRow::Read(plan_.db, row.kind, row.id);
        if (!read) return;
        const auto tier = TierOfRow(plan_, *read, QuickTier::NamePart);
        if (!tier || *tier > QuickTier::NamePart) return;
        const bool isLater = *tier > row.tier;
        const bool isReadAgain = phase_ == Phase::BetterTiers && row.kind == QuickKind::Procedure;
        if (isLater && isReadAgain) return;
        row.tier = *tier;
        if (isLater) return promised_.AddLate(row);
        if (isReadAgain) listed_.insert(row.id);
        found_.push_back(row);
    }

    QuickPlan& plan_;
    FoundRows& found_;
    BlockWalk walk_;
    std::vector<BlockTiers> tiers_;  // of the names that are looked at, by term
    Phase phase_ = Phase::UpperLevels;
    NameLookUps lookUps_;
    bool areAllInIndex_ = false;
    PromisedRows promised_;
    std::size_t floor_ = 0;
    /// The next tier to list.
    std::size_t tier_ = 0;
    FoundRows toConfirm_;
    std::size_t next_ = 0;
    /// Of those, how many are in their order.
    std::size_t inOrderTo_ = 0;
    /// Procedures that the index named and that are listed.
    std::set<std::int32_t> listed_;
    /// The blocks of procedures whose best hits can be of this tier, the newest first.
    std::array<std::vector<std::int32_t>, kNameTiers> putOff_;
    /// Of those of tier_, as long as that is listed.
    std::optional<BlockWalk> putOffWalk_;
    std::size_t putOffRead_ = 0;
    /// What was promised for tier_.
    FoundRows ofTier_;
    std::size_t ofTierTaken_ = 0;
};

}  // namespace

std::unique_ptr<QuickWork> FindByNames(QuickPlan& plan, FoundRows& found) {
    return std::make_unique<NameWork>(plan, found);
}

}  // namespace snippetarium
