#include "import/c_live_tokens.h"

namespace snippetarium {

namespace {

char OpenerOf(char closer) {
    if (closer == '}') return '{';
    return closer == ')' ? '(' : '[';
}

}  // namespace

CLiveTokens::CLiveTokens(const CTokens& tokens) : tokens_(tokens) {
    live_.reserve(tokens.tokens.size());
    signs_.reserve(tokens.tokens.size());
    for (std::uint32_t i = 0; i < tokens.tokens.size(); ++i) {
        const CToken& token = tokens.tokens[i];
        if (token.isMasked) continue;
        live_.push_back(i);
        const bool isSign = token.kind == CTokenKind::Punctuation;
        signs_ += isSign ? tokens.text[token.begin] : '\0';
    }
    PairBrackets();
}

std::string_view CLiveTokens::Text(std::size_t i) const {
    return i < Size() ? tokens_.TextOf((*this)[i]) : std::string_view();
}

bool CLiveTokens::IsKind(std::size_t i, CTokenKind kind) const {
    return i < Size() && (*this)[i].kind == kind;
}

/// A "<" or ">" that belongs to an operator's name or to an arrow.
bool CLiveTokens::IsComparison(std::size_t i) const {
    const std::size_t first = IsAnyOf(i - 1, "<>") ? i - 1 : i;
    return IsWord(first - 1, "operator") || Is(i - 1, '-');
}

void CLiveTokens::PairBrackets() {
    closing_.assign(Size(), static_cast<std::uint32_t>(Size()));
    std::vector<std::uint32_t> open;
    std::size_t openBraces = 0;
    const auto pop = [&] {
        if (Is(open.back(), '{')) --openBraces;
        open.pop_back();
    };
    const auto popAngles = [&] {
        while (!open.empty() && Is(open.back(), '<'))
            open.pop_back();
    };
    for (std::uint32_t i = 0; i < Size(); ++i) {
        if (IsAnyOf(i, "{;")) popAngles();
        if (IsAnyOf(i, "({[") || (Is(i, '<') && !IsComparison(i))) {
            open.push_back(i);
            if (Is(i, '{')) ++openBraces;
        } else if (Is(i, '>')) {
            if (open.empty() || !Is(open.back(), '<') || IsComparison(i)) continue;
            closing_[open.back()] = i;
            open.pop_back();
        } else if (IsAnyOf(i, ")}]")) {
            const char opener = OpenerOf(signs_[i]);
            if (opener == '{' && openBraces == 0) continue;
            // What was left open inside is passed over. Nothing but a brace closes over a brace.
            while (!open.empty() && !Is(open.back(), opener) &&
                   (opener == '{' || !Is(open.back(), '{'))) {
                pop();
            }
            if (open.empty() || !Is(open.back(), opener)) continue;
            closing_[open.back()] = i;
            pop();
        }
    }
}

std::size_t CLiveTokens::OpeningAngle(std::size_t i, std::size_t first) const {
    std::size_t depth = 0;
    for (; i > first; --i) {
        if (Is(i, '>')) ++depth;
        if (Is(i, '<') && --depth == 0) return i;
    }
    return first;
}

}  // namespace snippetarium
