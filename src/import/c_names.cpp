#include "import/c_names.h"

namespace snippetarium {

namespace {

/// The tokens from `first` to `last`, with one blank where the text has any gap, but for that in
/// "operator ()".
std::string OneLine(const CLiveTokens& live, std::size_t first, std::size_t last) {
    std::string line;
    for (std::size_t i = first; i <= last; ++i) {
        const bool hasGap = i > first && live[i].begin > live[i - 1].end;
        const bool isSymbolOfOperator = live.IsWord(i - 1, "operator") && !live.IsWord(i);
        if (hasGap && !isSymbolOfOperator) line += ' ';
        line += live.Text(i);
    }
    return line;
}

/// The token in front of template arguments that end at `i`; `i` itself where none end there.
std::size_t BeforeArguments(const CLiveTokens& live, std::size_t first, std::size_t i) {
    if (!live.Is(i, '>')) return i;
    const std::size_t open = live.OpeningAngle(i, first);
    return open > first ? open - 1 : open;
}

}  // namespace

std::size_t CNameStart(const CLiveTokens& live, std::size_t first, std::size_t parameters) {
    if (parameters <= first) return parameters;
    std::size_t name = BeforeArguments(live, first, parameters - 1);
    return name > first && live.Is(name - 1, '~') ? name - 1 : name;
}

std::size_t CQualifiedStart(const CLiveTokens& live, std::size_t first, std::size_t name) {
    while (name >= first + 3 && live.IsScope(name - 2)) {
        const std::size_t qualifier = BeforeArguments(live, first, name - 3);
        if (!live.IsWord(qualifier)) break;
        name = qualifier;
    }
    return name;
}

std::string CFunctionName(const CLiveTokens& live, const CDeclarator& declarator) {
    std::size_t nameEnd = declarator.parameters - 1;
    // In "int (isdigit)(int c)" a bracket stands between.
    if (live.Is(nameEnd, ')') && nameEnd == declarator.name + 1) --nameEnd;
    return OneLine(live, declarator.name, nameEnd) +
           OneLine(live, declarator.parameters, declarator.parametersEnd);
}

std::string CClassName(const CLiveTokens& live, std::size_t classKey, std::size_t brace) {
    std::size_t name = classKey + 1;
    while (name < brace && !live.Is(name, ':')) {
        const bool isMacro = live.IsWord(name + 1) && !live.IsWord(name + 1, "final");
        if (live.IsWord(name) && !isMacro && !live.IsWord(name, "final")) break;
        const bool isBracket = live.IsAnyOf(name, "([") && live.Closing(name) < brace;
        name = isBracket ? live.Closing(name) + 1 : name + 1;
    }
    if (!live.IsWord(name) || name >= brace) return {};
    std::size_t last = name;
    while (true) {
        if (live.Is(last + 1, '<') && live.Closing(last + 1) < brace) {
            last = live.Closing(last + 1);
        } else if (live.IsScope(last + 1) && live.IsWord(last + 3)) {
            last += 3;
        } else {
            return OneLine(live, name, last);
        }
    }
}

}  // namespace snippetarium
