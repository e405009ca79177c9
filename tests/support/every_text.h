#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace snippetarium {

/// Calls visit(text) for every text of at most `maximumLength` bytes of the alphabet, the empty
/// text included. For rules that a slow and obvious function can judge.
template <typename Visitor>
void ForEveryText(std::string_view alphabet, std::size_t maximumLength, Visitor&& visit,
                  const std::string& prefix = {}) {
    visit(prefix);
    if (prefix.size() == maximumLength) return;
    for (const char letter : alphabet)
        ForEveryText(alphabet, maximumLength, visit, prefix + letter);
}

}  // namespace snippetarium
