#pragma once

#include <optional>
#include <string>
#include <vector>

namespace snippetarium {

/// One field of a record under the hands of its editor.
struct DraftText {
    /// "code", "authors".
    std::string field = {};
    std::string text = {};
    /// What was loaded, where the user made something else of it.
    std::optional<std::string> loaded = {};

    bool operator==(const DraftText&) const = default;
};

/// Every field of a record and of its details.
using DraftTexts = std::vector<DraftText>;

}  // namespace snippetarium
