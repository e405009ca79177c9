#include "quick/block_walk.h"
#include "quick/work.h"

namespace snippetarium {

namespace {

BlockMask SlipsOf(const SlipPattern& slip, NameBlock& block) {
    BlockMask looked;
    BlockMask found;
    for (const FoldedNeedle& needle : slip.Needles()) {
        ForEachPlace(block, needle, [&](const NameBlock::Entry& entry, const ByteRange&) {
            const auto place = static_cast<std::size_t>(entry.id % kIDsInBlock);
            if (looked.test(place)) return true;
            looked.set(place);
            found.set(place, slip.Find(block.NameOf(entry)).has_value());
            return true;
        });
    }
    return found;
}

}  // namespace

void FindSlips(QuickPlan& plan, NameBlock& names, QuickKind kind, std::int32_t block) {
    for (PlannedTerm& term : plan.terms) {
        const bool counts = !term.isNegated && term.slip;
        term.bySlip.Of(kind).Replace(block, counts ? SlipsOf(*term.slip, names) : BlockMask());
    }
}

}  // namespace snippetarium
