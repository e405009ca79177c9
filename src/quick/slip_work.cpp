#include "quick/block_walk.h"
#include "quick/work.h"

namespace snippetarium {

namespace {

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

std::unique_ptr<QuickWork> LookUpSlips(QuickPlan& plan) {
    return std::make_unique<SlipWork>(plan);
}

}  // namespace snippetarium
