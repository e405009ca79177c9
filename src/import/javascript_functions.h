#pragma once

#include <string_view>
#include <vector>

#include "import/source_units.h"
#include "import/syntax_tree.h"

namespace snippetarium {

/// The functions of a JavaScript file that have a name of their own or are the value of something
/// that has one, outside of each other, in the order of the text. `text` is the file's, `root` the
/// tree of it or of a text in which everything has the same place. What stands in more than a few
/// hundred calls, classes and objects within each other is not found.
std::vector<SourceUnit> FindJavaScriptFunctions(const SyntaxNode& root, std::string_view text);

}  // namespace snippetarium
