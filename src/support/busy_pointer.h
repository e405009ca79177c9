#pragma once

#include "support/host.h"

namespace snippetarium {

/// Shows the hourglass as long as it lives.
class BusyPointer {
  public:
    explicit BusyPointer(EventLoop& events) : events_(events) {
        events_.SetPointer(Pointer::Hourglass);
    }
    ~BusyPointer() { events_.SetPointer(Pointer::Default); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    EventLoop& events_;
};

}  // namespace snippetarium
