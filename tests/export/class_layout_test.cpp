#include "export/class_layout.h"

#include <gtest/gtest.h>

namespace snippetarium {
namespace {

TEST(ClassLayout, PutsTheHeaderWhereTheLanguageWantsIt) {
    using enum MarkerFamily;
    const struct {
        std::string_view description;
        MarkerFamily family;
        std::string_view text;
        std::string_view header;
        std::string_view expected;
    } cases[] = {
        {"no header", VisualBasic, "A\r\nOption Explicit\r\n", "", "A\r\nOption Explicit\r\n"},
        {"before Option Explicit", VisualBasic, "Attribute\r\nOption Explicit\r\nDim\r\n", "'h",
         "Attribute\r\n\r\n'h\r\nOption Explicit\r\nDim\r\n"},
        {"in any letter case", VisualBasic, "A\r\noPTION eXPLICIT\r\n", "'h",
         "A\r\n\r\n'h\r\noPTION eXPLICIT\r\n"},
        {"within a line", VisualBasic, "A: Option Explicit\r\n", "'h",
         "A: \r\n'h\r\nOption Explicit\r\n"},
        {"from the second character on", VisualBasic, ".Option Explicit\r\n", "'h",
         ".\r\n'h\r\nOption Explicit\r\n"},
        {"the first of several", VisualBasic, "A\r\nOption Explicit\r\nOption Explicit\r\n", "'h",
         "A\r\n\r\n'h\r\nOption Explicit\r\nOption Explicit\r\n"},
        {"not before the very first character", VisualBasic,
         "Option Explicit\r\n'Option Explicit\r\n", "'h",
         "'h\r\nOption Explicit\r\n'Option Explicit\r\n"},
        {"without Option Explicit on top", VisualBasic, "Option  Explicit\r\n", "'h",
         "'h\r\nOption  Explicit\r\n"},
        {"an empty class", VisualBasic, "\r\n", "'h", "'h\r\n\r\n"},
        {"behind the first line of script", Page, "<%@ language=x %>\r\n<html>\r\n", "<!--h-->",
         "<%@ language=x %>\r\n<!--h-->\r\n<html>\r\n"},
        {"which may be the only one", Page, "<% x %>\r\n", "<!--h-->", "<% x %>\r\n<!--h-->\r\n"},
        {"on top of a page of text", Page, "<html>\r\n<% x %>\r\n", "<!--h-->",
         "<!--h-->\r\n<html>\r\n<% x %>\r\n"},
        {"on top behind a blank", Page, " <% x %>\r\n", "<!--h-->", "<!--h-->\r\n <% x %>\r\n"},
        {"no page minds Option Explicit", Page, "<html>\r\nOption Explicit\r\n", "h",
         "h\r\n<html>\r\nOption Explicit\r\n"},
        {"always on top in C", C, "int x;\r\nOption Explicit\r\n", "/*h*/",
         "/*h*/\r\nint x;\r\nOption Explicit\r\n"},
        {"also before script", C, "<% x %>\r\ny\r\n", "/*h*/", "/*h*/\r\n<% x %>\r\ny\r\n"},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(LayOutClass(test.family, test.text, test.header), test.expected)
            << test.description;
    }
}

}  // namespace
}  // namespace snippetarium
