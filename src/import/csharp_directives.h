#pragma once

#include <string>

#include "import/type_tokens.h"

namespace snippetarium {

/// Makes blanks of the preprocessor lines of a C# text and of the branches that upset its brackets
/// (import/c_conditionals.h has the rule), whose tokens are masked. Line breaks stay, and
/// everything keeps its place. `found` is what the text holds.
void BlankCSharpDirectives(std::string& text, TypeTokens& found);

}  // namespace snippetarium
