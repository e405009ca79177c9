#pragma once

#include <cstdint>

namespace snippetarium {

/// While it lives, the engine may take only this much memory more than it has; what would take more
/// fails with std::bad_alloc. It counts for all connections of the program.
class MemoryLimit {
  public:
    explicit MemoryLimit(std::int64_t bytes);
    ~MemoryLimit();
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

  private:
    std::int64_t previousSoft_;
    std::int64_t previousHard_;
};

}  // namespace snippetarium
