#pragma once

#include <string>
#include <string_view>

#include "import/syntax_tree.h"
#include "support/utf8.h"

namespace snippetarium {

/// "Grid" and "Draw()" make "Grid.Draw()". Ends after kLongestName characters, so that names within
/// names within names do not use up the memory.
inline std::string QualifiedName(std::string_view scope, std::string_view name) {
    if (scope.empty() || name.empty()) return std::string(scope.empty() ? name : scope);
    const std::string qualified = std::string(scope) + "." + std::string(name);
    return std::string(CutToCharacters(qualified, kLongestName));
}

}  // namespace snippetarium
