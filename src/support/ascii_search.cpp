#include "support/ascii_search.h"

#include <algorithm>

#include "support/case_fold.h"

namespace snippetarium {

std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view word) {
    const auto found = std::ranges::search(text, word, {}, AsciiLower, AsciiLower);
    if (found.empty() && !word.empty()) return std::string_view::npos;
    return static_cast<std::size_t>(found.begin() - text.begin());
}

bool StartsWithIgnoringAsciiCase(std::string_view text, std::string_view word) {
    return EqualsIgnoringAsciiCase(text.substr(0, word.size()), word);
}

}  // namespace snippetarium
