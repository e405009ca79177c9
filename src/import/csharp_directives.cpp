#include "import/csharp_directives.h"

#include "import/blank_out.h"
#include "import/c_conditionals.h"

namespace snippetarium {

void BlankCSharpDirectives(std::string& text, TypeTokens& found) {
    if (found.directiveLines.empty()) return;
    MaskBrokenBranches(found.tokens);
    for (const TextRange& line : found.directiveLines)
        BlankOut(text, line);
    for (const CToken& token : found.tokens.tokens) {
        if (token.isMasked) BlankOut(text, {token.begin, token.end});
    }
}

}  // namespace snippetarium
