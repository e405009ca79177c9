#include "quick/promised_rows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace snippetarium {

bool BlockComesBefore(const FoundRow& a, const FoundRow& b) {
    if (a.kind != b.kind) return a.kind < b.kind;
    return BlockOf(a.id) > BlockOf(b.id);
}

bool ComesBefore(const FoundRow& a, const FoundRow& b) {
    if (a.kind != b.kind) return a.kind < b.kind;
    if (BlockOf(a.id) != BlockOf(b.id)) return a.id > b.id;
    if (a.nameSize != b.nameSize) return a.nameSize < b.nameSize;
    return a.id > b.id;
}

void PromisedRows::BeginPutOff() {
    for (std::size_t tier = 0; tier < kNameTiers; ++tier)
        notPutOff_[tier] = promised_[tier].size();
}

FoundRows PromisedRows::Take(std::size_t tier) {
    FoundRows promised = std::exchange(promised_[tier], {});
    FoundRows late = std::exchange(late_[tier], {});
    const auto putOff =
        promised.begin() + static_cast<std::ptrdiff_t>(std::min(notPutOff_[tier], promised.size()));
    std::inplace_merge(promised.begin(), putOff, promised.end(), BlockComesBefore);
    if (late.empty()) return promised;
    std::ranges::sort(late, BlockComesBefore);
    FoundRows rows;
    std::ranges::merge(promised, late, std::back_inserter(rows), BlockComesBefore);
    return rows;
}

}  // namespace snippetarium
