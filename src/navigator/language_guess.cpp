#include "navigator/language_guess.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "navigator/language_scores.h"
#include "support/ascii_search.h"
#include "support/case_fold.h"

namespace snippetarium {

// How a language is guessed. Pages tell themselves by their tags. Of the rest, Basic is told from
// the languages with braces by how its lines begin and end. Then evidence is counted: words, or a
// few tokens in a row, that one language has and the others hardly. Each piece of evidence counts
// once, however often it occurs, with its weight; a language is guessed where it has enough and no
// other comes near. So a text that could be in two languages is in none.
//
// Comments and literals are no evidence: they speak of anything.

namespace {

using namespace delivered_language;

// clang-format off
/// How a line of Basic begins, in small letters.
constexpr std::string_view kBasicBeginnings[] = {
    "end sub", "end function", "end property", "end if", "end select", "end with", "end type",
    "sub ", "function ", "private sub ", "public sub ", "friend sub ", "static sub ",
    "private function ", "public function ", "friend function ", "property get ",
    "property let ", "property set ", "public property ", "private property ", "dim ", "redim ",
    "option explicit", "option base", "attribute vb_", "select case ", "on error ", "exit sub",
    "exit function", "exit for", "for each ", "elseif ", "wend", "loop", "next", "do while ",
    "do until ", "set ", "msgbox ", "rem ", "public const ", "private const ", "private type ",
    "public type ", "public declare ", "private declare ", "withevents ", "call ",
};

/// Words that only one of the two Basics has, or that one uses where the other does not.
constexpr LanguageEvidence kBasicEvidence[] = {
    {kVisualBasic, 4, " as integer"},
    {kVisualBasic, 4, " as long"},
    {kVisualBasic, 4, " as string"},
    {kVisualBasic, 4, " as boolean"},
    {kVisualBasic, 4, " as double"},
    {kVisualBasic, 4, " as single"},
    {kVisualBasic, 4, " as date"},
    {kVisualBasic, 4, " as object"},
    {kVisualBasic, 4, " as variant"},
    {kVisualBasic, 4, " as byte"},
    {kVisualBasic, 4, " as currency"},
    {kVisualBasic, 4, " as new "},
    {kVisualBasic, 4, "attribute vb_"},
    {kVisualBasic, 4, "debug.print"},
    {kVisualBasic, 4, "on error goto "},
    {kVisualBasic, 4, "private type "},
    {kVisualBasic, 4, "withevents "},
    {kVisualBasic, 3, "declare function "},
    {kVisualBasic, 3, "declare sub "},
    {kVisualBasic, 3, "optional "},
    {kVisualBasic, 3, "app.path"},
    {kVisualBasic, 3, "doevents"},
    {kVisualBasic, 2, "private sub "},
    {kVisualBasic, 1, "_click("},
    {kVisualBasic, 1, "_load("},

    {kVbScript, 4, "wscript."},
    {kVbScript, 4, "response.write"},
    {kVbScript, 4, "server.createobject"},
    {kVbScript, 4, "server.mappath"},
    {kVbScript, 4, "request.form"},
    {kVbScript, 4, "request.querystring"},
    {kVbScript, 3, "server.htmlencode"},
    {kVbScript, 2, "= createobject("},
};

/// Elements that pages have and hardly another text in angle brackets.
constexpr std::string_view kElements[] = {
    "html", "head", "body", "div", "p", "a", "table", "tr", "td", "ul", "ol", "li", "span", "form",
    "input", "script", "style", "img", "h1", "h2", "h3", "br", "title", "meta", "link", "select",
};
// clang-format on

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Pages

bool BeginsElement(std::string_view rest) {
    if (rest.starts_with('/')) rest.remove_prefix(1);
    const auto end = std::ranges::find_if_not(
        rest, [](char character) { return std::isalnum(static_cast<unsigned char>(character)); });
    const std::string name = FoldCase(rest.substr(0, static_cast<std::size_t>(end - rest.begin())));
    return std::ranges::find(kElements, name) != std::end(kElements);
}

std::int32_t GuessPage(std::string_view text) {
    if (text.find("<%") != std::string_view::npos && text.find("%>") != std::string_view::npos)
        return kServerPage;
    const std::string_view start = Trimmed(text);
    if (!start.starts_with('<')) return 0;
    if (FindIgnoringAsciiCase(start.substr(0, 14), "<!doctype html") == 0) return kHtmlPage;
    int elements = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1))
        elements += BeginsElement(text.substr(at + 1)) ? 1 : 0;
    return elements >= 2 ? kHtmlPage : 0;
}

// Basic

/// A line without its comment and its literals, in small letters.
std::string BasicLine(std::string_view line) {
    std::string bare;
    bool isInLiteral = false;
    for (const char character : line) {
        if (character == '"') isInLiteral = !isInLiteral;
        if (character == '\'' && !isInLiteral) break;
        if (!isInLiteral) bare += character;
    }
    return FoldCase(Trimmed(bare));
}

bool BeginsLikeBasic(const std::string& line) {
    const std::string padded = line + " ";
    return std::ranges::any_of(kBasicBeginnings, [&](std::string_view beginning) {
        return padded.starts_with(beginning) &&
               (beginning.ends_with(' ') || beginning.ends_with('_') ||
                !std::isalnum(static_cast<unsigned char>(padded[beginning.size()])));
    });
}

bool IsBasicLine(const std::string& line) {
    if (line.ends_with('{') || line.ends_with(';') || line.ends_with('}')) return false;
    return BeginsLikeBasic(line) || (line.starts_with("if ") && line.ends_with(" then"));
}

/// "Dim a, b" and "Sub Draw(x, y)": the names have no types, as VBScript wants it.
bool DeclaresWithoutType(const std::string& line) {
    if (line.find(" as ") != std::string::npos || line.find('{') != std::string::npos) return false;
    const bool isProcedure = line.starts_with("sub ") || line.starts_with("function ");
    const std::size_t bracket = line.find('(');
    if (isProcedure && bracket != std::string::npos) return line[bracket + 1] != ')';
    return line.starts_with("dim ");
}

std::int32_t GuessBasic(const std::vector<std::string>& lines) {
    LanguageScores scores;
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    for (const LanguageEvidence& evidence : kBasicEvidence) {
        if (all.find(evidence.text) != std::string::npos)
            scores.Add(evidence.languageID, evidence.weight);
    }
    if (std::ranges::any_of(lines, DeclaresWithoutType)) scores.Add(kVbScript, 3);
    return scores.Best();
}

}  // namespace

std::vector<std::string_view> LinesWithText(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (const std::string_view line = Trimmed(text.substr(0, end)); !line.empty())
            lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::int32_t GuessedLanguage(std::string_view text) {
    if (const std::int32_t page = GuessPage(text); page != 0) return page;
    std::vector<std::string> basicLines;
    std::size_t basic = 0;
    std::size_t braces = 0;
    for (const std::string_view line : LinesWithText(text)) {
        basicLines.push_back(BasicLine(line));
        basic += IsBasicLine(basicLines.back()) ? 1 : 0;
        braces += line.ends_with('{') || line.ends_with('}') || line.ends_with(';') ? 1 : 0;
    }
    return basic > braces ? GuessBasic(basicLines) : GuessBraceLanguage(text);
}

}  // namespace snippetarium
