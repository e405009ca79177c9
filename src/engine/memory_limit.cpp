#include "engine/memory_limit.h"

#include <sqlite3.h>

namespace snippetarium {

MemoryLimit::MemoryLimit(std::int64_t bytes)
    : previousSoft_(sqlite3_soft_heap_limit64(-1)),
      previousHard_(sqlite3_hard_heap_limit64(sqlite3_memory_used() + bytes)) {}

MemoryLimit::~MemoryLimit() {
    // In this order: setting the hard limit has lowered the soft one, which cannot be above it.
    sqlite3_hard_heap_limit64(previousHard_);
    sqlite3_soft_heap_limit64(previousSoft_);
}

}  // namespace snippetarium
