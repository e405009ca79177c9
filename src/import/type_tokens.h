#pragma once

#include <string_view>
#include <vector>

#include "import/c_tokens.h"
#include "import/syntax_parser.h"
#include "import/text_range.h"

namespace snippetarium {

// Java and C# text as far as words and brackets go, for what is done with it before it is parsed.

struct TypeTokens {
    /// Comments are not listed. A number is a word.
    CTokens tokens = {};
    /// Of the preprocessor of C#.
    std::vector<TextRange> directiveLines = {};
};

/// Takes any bytes. The text has to outlive the result, and to be shorter than 4 GiB; a longer one
/// has no tokens.
TypeTokens TokeniseTypes(std::string_view text, Grammar grammar);

}  // namespace snippetarium
