#include "import/memory_in_use.h"

#include <unistd.h>

#include <fstream>

namespace snippetarium {

std::size_t MemoryInUse() {
    std::ifstream counts("/proc/self/statm");
    std::size_t mapped = 0;
    std::size_t resident = 0;
    counts >> mapped >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace snippetarium
