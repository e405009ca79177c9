#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "import/source_units.h"
#include "import/syntax_tree.h"

namespace snippetarium {

/// What the types of a Java or C# file hold.
struct TypeMembers {
    /// The members that have a body, in the order of the text.
    std::vector<SourceUnit> units = {};
    /// The name of the first type that stands in no other; empty where there is none.
    std::string firstType = {};
};

/// `text` is the file's, `root` the tree of it or of a text in which everything has the same place.
/// Types within types more than a few hundred deep are not looked into.
TypeMembers FindTypeMembers(const SyntaxNode& root, std::string_view text);

}  // namespace snippetarium
