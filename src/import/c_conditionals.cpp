#include "import/c_conditionals.h"

#include <algorithm>
#include <span>
#include <utility>

namespace snippetarium {

namespace {

/// The tokens from `first` up to, not including, `last`.
struct Branch {
    std::size_t first = 0;
    std::size_t last = 0;
    std::string_view condition = {};
};

using Group = std::vector<Branch>;

constexpr std::size_t kDeepestGroup = 50;

/// In the order of their #endif, so that an outer group is judged after those inside it. A group
/// that is never closed ends with the text. Those that nest deeper than any sensible one are left
/// out: to judge a group is to look at all that is in it.
std::vector<Group> FindGroups(const CTokens& tokens) {
    std::vector<Group> closed;
    std::vector<Group> open;
    const auto close = [&](std::size_t last) {
        open.back().back().last = last;
        if (open.size() <= kDeepestGroup) closed.push_back(std::move(open.back()));
        open.pop_back();
    };
    for (const CDirective& directive : tokens.directives) {
        const std::size_t place = directive.tokensBefore;
        if (directive.kind == CDirectiveKind::If) {
            open.push_back({{place, place, directive.condition}});
        } else if (directive.kind == CDirectiveKind::Else && !open.empty()) {
            open.back().back().last = place;
            open.back().push_back({place, place, directive.condition});
        } else if (directive.kind == CDirectiveKind::EndIf && !open.empty()) {
            close(place);
        }
    }
    while (!open.empty())
        close(tokens.tokens.size());
    return closed;
}

void Mask(CTokens& tokens, const Branch& branch) {
    for (std::size_t i = branch.first; i < branch.last; ++i)
        tokens.tokens[i].isMasked = true;
}

/// No bracket reaches into or out of the branch, and it does not end within a declaration.
bool IsComplete(const CTokens& tokens, const Branch& branch) {
    int braces = 0;
    int others = 0;
    char last = ';';
    for (std::size_t i = branch.first; i < branch.last; ++i) {
        const CToken& token = tokens.tokens[i];
        if (token.isMasked) continue;
        last = token.kind == CTokenKind::Punctuation ? tokens.text[token.begin] : 'x';
        if (last == '{') ++braces;
        if (last == '}') --braces;
        if (last == '(' || last == '[') ++others;
        if (last == ')' || last == ']') --others;
        if (braces < 0 || others < 0) return false;
    }
    return braces == 0 && others == 0 && (last == ';' || last == '}' || last == ':');
}

bool IsNever(std::string_view condition) {
    return condition == "0" || condition == "false" || condition == "FALSE";
}

/// Another language in the same header.
bool IsForeign(std::string_view condition) {
    return condition.find("__OBJC__") != std::string_view::npos &&
           condition.find('!') == std::string_view::npos && !condition.starts_with("ifndef");
}

void MaskGroup(CTokens& tokens, const Group& group) {
    const bool isFirstDead = IsNever(group.front().condition) || IsForeign(group.front().condition);
    if (isFirstDead) Mask(tokens, group.front());
    if (group.size() == 1) return;
    const bool allComplete = std::all_of(group.begin(), group.end(), [&](const Branch& branch) {
        return IsComplete(tokens, branch);
    });
    if (allComplete) return;
    const std::size_t kept = isFirstDead ? 1 : 0;
    for (std::size_t i = 0; i < group.size(); ++i) {
        if (i != kept) Mask(tokens, group[i]);
    }
}

}  // namespace

void MaskBrokenBranches(CTokens& tokens) {
    for (const Group& group : FindGroups(tokens))
        MaskGroup(tokens, group);
}

}  // namespace snippetarium
