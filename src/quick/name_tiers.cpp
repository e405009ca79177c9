#include "quick/name_tiers.h"

#include <algorithm>

#include "quick/block_walk.h"
#include "quick/standing.h"

namespace snippetarium {

void BlockTiers::Note(std::int32_t id, QuickTier tier) {
    const auto place = static_cast<std::size_t>(id % kIDsInBlock);
    tiers_[place] = std::min(tiers_[place], static_cast<std::uint8_t>(tier));
    rows_.set(place);
}

void BlockTiers::NoteName(const PlannedTerm& term, NameBlock& block,
                          const NameBlock::Entry& entry) {
    if (const auto match = MatchName(*term.pattern, block.NameOf(entry)))
        Note(entry.id, match->tier);
}

BlockTiers BlockTiers::Of(const PlannedTerm& term, NameBlock& block) {
    BlockTiers tiers;
    const WordPattern& pattern = *term.pattern;
    // Patterns without any letter that is sure ("?") are tried on every name.
    if (pattern.Literal().empty()) {
        for (const NameBlock::Entry& entry : block.Entries())
            tiers.NoteName(term, block, entry);
        return tiers;
    }
    ForEachPlace(block, pattern.Needle(), [&](const NameBlock::Entry& entry, const ByteRange& at) {
        if (!pattern.IsPlain()) {
            tiers.NoteName(term, block, entry);
            return true;
        }
        const QuickTier tier = TierOfPlace(block.NameOf(entry), at);
        tiers.Note(entry.id, tier);
        return tier <= QuickTier::WordStart;  // no later place is better
    });
    return tiers;
}

BlockTiers BlockTiers::OfRows(const PlannedTerm& term, NameBlock& block, const BlockMask& rows) {
    BlockTiers tiers;
    for (const NameBlock::Entry& entry : block.Entries()) {
        if (rows.test(static_cast<std::size_t>(entry.id % kIDsInBlock)))
            tiers.NoteName(term, block, entry);
    }
    return tiers;
}

void NoteNames(QuickPlan& plan, NameBlock& names, QuickKind kind, std::int32_t block,
               const BlockMask& rows, std::vector<BlockTiers>& tiers) {
    constexpr std::size_t kFew = 128;
    const bool areFew = rows.count() <= kFew;
    tiers.resize(plan.terms.size());
    for (std::size_t i = 0; i < plan.terms.size(); ++i) {
        PlannedTerm& term = plan.terms[i];
        if (!term.IsLookedForIn(QuickText::Name)) continue;
        tiers[i] = areFew ? BlockTiers::OfRows(term, names, rows) : BlockTiers::Of(term, names);
        BlockMask& noted = term.In(QuickText::Name).Of(kind).At(block);
        if (areFew) {
            noted &= ~rows;
        } else {
            noted.reset();
        }
        noted |= tiers[i].Rows();
    }
    if (!areFew) plan.notedNames.Add(kind, block);
}

std::optional<QuickTier> TierOfName(const QuickPlan& plan, const std::vector<BlockTiers>& tiers,
                                    std::size_t place) {
    const auto ofTerm = [&](const QuickNode& node) {
        const PlannedTerm& term = plan.terms[node.term];
        if (!IsTextField(term.term.field)) return Standing::OfFilter(true);
        if (term.isNegated || !term.IsLookedForIn(QuickText::Name)) return Standing();
        return Standing::OfText(tiers[node.term].At(place));
    };
    const auto ofNot = [](const QuickNode&) { return Standing::OfFilter(true); };
    return StandingOf(plan.root, ofTerm, ofNot).Tier();
}

}  // namespace snippetarium
