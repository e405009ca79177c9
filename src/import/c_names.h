#pragma once

#include <cstddef>
#include <string>

#include "import/c_live_tokens.h"

namespace snippetarium {

/// Where a function's name and parameter list stand, as indices of live tokens.
struct CDeclarator {
    std::size_t name = 0;
    std::size_t parameters = 0;
    std::size_t parametersEnd = 0;
};

/// The word of the name in front of a parameter list: that of "Draw" in "int Grid::Draw<int>(", or
/// the "~" in front of a destructor's. It is looked for down to the token `first`.
std::size_t CNameStart(const CLiveTokens& live, std::size_t first, std::size_t parameters);

/// The first token of a name's qualifiers: that of "Grid" in "int Grid<T>::Draw", given that of
/// "Draw". The name itself where it has none.
std::size_t CQualifiedStart(const CLiveTokens& live, std::size_t first, std::size_t name);

/// The name with its parameter list on one line, without comments, directives and masked macros:
/// "Draw(int x, int y)".
std::string CFunctionName(const CLiveTokens& live, const CDeclarator& declarator);

/// The name of the class whose head runs from its key ("class", "struct" ...) to a brace, with its
/// qualifiers and template arguments; empty where it has none.
std::string CClassName(const CLiveTokens& live, std::size_t classKey, std::size_t brace);

}  // namespace snippetarium
