#include "support/paths.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/every_text.h"

namespace snippetarium {
namespace {

struct Parts {
    std::string_view path;
    std::string_view drive;
    std::string_view parent;
    std::string_view file;
    std::string_view base;
    std::string_view extension;
};

// clang-format off
constexpr Parts kParts[] = {
    {"", "", "", "", "", ""},
    {"Form1.frm", "", "", "Form1.frm", "Form1", "frm"},
    {"sub\\Form1.frm", "", "sub", "Form1.frm", "Form1", "frm"},
    {"sub/Form1.frm", "", "sub", "Form1.frm", "Form1", "frm"},
    {"a\\b/c.d", "", "a\\b", "c.d", "c", "d"},
    {"a//b", "", "a", "b", "b", ""},
    {"src\\sub\\", "", "src", "sub", "sub", ""},
    {"src\\sub\\\\", "", "src", "sub", "sub", ""},
    {"a.tar.gz", "", "", "a.tar.gz", "a.tar", "gz"},
    {".profile", "", "", ".profile", "", "profile"},
    {"readme.", "", "", "readme.", "readme", ""},
    {"v1.2\\readme", "", "v1.2", "readme", "readme", ""},
    {"v1.2/readme", "", "v1.2", "readme", "readme", ""},
    {"/", "/", "", "", "", ""},
    {"/home", "/", "/", "home", "home", ""},
    {"/home/ann/x.c", "/", "/home/ann", "x.c", "x", "c"},
    {"/home/ann\\sub\\x.c", "/", "/home/ann\\sub", "x.c", "x", "c"},
    {"C:", "C:", "", "", "", ""},
    {"C:\\", "C:", "", "", "", ""},
    {"C:\\src", "C:", "C:\\", "src", "src", ""},
    {"c:/src/x.bas", "c:", "c:/src", "x.bas", "x", "bas"},
    {"C:notes.txt", "", "", "C:notes.txt", "C:notes", "txt"},
    {"1:\\x", "", "1:", "x", "x", ""},
    {"\\\\server\\share", "\\\\server\\share", "", "", "", ""},
    {"\\\\server\\share\\x.c", "\\\\server\\share", "\\\\server\\share\\", "x.c", "x", "c"},
    {"\\\\server\\share\\a\\b", "\\\\server\\share", "\\\\server\\share\\a", "b", "b", ""},
    {"\\\\server", "\\", "\\", "server", "server", ""},
    {"\\\\\\x", "\\", "\\", "x", "x", ""},
    {"Größe\\Maß.cls", "", "Größe", "Maß.cls", "Maß", "cls"},
};
// clang-format on

TEST(Paths, PartsAreTakenFromTheTextWithEitherSeparator) {
    for (const Parts& row : kParts) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(DriveName(row.path), row.drive);
        EXPECT_EQ(ParentFolder(row.path), row.parent);
        EXPECT_EQ(FileName(row.path), row.file);
        EXPECT_EQ(BaseName(row.path), row.base);
        EXPECT_EQ(FileExtension(row.path), row.extension);
    }
}

TEST(Paths, GoingUpReachesTheTopFromEveryPath) {
    // All paths over a small alphabet: a parent that does not get shorter would hang a walk
    // upwards.
    ForEveryText("\\/C:.", 6, [](const std::string& path) {
        const std::string_view parent = ParentFolder(path);
        const std::string_view name = FileName(path);
        EXPECT_TRUE(path.empty() || parent.size() < path.size()) << path;
        EXPECT_TRUE(path.starts_with(parent)) << path;
        EXPECT_EQ(name.find_first_of("\\/"), std::string_view::npos) << path;
        // Behind two backslashes, joining may make a share of what was none.
        if (name.empty() || path.starts_with("\\\\")) return;
        EXPECT_EQ(FileName(JoinPath(parent, name)), name) << path;
    });
}

TEST(Paths, JoiningPutsOneSeparatorBetweenTheParts) {
    EXPECT_EQ(JoinPath("sub", "Form1.frm"), "sub\\Form1.frm");
    EXPECT_EQ(JoinPath("/home/ann", "sub\\x.c"), "/home/ann\\sub\\x.c");
    EXPECT_EQ(JoinPath("C:\\", "x.c"), "C:\\x.c");
    EXPECT_EQ(JoinPath("/", "x.c"), "/x.c");
    EXPECT_EQ(JoinPath("", "x.c"), "x.c");
}

TEST(Paths, SeparatorsAreTurnedIntoThoseOfPlatformAndCatalogue) {
    EXPECT_EQ(ToPlatformPath("/home/ann\\sub\\x.c"), "/home/ann/sub/x.c");
    EXPECT_EQ(ToCataloguePath("/home/ann\\sub/x.c"), "\\home\\ann\\sub\\x.c");
}

}  // namespace
}  // namespace snippetarium
