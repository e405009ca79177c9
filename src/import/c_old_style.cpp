#include "import/c_old_style.h"

#include <algorithm>
#include <optional>

#include "import/c_live_tokens.h"

namespace snippetarium {

namespace {

/// No function has declarations of parameters that are longer, in tokens. It keeps the search
/// short where there is no body.
constexpr std::size_t kLongestDeclarations = 2000;

bool StartsOtherDeclaration(std::string_view word) {
    return word == "extern" || word == "static" || word == "typedef";
}

/// The brace behind the declarations that start at `first`, where nothing else stands between.
std::optional<std::size_t> BodyBehind(const CLiveTokens& live, std::size_t first) {
    int brackets = 0;
    const std::size_t end = std::min(live.Size(), first + kLongestDeclarations);
    for (std::size_t i = first; i < end; ++i) {
        if (live.Is(i, '{')) {
            if (brackets != 0 || !live.Is(i - 1, ';')) return std::nullopt;
            return i;
        }
        if (live.IsKind(i, CTokenKind::Literal)) return std::nullopt;
        if (live.IsWord(i) && StartsOtherDeclaration(live.Text(i))) return std::nullopt;
        if (live.Is(i, '(')) {
            // Only a pointer to a function has one: int (*compare)();
            if (live.IsWord(i - 1) && !live.Is(i + 1, '*')) return std::nullopt;
            ++brackets;
        } else if (live.Is(i, ')')) {
            if (--brackets < 0) return std::nullopt;
        } else if (live.IsKind(i, CTokenKind::Punctuation) && !live.IsAnyOf(i, "*,;[]")) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

}  // namespace

void MaskOldStyleParameters(CTokens& tokens) {
    const CLiveTokens live(tokens);
    int depth = 0;
    for (std::size_t i = 0; i < live.Size(); ++i) {
        if (live.Is(i, '{')) ++depth;
        if (live.Is(i, '}') && depth > 0) --depth;
        // One brace may be that of an extern "C".
        if (depth > 1 || !live.Is(i, ')') || !live.IsWord(i + 1)) continue;
        const auto body = BodyBehind(live, i + 1);
        if (!body) continue;
        for (std::size_t masked = i + 1; masked < *body; ++masked)
            tokens.tokens[live.PlaceOf(masked)].isMasked = true;
        i = *body - 1;
    }
}

}  // namespace snippetarium
