#include "editors/renaming.h"

#include <gtest/gtest.h>

#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

class RenamingTest : public EditorsFixture {};

constexpr NodeIDs kApplication{.appID = 2};
constexpr NodeIDs kClass{.appID = 2, .classID = 2};
constexpr NodeIDs kProcedure{.appID = 2, .classID = 2, .codeID = 1};

TEST_F(RenamingTest, ChangesTheNodeAndTheMarkerOfAProcedure) {
    const std::string name = "L\u00edne's \"\U0001F58D\" \u05e9\u05dc\u05d5\u05dd";
    EXPECT_TRUE(RenameNode(db_, kApplication, name));
    EXPECT_TRUE(RenameNode(db_, kClass, name));
    EXPECT_TRUE(RenameNode(db_, kProcedure, name));
    EXPECT_EQ(Select("SELECT a.appName, cls.className, cd.codeName FROM (tblApplication a INNER "
                     "JOIN tblClass cls ON cls.appID = a.appID) INNER JOIN tblCode cd ON "
                     "cd.classID = cls.classID"),
              (Rows{name + "|" + name + "|" + name}));
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n'***Procedure " + name + "***\r\n");
}

TEST_F(RenamingTest, IsRefusedWithAMessageAndNothingIsWritten) {
    AddApplication(db_, {.name = "App3"});
    SaveCodeRecord(db_, {.name = "Paint", .classID = 2, .code = "x"});
    const std::string_view notOneLine =
        "A name cannot hold a line break, a tab or another control character.";
    const std::string_view tooLong = "The name you specified is too long (over 255 characters).";
    const struct {
        NodeIDs node;
        std::string name;
        std::string_view message;
    } cases[] = {
        {{.appID = 1}, "x", "You cannot view or edit this application."},
        {{.appID = 1, .classID = 1}, "x", "You cannot view or edit this class."},
        {kApplication, "", "Please enter a name."},
        {kApplication, "\u00A0\u200B \u3000", "Please enter a name."},
        {kClass, std::string(256, 'x'), tooLong},
        {kProcedure, std::string(300, 'x'), tooLong},
        {kProcedure, "a\r\nb", notOneLine},
        {kProcedure, "a\u0085b", notOneLine},
        {kClass, "a\u2028b", notOneLine},
        {kApplication, "APP3",
         "Cannot rename: A application with the name you specified already exists. Specify a "
         "different application name."},
        {kClass, "class3",
         "Cannot rename: A class with the name you specified already exists in this application. "
         "Specify a different class name."},
        {kProcedure, "paint",
         "Cannot rename: A procedure with the name you specified already exists in this class. "
         "Specify a different procedure name."},
    };
    const Rows before = Everything();
    for (const auto& [node, name, message] : cases) {
        EXPECT_FALSE(RenameNode(db_, node, name));
        ExpectRefusal(message, before);
    }
    EXPECT_TRUE(RenameNode(db_, kProcedure, "DRAW"));
    EXPECT_TRUE(RenameNode(db_, kProcedure, std::string(255, 'x')));
}

}  // namespace
}  // namespace snippetarium::test
