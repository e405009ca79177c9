#include "import/file_kind.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace snippetarium {
namespace {

struct KindCase {
    std::string_view extension;
    CodeFileKind kind;
    std::string_view languageName;
    std::int32_t classLanguageID;
    bool isShown;
    bool isWalked;
};

TEST(FileKinds, AreToldByTheExtensionAndItsTablesDisagreeWhereTheyShould) {
    using enum CodeFileKind;
    // clang-format off
    const std::vector<KindCase> cases{
        {"bas",  VisualBasic,  "Visual Basic", 1,  true,  true},
        {"frm",  VisualBasic,  "Visual Basic", 1,  true,  true},
        {"dsr",  VisualBasic,  "Visual Basic", 1,  true,  true},
        {"java", Java,         "Java",         2,  true,  true},
        {"cs",   Java,         "C#",           3,  true,  false},
        {"cpp",  Cpp,          "C++",          4,  true,  true},
        {"hpp",  Cpp,          "",             4,  true,  true},
        {"odl",  Cpp,          "C++",          4,  true,  true},
        {"c",    C,            "C",            5,  true,  true},
        {"asp",  ServerPage,   "ASP",          6,  true,  true},
        {"inc",  ServerPage,   "ASP",          6,  true,  true},
        {"js",   JavaScript,   "JavaScript",   7,  true,  true},
        {"vbi",  VBScript,     "VBScript",     8,  true,  true},
        {"htm",  HtmlPage,     "HTML",         9,  false, false},
        {"html", HtmlPage,     "HTML",         9,  false, false},
        {"h",    CHeader,      "C/C++ Header", 10, true,  true},
        {"hxx",  CppHeader,    "C++ Header",   11, true,  true},
        {"hh",   CppHeader,    "C++ Header",   11, true,  true},
        {"rc",   NotSupported, "C++",          0,  false, false},
        {"txt",  NotSupported, "",             0,  false, false},
        {"",     NotSupported, "",             0,  false, false},
        {"ba",   NotSupported, "",             0,  false, false},
    };
    // clang-format on
    const ImportState state;
    for (const KindCase& test : cases) {
        SCOPED_TRACE(test.extension);
        const std::string name = "a." + std::string(test.extension);
        EXPECT_EQ(GetCodeFileKind(test.extension, state), test.kind);
        EXPECT_EQ(LanguageNameOfExtension(test.extension), test.languageName);
        EXPECT_EQ(ClassLanguageID(test.extension), test.classLanguageID);
        EXPECT_EQ(IsShownInList(name, kListPattern), test.isShown);
        EXPECT_EQ(IsTakenByWalk(name, kListPattern), test.isWalked);
    }
}

TEST(FileKinds, DisregardLetterCaseButForTheLanguageName) {
    const ImportState state;
    EXPECT_EQ(GetCodeFileKind("CPP", state), CodeFileKind::Cpp);
    EXPECT_EQ(ClassLanguageID("Cpp"), 4);
    EXPECT_TRUE(IsShownInList("A.CS", kListPattern));
    EXPECT_TRUE(IsTakenByWalk("A.CPP", kListPattern));
    EXPECT_EQ(LanguageNameOfExtension("CPP"), "");
}

TEST(FileKinds, TakeTheNameWithoutADotForNoExtension) {
    EXPECT_FALSE(IsShownInList("bas", kListPattern));
    EXPECT_FALSE(IsTakenByWalk("bas", kListPattern));
    EXPECT_FALSE(IsShownInList("x.", kListPattern));
}

}  // namespace
}  // namespace snippetarium
