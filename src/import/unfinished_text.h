#pragma once

#include <span>
#include <string_view>

#include "import/text_range.h"

namespace snippetarium {

/// Would a parser have to keep so much of this text at once that it spoils its memory, or takes it
/// all? What stands in the `skipped` ranges, in the order of the text, does not count.
bool IsTooUnfinished(std::string_view text, std::span<const TextRange> skipped);

}  // namespace snippetarium
