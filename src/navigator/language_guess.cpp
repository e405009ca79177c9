#include "navigator/language_guess.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <vector>

#include "import/c_tokens.h"
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

// clang-format off
constexpr std::int32_t kVisualBasic = 1;
constexpr std::int32_t kJava = 2;
constexpr std::int32_t kCSharp = 3;
constexpr std::int32_t kCpp = 4;
constexpr std::int32_t kC = 5;
constexpr std::int32_t kServerPage = 6;
constexpr std::int32_t kJavaScript = 7;
constexpr std::int32_t kVbScript = 8;
constexpr std::int32_t kHtml = 9;
constexpr std::size_t kLanguages = 12;

constexpr int kEnough = 3;
constexpr int kLead = 2;

struct Evidence {
    std::int32_t languageID;
    int weight;
    /// Tokens with blanks between them; "#include" begins a whole directive line instead.
    std::string_view tokens;
};

constexpr Evidence kBraceEvidence[] = {
    {kC, 3, "#include <stdio.h>"},
    {kC, 3, "#include <stdlib.h>"},
    {kC, 3, "#include <string.h>"},
    {kC, 3, "#include <stddef.h>"},
    {kC, 2, "= malloc ("},
    {kC, 2, "( void )"},
    {kC, 2, "typedef struct"},
    {kC, 2, "* ) malloc"},
    {kC, 1, "printf ("},
    {kC, 1, "NULL"},
    {kC, 1, "char *"},
    {kC, 1, "sizeof"},
    {kC, 1, "unsigned"},
    {kC, 1, "- >"},
    {kC, 1, "static inline"},
    {kC, 1, "free ("},
    {kC, 1, "size_t"},
    {kC, 1, "memcpy ("},
    {kC, 1, "strlen ("},

    {kCpp, 4, "std : :"},
    {kCpp, 4, "template <"},
    {kCpp, 4, "using namespace"},
    {kCpp, 3, "#include <string>"},
    {kCpp, 3, "#include <vector>"},
    {kCpp, 3, "#include <iostream>"},
    {kCpp, 3, "#include <map>"},
    {kCpp, 3, "#include <memory>"},
    {kCpp, 3, "public :"},
    {kCpp, 3, "private :"},
    {kCpp, 3, "protected :"},
    {kCpp, 3, "nullptr"},
    {kCpp, 3, "cout < <"},
    {kCpp, 3, "constexpr"},
    {kCpp, 3, "noexcept"},
    {kCpp, 3, "typename"},
    {kCpp, 3, "const_cast"},
    {kCpp, 3, "static_cast <"},
    {kCpp, 3, "reinterpret_cast <"},
    {kCpp, 3, "dynamic_cast <"},
    {kCpp, 2, ": :"},
    {kCpp, 2, "virtual"},
    {kCpp, 2, "friend"},
    {kCpp, 2, ") const {"},
    {kCpp, 2, ") override"},
    {kCpp, 2, "delete ["},
    {kCpp, 2, "const auto"},
    {kCpp, 1, "- >"},
    {kCpp, 1, "auto"},
    {kCpp, 1, "operator"},
    {kCpp, 1, "char *"},
    {kCpp, 1, "unsigned"},
    {kCpp, 1, "sizeof"},
    {kCpp, 1, "size_t"},

    {kJava, 4, "import java"},
    {kJava, 4, "import javax"},
    {kJava, 4, "System . out"},
    {kJava, 4, "System . err"},
    {kJava, 4, "static void main ( String"},
    {kJava, 3, "@ Override"},
    {kJava, 3, "throws"},
    {kJava, 3, "instanceof"},
    {kJava, 2, "implements"},
    {kJava, 2, "boolean"},
    {kJava, 2, "extends"},
    {kJava, 2, "synchronized"},
    {kJava, 2, ". isEmpty ("},
    {kJava, 2, ". stream ("},
    {kJava, 2, "private final"},
    {kJava, 2, "public static final"},
    {kJava, 2, "final int"},
    {kJava, 2, "final String"},
    {kJava, 2, "String [ ]"},
    {kJava, 2, ". equals ("},
    {kJava, 2, ". length ( )"},
    {kJava, 2, "public String"},
    {kJava, 2, "new ArrayList <"},
    {kJava, 2, "throw new IllegalArgumentException"},
    {kJava, 2, "( String"},
    {kJava, 1, "private String"},
    {kJava, 1, "final"},
    {kJava, 1, "package"},
    {kJava, 1, "List <"},
    {kJava, 1, "super ("},
    {kJava, 1, "public void"},
    {kJava, 1, "throw new"},

    {kCSharp, 4, "using System"},
    {kCSharp, 4, "Console . Write"},
    {kCSharp, 4, "Console . WriteLine"},
    {kCSharp, 4, "{ get ;"},
    {kCSharp, 4, "get ; set ;"},
    {kCSharp, 4, "{ get {"},
    {kCSharp, 4, "{ get = >"},
    {kCSharp, 3, "foreach ("},
    {kCSharp, 3, "nameof ("},
    {kCSharp, 3, "static void Main ( string"},
    {kCSharp, 3, "public override"},
    {kCSharp, 3, "protected override"},
    {kCSharp, 3, "async Task"},
    {kCSharp, 2, "internal"},
    {kCSharp, 2, "readonly"},
    {kCSharp, 2, "sealed"},
    {kCSharp, 2, "partial class"},
    {kCSharp, 2, "is null"},
    {kCSharp, 2, "public string"},
    {kCSharp, 2, "private string"},
    {kCSharp, 2, "static string"},
    {kCSharp, 2, "public bool"},
    {kCSharp, 2, "private bool"},
    {kCSharp, 2, "string . IsNullOrEmpty"},
    {kCSharp, 2, ". ToString ( )"},
    {kCSharp, 2, "( string"},
    {kCSharp, 2, "object sender"},
    {kCSharp, 2, "new List <"},
    {kCSharp, 2, ". Where ("},
    {kCSharp, 2, ". Select ("},
    {kCSharp, 1, "throw new"},
    {kCSharp, 1, ". Length"},
    {kCSharp, 1, ". Count"},
    {kCSharp, 1, ". Add ("},
    {kCSharp, 1, "var"},
    {kCSharp, 1, "out"},
    {kCSharp, 1, "ref"},
    {kCSharp, 1, "params"},
    {kCSharp, 1, "public void"},
    {kCSharp, 1, "List <"},

    {kJavaScript, 4, "= = ="},
    {kJavaScript, 4, "! = ="},
    {kJavaScript, 4, "function ("},
    {kJavaScript, 4, "console . log"},
    {kJavaScript, 4, "document ."},
    {kJavaScript, 4, "module . exports"},
    {kJavaScript, 4, "export default"},
    {kJavaScript, 4, "export function"},
    {kJavaScript, 4, "async function"},
    {kJavaScript, 3, "function"},
    {kJavaScript, 3, "require ("},
    {kJavaScript, 3, "window ."},
    {kJavaScript, 3, "undefined"},
    {kJavaScript, 3, "typeof"},
    {kJavaScript, 3, "let"},
    {kJavaScript, 2, "JSON ."},
    {kJavaScript, 2, ") = > {"},
    {kJavaScript, 2, "prototype"},
    {kJavaScript, 2, "Math . PI"},
    {kJavaScript, 2, ". push ("},
    {kJavaScript, 2, ". length ;"},
    {kJavaScript, 1, "var"},
    {kJavaScript, 1, "this ."},
    {kJavaScript, 1, "await"},
};

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
constexpr Evidence kBasicEvidence[] = {
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

/// What each language has collected.
class Scores {
  public:
    void Add(std::int32_t languageID, int weight) {
        scores_[static_cast<std::size_t>(languageID)] += weight;
    }
    std::int32_t Best() const {
        const auto best = std::ranges::max_element(scores_);
        const int second =
            std::max(best == scores_.begin() ? 0 : *std::max_element(scores_.begin(), best),
                     best + 1 == scores_.end() ? 0 : *std::max_element(best + 1, scores_.end()));
        const bool isClear = *best >= kEnough && *best - second >= kLead;
        return isClear ? static_cast<std::int32_t>(best - scores_.begin()) : 0;
    }

  private:
    std::array<int, kLanguages> scores_{};
};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (const std::string_view line = Trimmed(text.substr(0, end)); !line.empty())
            lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
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
    if (FindIgnoringAsciiCase(start.substr(0, 14), "<!doctype html") == 0) return kHtml;
    int elements = 0;
    for (std::size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1))
        elements += BeginsElement(text.substr(at + 1)) ? 1 : 0;
    return elements >= 2 ? kHtml : 0;
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
    Scores scores;
    std::string all;
    for (const std::string& line : lines)
        all += line + "\n";
    for (const Evidence& evidence : kBasicEvidence) {
        if (all.find(evidence.tokens) != std::string::npos)
            scores.Add(evidence.languageID, evidence.weight);
    }
    if (std::ranges::any_of(lines, DeclaresWithoutType)) scores.Add(kVbScript, 3);
    return scores.Best();
}

// Languages with braces

/// The tokens with a blank before, between and behind them, literals without what is in them. The
/// directives that matter stand on lines of their own behind them.
std::string TokenLine(std::string_view text, const CTokens& found) {
    std::string line = " ";
    for (const CToken& token : found.tokens) {
        line += token.kind == CTokenKind::Literal ? std::string_view("\"\"") : found.TextOf(token);
        line += ' ';
    }
    for (const std::string_view source : LinesOf(text)) {
        if (source.starts_with("#include")) line.append("\n").append(source);
    }
    return line;
}

/// "struct grid *rows": who writes C++ leaves the first word out.
bool NamesStructs(const CTokens& found) {
    const std::vector<CToken>& tokens = found.tokens;
    for (std::size_t i = 2; i < tokens.size(); ++i) {
        if (found.TextOf(tokens[i - 2]) == "struct" && found.TextOf(tokens[i]) == "*") return true;
    }
    return false;
}

std::int32_t GuessBraces(std::string_view text) {
    const CTokens found = TokeniseC(text, CDialect::Cpp);
    const std::string line = TokenLine(text, found);
    Scores scores;
    if (NamesStructs(found)) scores.Add(kC, 3);
    for (const Evidence& evidence : kBraceEvidence) {
        const bool isDirective = evidence.tokens.starts_with('#');
        const std::string wanted =
            isDirective ? std::string(evidence.tokens) : " " + std::string(evidence.tokens) + " ";
        if (line.find(wanted) != std::string::npos)
            scores.Add(evidence.languageID, evidence.weight);
    }
    return scores.Best();
}

}  // namespace

std::int32_t GuessedLanguage(std::string_view text) {
    if (const std::int32_t page = GuessPage(text); page != 0) return page;
    std::vector<std::string> basicLines;
    std::size_t basic = 0;
    std::size_t braces = 0;
    for (const std::string_view line : LinesOf(text)) {
        basicLines.push_back(BasicLine(line));
        basic += IsBasicLine(basicLines.back()) ? 1 : 0;
        braces += line.ends_with('{') || line.ends_with('}') || line.ends_with(';') ? 1 : 0;
    }
    return basic > braces ? GuessBasic(basicLines) : GuessBraces(text);
}

}  // namespace snippetarium
