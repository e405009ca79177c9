#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "import/import_state.h"

namespace snippetarium {

// What the import makes of a file by its extension alone. Four tables answer four questions, and
// they do not agree everywhere; what looks like a slip is kept on purpose:
//
// - Pages ("htm", "html") have a kind, but the list of a folder's files does not show them.
// - A resource script ("rc") has a language and no kind; "hpp" has a kind and no language's name.
// - "cs" stands last in the list's pattern, so the walk over subfolders does not take such files.

/// Which analyser reads a file. The values are the ones that callers keep.
enum class CodeFileKind : std::int8_t {
    NotSupported = 0,
    VisualBasic = 1,
    Java = 2,
    Cpp = 4,
    C = 5,
    ServerPage = 6,
    JavaScript = 7,
    VBScript = 8,
    HtmlPage = 9,
    CHeader = 10,
    CppHeader = 11,
};

/// The kind of a file with this extension, in any letter case and without its dot. An "INC" file is
/// a page until the job at hand has met one that is none.
CodeFileKind GetCodeFileKind(std::string_view extension, const ImportState& state);

/// The files that the dialog lists, as the file list's pattern.
inline constexpr std::string_view kListPattern =
    "*.frm;*.bas;*.cls;*.dob;*.ctl;*.pag;*.dsr;*.c;*.h;*.cpp;*.hpp;*.odl;*.java;*.js;*.asp;*.inc;"
    "*.cxx;*.hxx;*.vbs;*.vbi;*.cc;*.hh;*.cs";

/// As that pattern, but with every extension that has a kind, for the list and for the walk.
std::string EveryKindPattern();

/// Does the list of a single folder show this file? True where its extension is one of the
/// pattern's, in any letter case.
bool IsShownInList(std::string_view fileName, std::string_view pattern);
/// Does the walk over subfolders take it? It looks for the extension with a semicolon behind it,
/// so it misses the pattern's last one.
bool IsTakenByWalk(std::string_view fileName, std::string_view pattern);

/// The name of the language that an extension in small letters offers; empty for any other.
std::string_view LanguageNameOfExtension(std::string_view extension);

/// The ID of the delivered language row for a file with this extension, in any letter case; 0 for
/// one without a kind. It decides what the markers in the class's text look like
/// (export/markers.h), so it is a number and no name, which the user may change.
std::int32_t ClassLanguageID(std::string_view extension);
/// The name under which that row was delivered.
std::string_view DeliveredLanguageName(std::int32_t languageID);
/// In any letter case.
bool IsDeliveredLanguage(std::string_view name);

}  // namespace snippetarium
