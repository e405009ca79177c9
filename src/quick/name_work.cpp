#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

#include "quick/block_walk.h"
#include "quick/name_block.h"
#include "quick/name_index.h"
#include "quick/node_row.h"
#include "quick/standing.h"
#include "quick/text_rows.h"
#include "quick/work.h"
#include "store/database.h"

namespace snippetarium {

namespace {

constexpr std::size_t kNameTiers = static_cast<std::size_t>(QuickTier::NamePart) + 1;

/// The tier of each ID of a block; kNone where the name does not have the term.
struct BlockTiers {
    static constexpr std::uint8_t kNone = 0xFF;
    BlockTiers() { tiers.fill(kNone); }
    std::array<std::uint8_t, kIDsInBlock> tiers;
    BlockMask mask;

    void Note(std::int32_t id, QuickTier tier) {
        const auto place = static_cast<std::size_t>(id % kIDsInBlock);
        tiers[place] = std::min(tiers[place], static_cast<std::uint8_t>(tier));
        mask.set(place);
    }
};

void FindInBlock(NameBlock& block, const PlannedTerm& term, BlockTiers& tiers) {
    const WordPattern& pattern = *term.pattern;
    ForEachPlace(block, pattern.Needle(), [&](const NameBlock::Entry& entry, const ByteRange& at) {
        if (!pattern.IsPlain()) {
            if (const auto match = MatchName(pattern, block.NameOf(entry)))
                tiers.Note(entry.id, match->tier);
            return true;
        }
        const QuickTier tier = TierOfPlace(block.NameOf(entry), at);
        tiers.Note(entry.id, tier);
        return tier <= QuickTier::WordStart;  // no later place is better
    });
}

/// Patterns without any letter that is sure ("?") are tried on every name.
void FindInEachName(NameBlock& block, const PlannedTerm& term, BlockTiers& tiers) {
    for (const NameBlock::Entry& entry : block.Entries()) {
        if (const auto match = MatchName(*term.pattern, block.NameOf(entry)))
            tiers.Note(entry.id, match->tier);
    }
}

// The names of all levels are looked through once, applications and classes first, then procedures,
// the newest first. What is found goes into the tier that its name promises, and a tier is listed
// when nothing more can come into it. For the hits to be there before all names have been read, the
// index on the names of procedures is asked first: which are exactly a word of the entry, and
// whether any begins with one. The tier for which it cannot rule out more procedures is the
// `floor_`: what is better is complete before procedures are read, and what is just that good is
// listed as it comes. The text index then tells which blocks of procedures need not be read: all of
// them, for a word that is in no name.
class NameWork final : public QuickWork {
  public:
    NameWork(QuickPlan& plan, FoundRows& found)
        : plan_(plan),
          found_(found),
          walk_(plan),
          tiers_(plan.terms.size()),
          isInIndex_(plan.terms.size(), false) {
        for (PlannedTerm& term : plan_.terms) {
            // Names with a word under a "not" are noted too: they are no candidates.
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
        switch (phase_) {
            case Phase::UpperLevels:
                ReadBlock();
                if (walk_.IsAtEnd() || walk_.Kind() == QuickKind::Procedure) AskIndex();
                return true;
            case Phase::BetterTiers:
                TakeTier(tier_);
                if (tier_++ == floor_) phase_ = Phase::TextIndex;
                return true;
            case Phase::TextIndex:
                if (!AskTextIndex()) phase_ = Phase::Procedures;
                return true;
            case Phase::Procedures:
                if (!walk_.IsAtEnd()) {
                    if (PassOverBlocks()) ReadBlock();
                    return true;
                }
                phase_ = Phase::OtherTiers;
                return true;
            case Phase::OtherTiers:
                break;
        }
        if (tier_ == kNameTiers) return false;
        TakeTier(tier_++);
        return true;
    }

  private:
    enum class Phase { UpperLevels, BetterTiers, TextIndex, Procedures, OtherTiers };
    static constexpr std::size_t kExact = static_cast<std::size_t>(QuickTier::ExactName);
    static constexpr std::size_t kPrefix = static_cast<std::size_t>(QuickTier::NamePrefix);
    static constexpr std::size_t kWordStart = static_cast<std::size_t>(QuickTier::WordStart);

    static bool IsLookedFor(const PlannedTerm& term) {
        return !term.isNegated && term.IsLookedForIn(QuickText::Name);
    }

    void AskIndex() {
        phase_ = Phase::BetterTiers;
        FoundRows exact;
        bool mayBegin = false;
        for (const PlannedTerm& term : plan_.terms) {
            if (!IsLookedFor(term)) continue;
            if (!term.pattern->IsPlain()) {
                floor_ = kExact;
                return;
            }
            if (!FindExactNames(plan_.db, term.pattern->Literal(), exact)) {
                floor_ = kExact;
                return;
            }
            mayBegin = mayBegin || HasNameThatBegins(plan_.db, term.pattern->Literal());
        }
        floor_ = mayBegin ? kPrefix : kWordStart;
        std::ranges::sort(exact, ComesBefore);
        const auto isSameID = [](const FoundRow& a, const FoundRow& b) { return a.id == b.id; };
        exact.erase(std::unique(exact.begin(), exact.end(), isSameID), exact.end());
        promised_[kExact].insert(promised_[kExact].end(), exact.begin(), exact.end());
    }

    /// Finds out which procedures may have the words in their names, for words that the text index
    /// knows. False when it was asked for all.
    bool AskTextIndex() {
        if (scannedTerm_ == plan_.terms.size()) return false;
        PlannedTerm& term = plan_.terms[scannedTerm_];
        if (!scan_ && IsLookedFor(term)) {
            scan_ = ScanFor(QuickKind::Procedure, QuickText::Name, term.pattern->Literal());
        }
        if (scan_ && plan_.db.GetConnection().Advance(*scan_)) return true;
        if (scan_ && scan_->IsKnown()) {
            CandidateRows& rows = term.In(QuickText::Name);
            rows.Of(QuickKind::Procedure) = std::move(scan_->Rows());
            AddRowsThatAre(plan_.db, QuickKind::Procedure, QuickText::Name, term.pattern->Literal(),
                           rows);
            isInIndex_[scannedTerm_] = true;
        }
        scan_.reset();
        ++scannedTerm_;
        return true;
    }

    /// Passes over blocks in which no name can make a hit. False when there may be more of them.
    bool PassOverBlocks() {
        constexpr int kBlocksAtATime = 256;
        for (int i = 0; i < kBlocksAtATime && !walk_.IsAtEnd(); ++i) {
            for (std::size_t term = 0; term < plan_.terms.size(); ++term) {
                if (!IsLookedFor(plan_.terms[term]) || isInIndex_[term]) continue;
                IdSet& names = plan_.terms[term].In(QuickText::Name).Of(walk_.Kind());
                names.Replace(walk_.Block(), ~BlockMask());  // any of them, as far as is known
            }
            if (CandidatesOf(plan_, QuickTier::NamePart, walk_.Kind(), walk_.Block()).any()) {
                return true;
            }
            walk_.Next();
        }
        return false;
    }

    void ReadBlock() {
        LookInto(walk_.Names(), walk_.Kind(), walk_.Block());
        walk_.Next();
    }

    void LookInto(NameBlock& block, QuickKind kind, std::int32_t number) {
        for (std::size_t i = 0; i < plan_.terms.size(); ++i) {
            PlannedTerm& term = plan_.terms[i];
            if (!term.IsLookedForIn(QuickText::Name)) continue;
            BlockTiers& tiers = tiers_[i] = BlockTiers();
            if (term.pattern->Literal().empty()) {
                FindInEachName(block, term, tiers);
            } else {
                FindInBlock(block, term, tiers);
            }
            term.In(QuickText::Name).Of(kind).Replace(number, tiers.mask);
        }
        const BlockMask mask = CandidatesOf(plan_, QuickTier::NamePart, kind, number);
        if (mask.any()) Sort(block, kind, mask);
    }

    /// Puts the candidates of a block into the tiers that their names promise.
    void Sort(NameBlock& block, QuickKind kind, const BlockMask& mask) {
        std::array<std::size_t, kNameTiers> before{};
        for (std::size_t i = 0; i < kNameTiers; ++i)
            before[i] = promised_[i].size();
        for (const NameBlock::Entry& entry : block.Entries()) {
            const auto place = static_cast<std::size_t>(entry.id % kIDsInBlock);
            if (!mask.test(place)) continue;
            const auto promise = PromisedTier(place);
            if (!promise || *promise > QuickTier::NamePart) continue;
            auto tier = static_cast<std::size_t>(*promise);
            if (phase_ == Phase::Procedures && tier < floor_) {
                if (listed_.contains(entry.id)) continue;
                tier = floor_;  // a filter did not let it through at its best
            }
            promised_[tier].push_back({kind, static_cast<QuickTier>(tier), entry.id,
                                       static_cast<std::uint32_t>(entry.place.size)});
        }
        for (std::size_t i = 0; i < kNameTiers; ++i) {
            std::sort(promised_[i].begin() + static_cast<std::ptrdiff_t>(before[i]),
                      promised_[i].end(), ComesBefore);
        }
        if (phase_ == Phase::Procedures) toConfirm_ = std::exchange(promised_[floor_], {});
    }

    /// The tier by names alone, if all filters let the row through.
    std::optional<QuickTier> PromisedTier(std::size_t place) const {
        const auto ofTerm = [&](const QuickNode& node) {
            const PlannedTerm& term = plan_.terms[node.term];
            if (!IsTextField(term.term.field)) return Standing::OfFilter(true);
            const std::uint8_t tier = IsLookedFor(term) ? tiers_[node.term].tiers[place]
                                                        : std::uint8_t{BlockTiers::kNone};
            if (tier == BlockTiers::kNone) return Standing();
            return Standing::OfText(static_cast<QuickTier>(tier));
        };
        const auto ofNot = [](const QuickNode&) { return Standing::OfFilter(true); };
        return StandingOf(plan_.root, ofTerm, ofNot).Tier();
    }

    /// Takes what was promised for a tier, and what fell into it from better ones.
    void TakeTier(std::size_t tier) {
        std::ranges::sort(late_[tier], ComesBefore);
        std::ranges::merge(promised_[tier], late_[tier], std::back_inserter(toConfirm_),
                           ComesBefore);
        promised_[tier].clear();
        late_[tier].clear();
    }

    void ConfirmSome() {
        constexpr std::size_t kRowsAtATime = 64;
        const std::size_t end = std::min(next_ + kRowsAtATime, toConfirm_.size());
        while (next_ < end)
            ConfirmRow(toConfirm_[next_++]);
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
        if (isLater) {
            late_[static_cast<std::size_t>(*tier)].push_back(row);
            return;
        }
        if (isReadAgain) listed_.insert(row.id);
        found_.push_back(row);
    }

    QuickPlan& plan_;
    FoundRows& found_;
    BlockWalk walk_;
    std::vector<BlockTiers> tiers_;  // of the block that is looked at, by term
    Phase phase_ = Phase::UpperLevels;
    /// The term for which the text index is asked.
    std::size_t scannedTerm_ = 0;
    std::optional<TextScan> scan_;
    /// The terms whose names it knows, and maybe some more.
    std::vector<bool> isInIndex_;
    std::array<FoundRows, kNameTiers> promised_;
    std::array<FoundRows, kNameTiers> late_;
    std::size_t floor_ = kExact;
    /// The next tier to list.
    std::size_t tier_ = 0;
    FoundRows toConfirm_;
    std::size_t next_ = 0;
    /// Procedures that the index named and that are listed.
    std::set<std::int32_t> listed_;
};

}  // namespace

bool ComesBefore(const FoundRow& a, const FoundRow& b) {
    if (a.kind != b.kind) return a.kind < b.kind;
    if (BlockOf(a.id) != BlockOf(b.id)) return a.id > b.id;
    if (a.nameSize != b.nameSize) return a.nameSize < b.nameSize;
    return a.id > b.id;
}

std::unique_ptr<QuickWork> FindByNames(QuickPlan& plan, FoundRows& found) {
    return std::make_unique<NameWork>(plan, found);
}

}  // namespace snippetarium
