#pragma once

#include <string_view>

#include "import/visual_basic.h"
#include "tests/fakes.h"

namespace snippetarium::test {

using BasicCut = CutFile (*)(std::string_view, LineProgress&);

/// Cuts files with nobody who looks on or cancels.
class UndisturbedCut {
  public:
    explicit UndisturbedCut(BasicCut cut) : cut_(cut) {}

    CutFile operator()(std::string_view text) {
        world_.progress.unitValues.clear();
        LineProgress progress(world_.host, state_, 0);
        return cut_(text, progress);
    }

  private:
    BasicCut cut_;
    FakeHost world_;
    const ImportState state_ = {};
};

inline CutFile CutUndisturbed(std::string_view text, BasicCut cut) {
    return UndisturbedCut(cut)(text);
}

}  // namespace snippetarium::test
