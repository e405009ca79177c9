#pragma once

#include <chrono>
#include <concepts>
#include <cstddef>
#include <future>
#include <type_traits>
#include <utility>

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

    /// Does a step of an analysis that cannot be divided, and lets events run meanwhile: with a
    /// large text it takes longer than a window may keep still. The step may then run in another
    /// thread; the caller waits for it, so it can use what the caller has, but not this.
    template <std::invocable Step>
    std::invoke_result_t<Step> Await(std::size_t textSize, Step step) {
        if (textSize < kLargeText) return step();
        auto result = std::async(std::launch::async, std::move(step));
        while (result.wait_for(kBetweenYields) != std::future_status::ready)
            LinesRead(0);
        return result.get();
    }

    bool IsCancelled() const { return state_.importCancelled; }

  private:
    /// Read in some milliseconds.
    static constexpr std::size_t kLargeText = 256 * 1024;
    static constexpr std::chrono::milliseconds kBetweenYields{10};

    Host host_;
    const ImportState& state_;
    double step_;
    std::size_t linesRead_ = 0;
};

}  // namespace snippetarium
