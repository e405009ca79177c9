#pragma once

#include <cstddef>

#include "import/import_state.h"
#include "support/host.h"

namespace snippetarium {

/// How far the analysis of a file is: moves the unit bar of the progress window with the lines that
/// were read, and lets waiting events run, so that the user can cancel.
class LineProgress {
  public:
    /// `step`: the percentage of the bar that one line is worth. Both must outlive this.
    LineProgress(const Host& host, const ImportState& state, double step)
        : host_(host), state_(state), step_(step) {}

    /// To be called for each physical line. The bar ends at 100.
    void LineRead() { LinesRead(1); }
    /// To be called for lines that were read in one go.
    void LinesRead(std::size_t count);
    bool IsCancelled() const { return state_.importCancelled; }

  private:
    Host host_;
    const ImportState& state_;
    double step_;
    std::size_t linesRead_ = 0;
};

}  // namespace snippetarium
