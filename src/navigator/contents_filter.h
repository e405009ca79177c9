#pragma once

#include <string_view>
#include <vector>

#include "navigator/contents_tree.h"

namespace snippetarium {

class Database;

/// An application or a class of a filtered tree, with those of its children that are shown. One
/// that itself fits the filter is shown with everything below it, and has none here.
struct FilteredBranch {
    ContentsRow row;
    std::vector<FilteredBranch> children = {};
};

struct FilteredContents {
    std::vector<FilteredBranch> applications;
    /// Whether more nodes fit than are listed.
    bool isCut = false;
};

inline constexpr int kMostFiltered = 2'000;

/// The nodes whose names hold the text, in any letter case, and those that they are in, in the
/// order of the tree. At most kMostFiltered of each kind. Throws.
FilteredContents ReadFiltered(Database& db, std::string_view text);

}  // namespace snippetarium
