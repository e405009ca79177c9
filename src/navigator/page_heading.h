#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/node_key.h"

namespace snippetarium {

class Database;
struct ApplicationRecord;
struct ClassRecord;
struct CodeRecord;

/// A line of a page's heading: what it is about, "Language", and what is said, never empty.
struct HeadingLine {
    std::string_view label;
    std::string text;
    /// The key of the node that the line names; empty where it names none.
    std::string targetKey = {};

    bool operator==(const HeadingLine&) const = default;
};

/// "Kind" first, then where the node belongs, language, path, authors, dates, keywords, and the
/// first line of its comment. To be called inside a guard.
std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node,
                                   const ApplicationRecord& record);
std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node, const ClassRecord& record);
std::vector<HeadingLine> HeadingOf(Database& db, const NodeIDs& node, const CodeRecord& record);

}  // namespace snippetarium
