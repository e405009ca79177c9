#pragma once

#include <cstddef>

namespace snippetarium {

/// What this process has in memory, in bytes; 0 where the system does not say.
std::size_t MemoryInUse();

}  // namespace snippetarium
