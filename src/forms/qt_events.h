#pragma once

#include <chrono>

#include "support/host.h"

namespace snippetarium {

class ErrorReporter;
class QtProgress;

/// The window system's events. Input that does not go to a progress window waits while a job runs:
/// it would change what the job is at.
class QtEvents final : public EventLoop {
  public:
    QtEvents(QtProgress& progress, ErrorReporter& reporter, const Clock& clock)
        : progress_(progress), reporter_(reporter), clock_(clock) {}
    QtEvents(const QtEvents&) = delete;
    QtEvents& operator=(const QtEvents&) = delete;

    /// Jobs may call this after each of thousands of small units: events are looked for a hundred
    /// times a second.
    void Yield() override;
    void SetPointer(Pointer pointer) override;

    /// Whether a job is letting events run: what is done when there is nothing else to do must
    /// wait.
    bool IsYielding() const { return depth_ > 0; }

  private:
    QtProgress& progress_;
    ErrorReporter& reporter_;
    const Clock& clock_;
    std::chrono::steady_clock::time_point lastYield_;
    int depth_ = 0;
};

/// Whether a job of this program is letting events run. It may be in the middle of a statement (a
/// search asks so whether to go on), and texts that the engine is looking at would change under it:
/// a timer that would use the catalogue starts anew.
bool IsYielding(const EventLoop& events);

}  // namespace snippetarium
