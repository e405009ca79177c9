#pragma once

#include <vector>

#include "import/c_tokens.h"
#include "import/source_units.h"

namespace snippetarium {

/// Finds the functions that have a body, outside of each other's bodies: in namespaces and classes,
/// but not in functions. Whatever the text, an answer comes in time that grows with its length
/// alone; where the brackets do not fit together, what can be recognised is found.
///
/// A function is named as it is written there, with the classes around it in front and its
/// parameter list behind: "Grid::Draw(int x, int y)". Namespaces are left out; they say little in
/// a file that is all in one. A macro that makes a function is named by its call: "TEST(Grid,
/// Draws)".
std::vector<SourceUnit> FindCDefinitions(const CTokens& tokens);

}  // namespace snippetarium
