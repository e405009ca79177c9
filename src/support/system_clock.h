#pragma once

#include "support/host.h"

namespace snippetarium {

/// The machine's clocks.
class SystemClock final : public Clock {
  public:
    std::chrono::system_clock::time_point Now() const override {
        return std::chrono::system_clock::now();
    }
    std::chrono::steady_clock::time_point Steady() const override {
        return std::chrono::steady_clock::now();
    }
};

}  // namespace snippetarium
