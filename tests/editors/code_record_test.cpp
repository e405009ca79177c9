#include "editors/code_record.h"

#include <gtest/gtest.h>

#include "store/bookmarks.h"
#include "store/reads_languages.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

class CodeRecordTest : public EditorsFixture {
  protected:
    CodeRecord Draw() { return LoadCodeRecord(db_, 1).value(); }
};

constexpr std::string_view kTaken =
    "A procedure with the name you specified already exists in this class. Specify a different "
    "procedure name.";

TEST_F(CodeRecordTest, GetsItsClasssLanguageAndAMarkerWhenItIsAdded) {
    EXPECT_EQ(SaveCodeRecord(db_, {.name = "add(int)", .classID = 3, .code = "void add(int) {}"}),
              2);
    EXPECT_EQ(LanguageIDByCodeID(db_, 2), 2);
    EXPECT_EQ(TextOfClass(3), "/***Procedure add(int)***/");
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n'***Procedure Draw***\r\n");

    EXPECT_EQ(SaveCodeRecord(db_, {.name = "Stray", .languageID = 7, .code = "x"}), 3);
    EXPECT_EQ(LanguageIDByCodeID(db_, 3), 7);
    EXPECT_EQ(LoadCodeRecord(db_, 3)->classID, 1);
    EXPECT_EQ(TextOfClass(1), "");
}

TEST_F(CodeRecordTest, TakesItsMarkerAlongToAnotherNameAndAnotherClass) {
    CodeRecord record = Draw();
    record.name = "Paint";
    EXPECT_TRUE(CheckCodeRecord(db_, record));
    EXPECT_EQ(SaveCodeRecord(db_, record), 1);
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n'***Procedure Paint***\r\n");

    record = Draw();
    record.name = "paint";
    record.classID = 3;
    record.languageID = 2;
    EXPECT_TRUE(CheckCodeRecord(db_, record));
    EXPECT_EQ(SaveCodeRecord(db_, record), 1);
    EXPECT_EQ(TextOfClass(2), "Option Explicit\r\n");
    EXPECT_EQ(TextOfClass(3), "/***Procedure paint***/");
    EXPECT_EQ(LanguageIDByCodeID(db_, 1), 2);
}

TEST_F(CodeRecordTest, KeepsWhateverTheEditorDoesNotShow) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblKeyword VALUES (1, 'draw', 2); UPDATE tblCode SET keywordID = 1;"
        "INSERT INTO tbl_Author_Link VALUES (1, 1, 3); INSERT INTO tbl_date_link VALUES (1, 1, "
        "3);");
    AddBookmark(db_, "a2f2c1");
    CodeRecord record = Draw();
    record.code = "Sub Draw(x)\r\nEnd Sub";
    EXPECT_EQ(SaveCodeRecord(db_, record), 1);
    EXPECT_EQ(Select("SELECT keywordID, ownerID FROM tblCode, tbl_Author_Link"), (Rows{"1|1"}));
    EXPECT_EQ(Select("SELECT ownerID FROM tbl_date_link"), (Rows{"1"}));
    EXPECT_EQ(Select("SELECT codeID FROM tblFavorite"), (Rows{"1"}));
}

TEST_F(CodeRecordTest, HasItsCommentFramedForItsClassAndOnlyWhenItChanged) {
    const std::string stars(70, '*');
    CodeRecord record = Draw();
    record.comment = "Draws.";
    SaveCodeRecord(db_, record);
    EXPECT_EQ(Draw().comment, "'" + stars + "\r\n'Draws.\r\n'" + stars);

    db_.GetConnection().RunScript("UPDATE tblCode SET codeComment = 'as imported // so'");
    record = Draw();
    record.code = "new";
    SaveCodeRecord(db_, record);
    EXPECT_EQ(Draw().comment, "as imported // so");

    record = Draw();
    record.classID = 3;
    record.comment = "Moved.";
    SaveCodeRecord(db_, record);
    EXPECT_EQ(Draw().comment, "/" + stars + "\r\n*Moved.\r\n" + stars + "/\r\n");
}

TEST_F(CodeRecordTest, DropsWhatAnImportCutOffOnceItsTextIsAnother) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblOverlong VALUES (1, 3, 'code', 'rest'), (1, 3, 'codeComment', 'rest'), "
        "(1, 2, 'code', 'of another')");
    CodeRecord record = Draw();
    record.name = "Paint";
    SaveCodeRecord(db_, record);
    EXPECT_EQ(Select("SELECT ownerTableID, part FROM tblOverlong ORDER BY 1, 2"),
              (Rows{"2|code", "3|code", "3|codeComment"}));
    record.code += " ";
    SaveCodeRecord(db_, record);
    EXPECT_EQ(Select("SELECT ownerTableID, part FROM tblOverlong ORDER BY 1, 2"),
              (Rows{"2|code", "3|codeComment"}));
}

TEST_F(CodeRecordTest, IsRefusedWhereItsNameOrATextCannotBeStored) {
    SaveCodeRecord(db_, {.name = "Paint", .classID = 2, .code = "x"});
    SaveCodeRecord(db_, {.name = "draw", .classID = 3, .code = "x"});
    const struct {
        CodeRecord record;
        std::string message;
    } cases[] = {
        {{.name = "DRAW", .classID = 2}, std::string(kTaken)},
        {{.codeID = 1, .name = "paint", .classID = 2}, "Cannot rename: " + std::string(kTaken)},
        {{.codeID = 1, .name = "Draw", .classID = 3}, std::string(kTaken)},
        {{.codeID = 1, .name = "  ", .classID = 2}, "Please enter a name."},
        {{.name = "two\r\nlines", .classID = 2},
         "A name cannot hold a line break, a tab or another control character."},
        {{.name = std::string(256, 'n'), .classID = 2},
         "The name you specified is too long (over 255 characters)."},
        {{.name = "Long", .classID = 2, .code = std::string(64'001, 'x')},
         "The code is too long: it has 64,001 characters, and 64,000 can be stored."},
        {{.name = "Long", .classID = 2, .comment = std::string(64'000, 'x')},
         "The comment is too long: it has 64,147 characters, and 64,000 can be stored."},
    };
    const Rows before = Everything();
    for (const auto& [record, message] : cases) {
        SCOPED_TRACE(message);
        EXPECT_FALSE(CheckCodeRecord(db_, record));
        ExpectRefusal(message, before);
    }
    // A character beyond ASCII is one character; a name in other letters is its own.
    std::string umlauts;
    for (int i = 0; i < 64'000; ++i)
        umlauts += "\u00fc";
    EXPECT_TRUE(CheckCodeRecord(db_, {.name = std::string(255, 'n'), .code = umlauts}));
    EXPECT_TRUE(CheckCodeRecord(db_, {.codeID = 1, .name = "DRAW", .classID = 2}));
}

TEST_F(CodeRecordTest, KeepsANameThatOnlyAnImportCouldGiveIt) {
    db_.GetConnection().RunScript("UPDATE tblCode SET codeName = 'f(int a,' || char(10) || ' b)'");
    EXPECT_TRUE(CheckCodeRecord(db_, Draw()));
}

}  // namespace
}  // namespace snippetarium::test
