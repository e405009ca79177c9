#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "import/text_range.h"

namespace snippetarium {

// What keeps hostile texts away from the parser library, which itself knows no bounds: behind n
// open "<" it takes n * n steps and bytes within one token; and when a text ends with more than
// 65,535 parts of unfinished constructs on its stack, it spoils its memory.

/// Would a parser have to keep so much of this text at once that it spoils its memory, or takes it
/// all? What stands in the `skipped` ranges, in the order of the text, does not count. Errs on the
/// careful side.
bool IsTooUnfinished(std::string_view text, std::span<const TextRange> skipped = {});

/// What this process has in memory, in bytes; 0 where the system does not say.
std::size_t MemoryInUse();

}  // namespace snippetarium
