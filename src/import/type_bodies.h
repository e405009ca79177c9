#pragma once

#include <vector>

#include "import/text_range.h"
#include "import/type_tokens.h"

namespace snippetarium {

/// What stands between the braces of methods and of other code in the types of a Java or C# text,
/// in its order. None where the brackets do not fit. `tokens` are those of the text.
///
///     class Grid { int Size() { return 4; } }    finds    " return 4; "
///
/// Without it, a text has the same types and members, with the same names and places. Most of a
/// file is such code, and parsing it is what takes the time.
std::vector<TextRange> FindTypeBodies(const CTokens& tokens, Grammar grammar);

}  // namespace snippetarium
