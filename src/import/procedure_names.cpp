#include "import/procedure_names.h"

#include <cstddef>

#include "support/ascii_search.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kClassNameAttribute = "Attribute VB_Name=";
constexpr std::string_view kContinuation = "_\r\n";

std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == kNone) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Where the blank behind the keyword stands; kNone when there is no keyword.
std::size_t BehindKeyword(std::string_view line, ProcedureKind kind) {
    const std::string_view keyword = ProcedureKeyword(kind);
    const std::size_t found = FindIgnoringAsciiCase(line, keyword);
    return found == kNone ? kNone : found + keyword.size() - 1;
}

}  // namespace

std::string ProcedureName(std::string_view raw, ProcedureKind kind) {
    const std::size_t start = BehindKeyword(raw, kind);
    const std::size_t bracket = raw.rfind(')');
    if (start == kNone || bracket == kNone || bracket < start) return {};

    std::string_view rest = TrimBlanks(raw.substr(start, bracket + 1 - start));
    std::string name;
    for (std::size_t end = rest.find(kContinuation); end != kNone; end = rest.find(kContinuation)) {
        name += rest.substr(0, end);
        rest.remove_prefix(end + kContinuation.size());
    }
    return name += rest;
}

std::string VbScriptProcedureName(std::string_view raw, std::string_view key, ProcedureKind kind) {
    std::string name = ProcedureName(raw, kind);
    const std::size_t start = BehindKeyword(key, kind);
    if (!name.empty() || start == kNone) return name;
    const std::string_view rest = key.substr(start);
    return std::string(TrimBlanks(rest.substr(0, rest.find_first_of("':"))));
}

std::string DisplayName(std::string_view key) {
    std::string name(key);
    if (name.find('(') == std::string::npos) name += "()";
    return name;
}

std::string ClassNameFromAttribute(std::string_view key) {
    if (FindIgnoringAsciiCase(key, kClassNameAttribute) == kNone) return {};
    const std::string_view attributeAndQuote = CutToCharacters(key, kClassNameAttribute.size() + 1);
    const std::string_view name = key.substr(attributeAndQuote.size());
    if (name.empty()) return {};
    return std::string(CutToCharacters(name, CharacterCount(name) - 1));
}

}  // namespace snippetarium
