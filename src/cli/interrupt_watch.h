#pragma once

#include <csignal>

namespace snippetarium {

/// Takes the first Ctrl+C as a wish to cancel, for as long as it lives; the second one ends the
/// program as it would without a watch. A program that was started with Ctrl+C switched off stays
/// deaf to it. A press that nobody took before the watch ends is forgotten. There can be one watch
/// at a time.
class InterruptWatch {
  public:
    InterruptWatch();
    ~InterruptWatch();
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

    /// Whether Ctrl+C was pressed and not yet taken.
    bool Take();

  private:
    struct sigaction before_ {};
};

}  // namespace snippetarium
