#pragma once

#include <string_view>

#include "import/visual_basic.h"
#include "tests/fakes.h"

namespace snippetarium::test {

// Cutting with nobody who looks on or cancels.

using BasicCut = CutFile (*)(std::string_view, LineProgress&);

inline CutFile CutUndisturbed(std::string_view text, BasicCut cut) {
    FakeHost world;
    const ImportState state;
    LineProgress progress(world.host, state, 0);
    return cut(text, progress);
}

}  // namespace snippetarium::test
