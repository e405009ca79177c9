#pragma once

#include <cstddef>
#include <string_view>

namespace snippetarium {

// What keeps hostile texts away from the parser library, which itself knows no bounds: behind n
// open "<" it takes n * n steps and bytes within one token; and when a text ends with more than
// 65,535 parts of unfinished constructs on its stack, it spoils its memory.

/// Whether the text, of a language with brackets, may have more unfinished parts at once than the
/// library stands, or too many open "<" in a statement. Errs on the careful side.
bool HasTooMuchUnfinished(std::string_view text);

/// What this process has in memory, in bytes; 0 where the system does not say.
std::size_t MemoryInUse();

}  // namespace snippetarium
