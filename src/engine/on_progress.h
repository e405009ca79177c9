#pragma once

#include <functional>

namespace snippetarium {

/// Called now and then by work that may take long, with the share that is done, 0 to 1. What it
/// throws ends the work and cleans up after it.
using OnProgress = std::function<void(double)>;

}  // namespace snippetarium
