#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/on_progress.h"

namespace snippetarium {

/// One stage of a deletion.
struct Stage {
    /// Returns whether it was done; a failure has been reported. May tell how far it is.
    std::function<bool(const OnProgress&)> run;
    /// How long it takes, as far as one can tell beforehand, compared with the other stages.
    double weight = 1.0;
};

/// What a deletion is made of.
struct DeletionPlan {
    /// The classes of which every procedure goes, as what stands between the brackets of IN; empty
    /// for none.
    std::string emptiedClasses = {};
    /// All of these run, whatever fails.
    std::vector<Stage> links = {};
    /// These run from the procedures up until one fails, so that no row goes under which something
    /// is left.
    std::vector<Stage> rows = {};
};

/// Returns whether every stage was done. `onProgress` may be empty.
bool RunPlan(const DeletionPlan& plan, const OnProgress& onProgress);

}  // namespace snippetarium
