#pragma once

#include "quick/plan.h"
#include "quick/work.h"

namespace snippetarium {

/// What the catalogue's index on the names of procedures knows of an entry.
struct NamesInIndex {
    /// The procedures that are exactly a word of the entry, a parameter list aside, best first.
    FoundRows exact;
    /// The best tier that any other procedure can have: ExactName, NamePrefix or WordStart.
    QuickTier bestOfOthers = QuickTier::ExactName;
};

NamesInIndex AskNameIndex(const QuickPlan& plan);

}  // namespace snippetarium
