#include <algorithm>
#include <array>
#include <deque>
#include <optional>

#include "quick/name_block.h"
#include "quick/node_row.h"
#include "quick/work.h"

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

/// Walks over the blocks of all levels: applications, classes, procedures, the newest block first.
class BlockWalk {
  public:
    explicit BlockWalk(const QuickPlan& plan) : plan_(plan) { Enter(); }

    bool IsAtEnd() const { return level_ == kQuickKinds; }
    QuickKind Kind() const { return static_cast<QuickKind>(level_); }
    std::int32_t Block() const { return block_; }
    void Next() {
        if (--block_ >= 0) return;
        ++level_;
        Enter();
    }

  private:
    void Enter() {
        if (!IsAtEnd()) block_ = plan_.newestBlock[level_];
    }

    const QuickPlan& plan_;
    std::size_t level_ = 0;
    std::int32_t block_ = 0;
};

/// Calls `note(entry, place)` for the places of a needle in a block, until it says that the rest of
/// the entry does not matter.
template <typename Note>
void ForEachPlace(NameBlock& block, const FoldedNeedle& needle, Note note) {
    const std::string& names = block.Names();
    std::size_t at = needle.Find(names);
    if (at == FoldedNeedle::kNotFound) return;
    auto entry = block.Entries().begin();
    const auto end = block.Entries().end();
    while (at != FoldedNeedle::kNotFound) {
        while (entry != end && entry->place.End() < at + needle.Size())
            ++entry;
        if (entry == end) return;
        std::size_t next = at + 1;
        if (entry->place.begin <= at) {
            const ByteRange inName{at - entry->place.begin, needle.Size()};
            if (note(*entry, inName)) next = std::min(entry->place.End(), names.size());
        }
        while (next < names.size() && (static_cast<unsigned char>(names[next]) & 0xC0U) == 0x80U)
            ++next;
        at = next < names.size() ? needle.Find(names, next) : FoldedNeedle::kNotFound;
    }
}

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

class NameWork final : public QuickWork {
  public:
    NameWork(QuickPlan& plan, FoundRows& found)
        : plan_(plan), found_(found), walk_(plan), tiers_(plan.terms.size()) {
        for (PlannedTerm& term : plan_.terms) {
            if (IsLookedFor(term)) term.In(QuickText::Name).isEverything = false;
        }
    }

    bool Advance() override {
        if (!walk_.IsAtEnd()) {
            LookInto(walk_.Kind(), walk_.Block());
            walk_.Next();
            return true;
        }
        return Confirm();
    }

  private:
    static bool IsLookedFor(const PlannedTerm& term) {
        return !term.isNegated && term.IsLookedForIn(QuickText::Name);
    }

    void LookInto(QuickKind kind, std::int32_t number) {
        NameBlock block = NameBlock::Read(plan_.db, kind, number);
        for (std::size_t i = 0; i < plan_.terms.size(); ++i) {
            PlannedTerm& term = plan_.terms[i];
            if (!IsLookedFor(term)) continue;
            BlockTiers& tiers = tiers_[i] = BlockTiers();
            if (term.pattern->Literal().empty()) {
                FindInEachName(block, term, tiers);
            } else {
                FindInBlock(block, term, tiers);
            }
            if (tiers.mask.any()) term.In(QuickText::Name).Of(kind).Merge(number, tiers.mask);
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
            const auto tier = PromisedTier(plan_.root, place);
            if (!tier || *tier > QuickTier::NamePart) continue;
            promised_[static_cast<std::size_t>(*tier)].push_back(
                {kind, *tier, entry.id, static_cast<std::uint32_t>(entry.place.size)});
        }
        for (std::size_t i = 0; i < kNameTiers; ++i) {
            std::sort(promised_[i].begin() + static_cast<std::ptrdiff_t>(before[i]),
                      promised_[i].end(), ComesBefore);
        }
    }

    /// The tier by names alone, if all filters let the row through.
    std::optional<QuickTier> PromisedTier(const QuickNode& node, std::size_t place) const {
        switch (node.type) {
            case QuickNode::Type::Term: {
                const PlannedTerm& term = plan_.terms[node.term];
                if (!IsTextField(term.term.field)) return QuickTier::Filter;
                if (!IsLookedFor(term)) return {};
                const std::uint8_t tier = tiers_[node.term].tiers[place];
                if (tier == BlockTiers::kNone) return {};
                return static_cast<QuickTier>(tier);
            }
            case QuickNode::Type::Not:
                return QuickTier::Filter;
            case QuickNode::Type::And: {
                QuickTier tier = QuickTier::Filter;
                for (const QuickNode& part : node.parts) {
                    const auto ofPart = PromisedTier(part, place);
                    if (!ofPart) return {};
                    tier = WorseTier(tier, *ofPart);
                }
                return tier;
            }
            case QuickNode::Type::Or:
                break;
        }
        std::optional<QuickTier> best;
        for (const QuickNode& part : node.parts) {
            const auto ofPart = PromisedTier(part, place);
            if (ofPart && (!best || *ofPart < *best)) best = ofPart;
        }
        return best;
    }

    /// Reads what was promised, in order. A row whose filters leave it a worse tier waits for that.
    bool Confirm() {
        constexpr int kRowsAtATime = 64;
        for (int i = 0; i < kRowsAtATime; ++i) {
            while (tier_ < kNameTiers && next_ == promised_[tier_].size()) {
                promised_[tier_].clear();
                next_ = 0;
                if (++tier_ < kNameTiers) std::ranges::sort(late_[tier_], ComesBefore);
                if (tier_ < kNameTiers) MergeLate();
            }
            if (tier_ == kNameTiers) return false;
            ConfirmRow(promised_[tier_][next_++]);
        }
        return true;
    }

    void MergeLate() {
        if (late_[tier_].empty()) return;
        FoundRows all;
        std::ranges::merge(promised_[tier_], late_[tier_], std::back_inserter(all), ComesBefore);
        promised_[tier_] = std::move(all);
    }

    void ConfirmRow(FoundRow promised) {
        auto row = NodeRow::Read(plan_.db, promised.kind, promised.id);
        if (!row) return;
        const auto tier = TierOfRow(plan_, plan_.root, *row, QuickTier::NamePart);
        if (!tier || *tier > QuickTier::NamePart) return;
        const bool isLater = *tier > promised.tier;
        promised.tier = *tier;
        if (isLater) {
            late_[static_cast<std::size_t>(*tier)].push_back(promised);
        } else {
            found_.push_back(promised);
        }
    }

    QuickPlan& plan_;
    FoundRows& found_;
    BlockWalk walk_;
    std::vector<BlockTiers> tiers_;  // of the block that is looked at, by term
    std::array<FoundRows, kNameTiers> promised_;
    std::array<FoundRows, kNameTiers> late_;
    std::size_t tier_ = 0;
    std::size_t next_ = 0;
};

class SlipWork final : public QuickWork {
  public:
    explicit SlipWork(QuickPlan& plan) : plan_(plan), walk_(plan) {
        for (PlannedTerm& term : plan_.terms)
            term.bySlip.isEverything = false;
    }

    bool Advance() override {
        if (walk_.IsAtEnd()) return false;
        NameBlock block = NameBlock::Read(plan_.db, walk_.Kind(), walk_.Block());
        for (PlannedTerm& term : plan_.terms) {
            if (!term.isNegated && term.slip) LookFor(term, block);
        }
        walk_.Next();
        return true;
    }

  private:
    void LookFor(PlannedTerm& term, NameBlock& block) {
        BlockMask looked;
        IdSet& found = term.bySlip.Of(walk_.Kind());
        for (const FoldedNeedle& needle : term.slip->Needles()) {
            ForEachPlace(block, needle, [&](const NameBlock::Entry& entry, const ByteRange&) {
                const auto place = static_cast<std::size_t>(entry.id % kIDsInBlock);
                if (looked.test(place)) return true;
                looked.set(place);
                if (term.slip->Find(block.NameOf(entry))) found.Add(entry.id);
                return true;
            });
        }
    }

    QuickPlan& plan_;
    BlockWalk walk_;
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

std::unique_ptr<QuickWork> LookUpSlips(QuickPlan& plan) {
    return std::make_unique<SlipWork>(plan);
}

}  // namespace snippetarium
