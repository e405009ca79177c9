#pragma once

#include <algorithm>
#include <vector>

#include "navigator/highlight.h"

namespace snippetarium {

/// Of spans in order that do not overlap, those that lie in the range or reach into it.
inline std::vector<HighlightSpan> SpansWithin(const std::vector<HighlightSpan>& spans,
                                              const TextRange& range) {
    const auto first = std::ranges::upper_bound(
        spans, range.begin, {}, [](const HighlightSpan& span) { return span.range.end; });
    const auto last =
        std::ranges::lower_bound(first, spans.end(), range.end, {},
                                 [](const HighlightSpan& span) { return span.range.begin; });
    return {first, last};
}

}  // namespace snippetarium
