#include "import/tree_sitter_cutter.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "import/blank_out.h"
#include "import/csharp_directives.h"
#include "import/javascript_functions.h"
#include "import/source_units.h"
#include "import/syntax_parser.h"
#include "import/type_bodies.h"
#include "import/type_members.h"

namespace snippetarium {

namespace {

constexpr std::string_view kTooTangled =
    "The file is stored whole, as its brackets or its size are too much to find procedures in it.";

/// The text with everything at its place, but without what grammars do not know: the characters
/// that stand in for bytes without a meaning (U+10FE00 to U+10FEFF) become letters, control
/// characters become blanks.
std::string ParseCopy(std::string_view text) {
    constexpr std::string_view kStandInStart = "\xF4\x8F";
    constexpr std::size_t kStandInSize = 4;
    std::string copy(text);
    for (char& character : copy) {
        const bool isSpace = character == '\r' || character == '\n' || character == '\t';
        if (static_cast<unsigned char>(character) < ' ' && !isSpace) character = ' ';
    }
    for (std::size_t at = copy.find(kStandInStart); at != std::string::npos;
         at = copy.find(kStandInStart, at + 1)) {
        if (at + kStandInSize > copy.size()) break;
        const auto third = static_cast<unsigned char>(copy[at + 2]);
        if (third >= 0xB8) copy.replace(at, kStandInSize, kStandInSize, '_');
    }
    return copy;
}

CutFile Whole(std::string_view text, ParseEnd end) {
    CutFile file = CutUnits(text, {}, {}, UnitPlacement::Exact);
    if (end == ParseEnd::TooTangled) file.problems.emplace_back(kTooTangled);
    return file;
}

/// What the parser need not see. It goes through the whole list at every token, so that where there
/// are many, they become blanks instead.
std::vector<TextRange> BodiesToSkip(std::string& parseCopy, const CTokens& tokens,
                                    Grammar grammar) {
    constexpr std::size_t kMostSkipped = 200;
    std::vector<TextRange> bodies = FindTypeBodies(tokens, grammar);
    if (bodies.size() <= kMostSkipped) return bodies;
    for (const TextRange& body : bodies)
        BlankOut(parseCopy, body);
    return {};
}

CutFile CutTypes(std::string_view text, Grammar grammar, UnitPlacement placement,
                 LineProgress& progress) {
    std::string parseCopy = ParseCopy(text);
    const std::vector<TextRange> skipped = progress.Await(text.size(), [&] {
        TypeTokens found = TokeniseTypes(parseCopy, grammar);
        BlankCSharpDirectives(parseCopy, found);
        return BodiesToSkip(parseCopy, found.tokens, grammar);
    });
    const ParseResult parsed = ParseSyntax(parseCopy, grammar, progress, skipped);
    if (parsed.end != ParseEnd::Done) return Whole(text, parsed.end);
    return progress.Await(text.size(), [&] {
        TypeMembers members = FindTypeMembers(parsed.tree.Root(), text);
        CutFile file = CutUnits(text, members.units,
                                CommentsAbove(parsed.tree, parseCopy, members.units), placement);
        file.className = std::move(members.firstType);
        return file;
    });
}

}  // namespace

CutFile CutJava(std::string_view text, LineProgress& progress) {
    return CutTypes(text, Grammar::Java, UnitPlacement::Exact, progress);
}

CutFile CutCSharp(std::string_view text, LineProgress& progress) {
    return CutTypes(text, Grammar::CSharp, UnitPlacement::WholeLines, progress);
}

CutFile CutJavaScript(std::string_view text, LineProgress& progress) {
    ScriptUnits found = FindJavaScriptUnits(text, progress);
    CutFile file = CutUnits(text, found.units, found.comments, UnitPlacement::Exact);
    file.problems = std::move(found.problems);
    return file;
}

ScriptUnits FindJavaScriptUnits(std::string_view text, LineProgress& progress) {
    const std::string parseCopy = ParseCopy(text);
    const ParseResult parsed = ParseSyntax(parseCopy, Grammar::JavaScript, progress);
    ScriptUnits found;
    if (parsed.end == ParseEnd::TooTangled) found.problems.emplace_back(kTooTangled);
    if (parsed.end != ParseEnd::Done) return found;
    progress.Await(text.size(), [&] {
        found.units = FindJavaScriptFunctions(parsed.tree.Root(), text);
        found.comments = CommentsAbove(parsed.tree, parseCopy, found.units);
    });
    return found;
}

}  // namespace snippetarium
