#include <string>

#include "import/c_tokens.h"
#include "navigator/language_scores.h"

namespace snippetarium {

namespace {

using namespace delivered_language;

/// Tokens with blanks between them; "#include" begins a whole line of the text instead.
// clang-format off
constexpr LanguageEvidence kBraceEvidence[] = {
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
    {kJava, 2, ") - > {"},
    {kJava, 1, "private static"},
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
    {kCSharp, 3, "typeof ("},
    {kCSharp, 3, "string ?"},
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
    {kCSharp, 1, "string"},
    {kCSharp, 1, "throw new"},
    {kCSharp, 1, ". Length"},
    {kCSharp, 1, ". Count"},
    {kCSharp, 1, ". Add ("},
    {kCSharp, 1, "var"},
    {kCSharp, 1, "out"},
    {kCSharp, 1, "ref"},
    {kCSharp, 1, "params"},
    {kCSharp, 1, "public void"},
    {kCSharp, 1, "private void"},
    {kCSharp, 1, "private static"},
    {kCSharp, 1, "List <"},

    {kJavaScript, 4, "= = ="},
    {kJavaScript, 4, "! = ="},
    {kJavaScript, 4, "function ("},
    {kJavaScript, 4, "console . log"},
    {kJavaScript, 4, "document . getElementById ("},
    {kJavaScript, 4, "document . createElement ("},
    {kJavaScript, 4, "document . querySelector ("},
    {kJavaScript, 4, "document . write ("},
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
// clang-format on

/// The tokens with a blank before, between and behind them, literals without what is in them. The
/// directives that matter stand on lines of their own behind them.
std::string TokenLine(std::string_view text, const CTokens& found) {
    std::string line = " ";
    for (const CToken& token : found.tokens) {
        line += token.kind == CTokenKind::Literal ? std::string_view("\"\"") : found.TextOf(token);
        line += ' ';
    }
    for (const std::string_view source : LinesWithText(text)) {
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

}  // namespace

std::int32_t GuessBraceLanguage(std::string_view text) {
    const CTokens found = TokeniseC(text, CDialect::Cpp);
    const std::string line = TokenLine(text, found);
    LanguageScores scores;
    if (NamesStructs(found)) scores.Add(kC, 3);
    for (const LanguageEvidence& evidence : kBraceEvidence) {
        const bool isDirective = evidence.text.starts_with('#');
        const std::string wanted =
            isDirective ? std::string(evidence.text) : " " + std::string(evidence.text) + " ";
        if (line.find(wanted) != std::string::npos)
            scores.Add(evidence.languageID, evidence.weight);
    }
    return scores.Best();
}

}  // namespace snippetarium
