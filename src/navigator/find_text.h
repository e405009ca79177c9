#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/text_range.h"

namespace snippetarium {

class Database;

// Finding a text within the page. Ranges count bytes from 0.

struct FindRequest {
    std::string text = {};
    bool matchCase = false;
    /// Only where no letter, digit or underscore stands beside the match.
    bool wholeWord = false;
};

inline constexpr std::size_t kMostMatches = 10'000;

/// The matches from the left, which do not overlap; not more than kMostMatches. An empty text
/// matches nowhere.
std::vector<TextRange> FindAll(std::string_view page, const FindRequest& request);

struct FoundText {
    TextRange range;
    /// Whether the search went on at the beginning of the page.
    bool hasWrapped = false;

    bool operator==(const FoundText&) const = default;
};
/// The first match that begins at `from` or behind it, else the first of the page.
std::optional<FoundText> FindNext(std::string_view page, const FindRequest& request,
                                  std::size_t from);

/// Tells the user that there is no match.
void TellNotFound(Database& db);

}  // namespace snippetarium
