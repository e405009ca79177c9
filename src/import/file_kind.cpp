#include "import/file_kind.h"

#include <algorithm>
#include <array>

#include "support/case_fold.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

struct ExtensionRow {
    std::string_view extension;
    CodeFileKind kind;
    /// What the dialog offers for it.
    std::string_view languageName;
    /// The language of its class.
    std::int32_t languageID;
};

// clang-format off
constexpr std::array kExtensions{
    ExtensionRow{"bas",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"frm",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"cls",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"dob",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"ctl",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"pag",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"dsr",  CodeFileKind::VisualBasic,  "Visual Basic", 1},
    ExtensionRow{"java", CodeFileKind::Java,         "Java",         2},
    ExtensionRow{"cs",   CodeFileKind::Java,         "C#",           3},
    ExtensionRow{"cpp",  CodeFileKind::Cpp,          "C++",          4},
    ExtensionRow{"hpp",  CodeFileKind::Cpp,          "",             4},
    ExtensionRow{"odl",  CodeFileKind::Cpp,          "C++",          4},
    ExtensionRow{"cxx",  CodeFileKind::Cpp,          "C++",          4},
    ExtensionRow{"cc",   CodeFileKind::Cpp,          "C++",          4},
    ExtensionRow{"rc",   CodeFileKind::NotSupported, "C++",          0},
    ExtensionRow{"c",    CodeFileKind::C,            "C",            5},
    ExtensionRow{"asp",  CodeFileKind::ServerPage,   "ASP",          6},
    ExtensionRow{"inc",  CodeFileKind::ServerPage,   "ASP",          6},
    ExtensionRow{"js",   CodeFileKind::JavaScript,   "JavaScript",   7},
    ExtensionRow{"vbs",  CodeFileKind::VBScript,     "VBScript",     8},
    ExtensionRow{"vbi",  CodeFileKind::VBScript,     "VBScript",     8},
    ExtensionRow{"htm",  CodeFileKind::HtmlPage,     "HTML",         9},
    ExtensionRow{"html", CodeFileKind::HtmlPage,     "HTML",         9},
    ExtensionRow{"h",    CodeFileKind::CHeader,      "C/C++ Header", 10},
    ExtensionRow{"hxx",  CodeFileKind::CppHeader,    "C++ Header",   11},
    ExtensionRow{"hh",   CodeFileKind::CppHeader,    "C++ Header",   11},
};
// The delivered languages by their IDs.
constexpr std::array<std::string_view, 12> kDeliveredLanguages{
    "", "Visual Basic", "Java", "C#", "C++", "C", "ASP", "JavaScript", "VBScript", "HTML", "C/C++ Header", "C++ Header",
};
// clang-format on

const ExtensionRow* FindExtension(std::string_view extension) {
    const auto* const found = std::ranges::find_if(kExtensions, [&](const ExtensionRow& row) {
        return EqualsIgnoringAsciiCase(row.extension, extension);
    });
    return found == kExtensions.end() ? nullptr : found;
}

bool ContainsFolded(std::string_view text, std::string_view part) {
    return FoldCase(text).find(FoldCase(part)) != std::string::npos;
}

}  // namespace

CodeFileKind GetCodeFileKind(std::string_view extension, const ImportState& state) {
    const ExtensionRow* const row = FindExtension(extension);
    if (row == nullptr) return CodeFileKind::NotSupported;
    if (row->extension == "inc" && state.includeFilesRejected) return CodeFileKind::NotSupported;
    return row->kind;
}

std::string EveryKindPattern() {
    return std::string(kListPattern) + ";*.htm;*.html;";
}

bool IsShownInList(std::string_view fileName, std::string_view pattern) {
    const std::string_view extension = FileExtension(fileName);
    return !extension.empty() &&
           ContainsFolded(std::string(pattern) + ";", "." + std::string(extension) + ";");
}

bool IsTakenByWalk(std::string_view fileName, std::string_view pattern) {
    return ContainsFolded(pattern, "." + std::string(FileExtension(fileName)) + ";");
}

std::string_view LanguageNameOfExtension(std::string_view extension) {
    const ExtensionRow* const row = FindExtension(extension);
    return row != nullptr && row->extension == extension ? row->languageName : std::string_view();
}

std::int32_t ClassLanguageID(std::string_view extension) {
    const ExtensionRow* const row = FindExtension(extension);
    return row == nullptr ? 0 : row->languageID;
}

std::string_view DeliveredLanguageName(std::int32_t languageID) {
    return kDeliveredLanguages.at(static_cast<std::size_t>(languageID));
}

bool IsDeliveredLanguage(std::string_view name) {
    return !name.empty() &&
           std::ranges::any_of(kDeliveredLanguages, [&](std::string_view delivered) {
               return EqualFolded(delivered, name);
           });
}

}  // namespace snippetarium
