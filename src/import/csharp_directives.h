#pragma once

#include <string>

namespace snippetarium {

/// Makes blanks of the preprocessor lines of a C# text and of the branches that upset its brackets
/// (import/c_conditionals.h has the rule). Line breaks stay, and everything keeps its place.
void BlankCSharpDirectives(std::string& text);

}  // namespace snippetarium
