#include "import/analysers.h"

#include <gtest/gtest.h>

#include "tests/import/import_fixture.h"

namespace snippetarium {
namespace {

using test::Rows;

class AnalysersTest : public test::ImportFixture {
  protected:
    Rows ClassNames() {
        return Select("SELECT className FROM tblClass WHERE classID > 1 ORDER BY classID");
    }
};

TEST_F(AnalysersTest, CutEveryKindOfFileAndNameItsClass) {
    struct Case {
        const char* entry;
        const char* text;
        const char* className;
        const char* codeName;
    };
    // clang-format off
    const Case cases[] = {
        {"a.bas",  "Sub Draw()\nEnd Sub\n",                    "a",       "Draw()"},
        {"b.vbs",  "Sub Draw\nEnd Sub\n",                      "b",       "Draw"},
        {"c.c",    "int old(x) int x; { }\n",                  "c.c",     "old(x)"},
        {"d.cpp",  "int A::f() { }\n",                         "d.cpp",   "A::f()"},
        {"e.hpp",  "int f() { } int g;\n",                     "e.hpp",   "f()"},
        {"f.h",    "int f() { } int g;\nint h() { }\n\n",      "f.h",     "h()"},
        {"g.hxx",  "int h() { }\n\n",                          "g.hxx",   "h()"},
        {"h.java", "class Grid { void f() { } }\n",            "Grid",    "Grid.f()"},
        {"i.java", "// nothing\n",                             "i",       nullptr},
        {"j.CS",   "class Cell\n{\n  void F() { }\n}\n",       "Cell",    "Cell.F()"},
        {"k.js",   "function f() { }\n",                       "k.js",    "f()"},
        {"l.asp",  "<%\nSub S\nEnd Sub\n%>\n",                 "l.asp",   "S"},
        {"m.html", "<script>\nfunction f() { }\n</script>\n",  "m.html",  "f()"},
        {"n.inc",  "<script>\nfunction g() { }\n</script>\n",  "n.inc",   "g()"},
    };
    // clang-format on
    for (const Case& test : cases) {
        SCOPED_TRACE(test.entry);
        AddFile(test.entry, test.text);
        const ImportOutcome outcome = Import({test.entry});
        EXPECT_EQ(outcome.texts.errors, "");
        EXPECT_EQ(ClassNames().back(), test.className);
        const Rows codes = Select(
            "SELECT codeName FROM tblCode WHERE classID = (SELECT max(classID) FROM tblClass)");
        EXPECT_EQ(codes, test.codeName == nullptr ? Rows{} : Rows{test.codeName});
    }
}

/// Steps of the cutting of a large file run beside the window's events.
TEST_F(AnalysersTest, CutALargeFileAsASmallOne) {
    constexpr int kCount = 300;
    const std::string body = "{ a = 1; " + std::string(1000, ';') + " }\n";
    const auto repeat = [&](const std::string& head) {
        std::string text;
        for (int i = 0; i < kCount; ++i)
            text += head + std::to_string(i) + "()\n" + body;
        return text;
    };
    // clang-format off
    const std::pair<const char*, std::string> files[] = {
        {"a.c",    repeat("int f")},
        {"B.java", "class B {\n" + repeat("void f") + "}\n"},
        {"C.cs",   "class C\n{\n" + repeat("void f") + "}\n"},
        {"d.js",   repeat("function f")},
    };
    // clang-format on
    for (const auto& [entry, text] : files) {
        SCOPED_TRACE(entry);
        AddFile(entry, text);
        EXPECT_EQ(Import({entry}).texts.errors, "");
        const Rows names = Select(
            "SELECT codeName FROM tblCode WHERE classID = (SELECT max(classID) FROM tblClass) "
            "ORDER BY codeID");
        ASSERT_EQ(names.size(), static_cast<std::size_t>(kCount));
        EXPECT_TRUE(names.front().ends_with("f0()")) << names.front();
        EXPECT_TRUE(names.back().ends_with("f299()")) << names.back();
    }
}

TEST_F(AnalysersTest, TakeNoMoreIncludeFilesInAJobThatHasMetOneWithoutAPage) {
    AddFile("makefile.inc", "SOURCES = a.c\n");
    AddFile("page.inc", "<% Sub S\nEnd Sub %>\n");
    const ImportOutcome first = Import({"makefile.inc", "page.inc"});
    EXPECT_EQ(first.texts.errors,
              "  makefile.inc was not imported, because it is no part of a page. No more files "
              "with its extension are imported this time.\r\n"
              "  page.inc was not imported as its extension is not supported.\r\n");
    EXPECT_EQ(ClassNames(), Rows{});
    const ImportOutcome second = Import({"page.inc"});
    EXPECT_EQ(second.texts.errors, "");
    EXPECT_EQ(ClassNames(), Rows{"page.inc"});
}

}  // namespace
}  // namespace snippetarium
