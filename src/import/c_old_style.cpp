#include "import/c_old_style.h"

#include "import/c_live_tokens.h"

namespace snippetarium {

namespace {

/// No function has declarations of parameters that are longer, in tokens. It keeps the search
/// short where there is no body.
constexpr std::size_t kLongestDeclarations = 400;

bool StartsOtherDeclaration(std::string_view word) {
    return word == "extern" || word == "static" || word == "typedef";
}

/// Are there declarations, and nothing else, from `first` up to the brace?
bool AreDeclarations(const CLiveTokens& live, std::size_t first, std::size_t brace) {
    int brackets = 0;
    for (std::size_t i = first; i < brace; ++i) {
        if (live.IsKind(i, CTokenKind::Literal)) return false;
        if (live.IsWord(i) && StartsOtherDeclaration(live.Text(i))) return false;
        if (live.Is(i, '(')) {
            // Only a pointer to a function has one: int (*compare)();
            if (live.IsWord(i - 1) && !live.Is(i + 1, '*')) return false;
            ++brackets;
        } else if (live.Is(i, ')')) {
            if (--brackets < 0) return false;
        } else if (live.IsKind(i, CTokenKind::Punctuation) && !live.IsAnyOf(i, "*,;[]")) {
            return false;
        }
    }
    return brackets == 0 && live.Is(brace - 1, ';');
}

}  // namespace

void MaskOldStyleParameters(CTokens& tokens) {
    const CLiveTokens live(tokens);
    std::size_t brace = 0;
    int depth = 0;
    for (std::size_t i = 0; i < live.Size(); ++i) {
        if (live.Is(i, '{')) ++depth;
        if (live.Is(i, '}') && depth > 0) --depth;
        // One brace may be that of an extern "C".
        if (depth > 1 || !live.Is(i, ')') || !live.IsWord(i + 1)) continue;
        while (brace < live.Size() && (brace <= i || !live.Is(brace, '{')))
            ++brace;
        if (brace == live.Size() || brace - i > kLongestDeclarations) continue;
        if (!AreDeclarations(live, i + 1, brace)) continue;
        for (std::size_t masked = i + 1; masked < brace; ++masked)
            tokens.tokens[live.PlaceOf(masked)].isMasked = true;
        i = brace - 1;
    }
}

}  // namespace snippetarium
