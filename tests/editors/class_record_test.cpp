#include "editors/class_record.h"

#include <gtest/gtest.h>

#include "editors/application_record.h"
#include "tests/editors/editors_fixture.h"

namespace snippetarium::test {
namespace {

class ClassRecordTest : public EditorsFixture {
  protected:
    ClassRecord Class2() { return LoadClassRecord(db_, 2).value(); }
};

TEST_F(ClassRecordTest, WritesItsMarkersAnewForAnotherLanguage) {
    SaveCodeRecord(db_, {.name = "Paint", .classID = 2, .code = "x"});
    ClassRecord record = Class2();
    record.languageID = 4;
    EXPECT_TRUE(CheckClassRecord(db_, record));
    EXPECT_EQ(SaveClassRecord(db_, record), 2);
    EXPECT_EQ(TextOfClass(2),
              "Option Explicit\r\n/***Procedure Draw***/\r\n"
              "/***Procedure Paint***/\r\n");
    EXPECT_EQ(ProceduresWithoutMarker(db_, 2), std::vector<std::string>{});

    record = Class2();
    record.languageID = 9;
    record.declarations += "<!--**Procedure Draw**-->";
    SaveClassRecord(db_, record);
    EXPECT_EQ(TextOfClass(2),
              "Option Explicit\r\n<!--**Procedure Draw**-->\r\n"
              "<!--**Procedure Paint**-->\r\n<!--**Procedure Draw**-->");
}

TEST_F(ClassRecordTest, KeepsTheMarkersInWhatAnImportCutOffItsText) {
    db_.GetConnection().RunScript(
        "UPDATE tblClass SET classDI = 'Option Explicit' WHERE classID = 2;"
        "INSERT INTO tblOverlong VALUES (2, 2, 'classDI', char(13, 10) || '''***Procedure "
        "Draw***')");
    EXPECT_EQ(ProceduresWithoutMarker(db_, 2), std::vector<std::string>{});
    const Rows before = Everything();
    ClassRecord record = Class2();
    record.languageID = 4;
    EXPECT_FALSE(CheckClassRecord(db_, record));
    ExpectRefusal(
        "The text of this class was imported with more than 64,000 characters, so it "
        "cannot get a language with other procedure markers.",
        before);
    // Another language with the same markers, and a text that is new, are no harm.
    record.languageID = 3;
    EXPECT_TRUE(CheckClassRecord(db_, record));
    EXPECT_EQ(SaveClassRecord(db_, record), 2);
    EXPECT_EQ(Select("SELECT part FROM tblOverlong"), (Rows{"classDI"}));
    record.languageID = 4;
    record.declarations = "class Draw {};";
    EXPECT_TRUE(CheckClassRecord(db_, record));
}

TEST_F(ClassRecordTest, NamesTheProceduresThatItsTextLost) {
    ClassRecord record = Class2();
    record.declarations = "Option Explicit\r\n'***Procedure draw***";
    SaveClassRecord(db_, record);
    EXPECT_EQ(ProceduresWithoutMarker(db_, 2), std::vector<std::string>{"Draw"});
    SaveCodeRecord(db_, {.name = "Stray", .languageID = 1, .code = "x"});
    EXPECT_EQ(ProceduresWithoutMarker(db_, 1), std::vector<std::string>{});
}

TEST_F(ClassRecordTest, FramesOnlyACommentThatChanged) {
    db_.GetConnection().RunScript(
        "UPDATE tblClass SET classComment = 'imported' WHERE classID = 3");
    ClassRecord record = LoadClassRecord(db_, 3).value();
    record.pathInApp = "a.java";
    SaveClassRecord(db_, record);
    EXPECT_EQ(LoadClassRecord(db_, 3)->comment, "imported");
    record.comment = "mine";
    SaveClassRecord(db_, record);
    EXPECT_TRUE(LoadClassRecord(db_, 3)->comment.starts_with("/***")) << "framed";
    EXPECT_EQ(LoadClassRecord(db_, 3)->pathInApp, "a.java");
}

TEST_F(ClassRecordTest, IsANewOneWhereItMoves) {
    AddApplication(db_, {.name = "App3"});
    SaveClassRecord(db_, {.name = "class2", .appID = 3, .languageID = 1});
    const Rows before = Everything();
    ClassRecord record = Class2();
    record.appID = 3;
    EXPECT_FALSE(CheckClassRecord(db_, record));
    ExpectRefusal(
        "A class with the name you specified already exists in this application. "
        "Specify a different class name.",
        before);
    record.name = "Class4";
    EXPECT_TRUE(CheckClassRecord(db_, record));
    EXPECT_EQ(SaveClassRecord(db_, record), 2);
    EXPECT_EQ(Class2().appID, 3);
}

TEST_F(ClassRecordTest, MayShareItsNameOnlyAsAnImportLeftIt) {
    db_.GetConnection().RunScript("UPDATE tblClass SET className = 'Class2' WHERE classID = 3");
    ClassRecord record = LoadClassRecord(db_, 3).value();
    record.comment = "changed";
    EXPECT_TRUE(CheckClassRecord(db_, record));
    const Rows before = Everything();
    EXPECT_FALSE(CheckClassRecord(db_, {.name = "Class2", .appID = 2, .languageID = 1}));
    ExpectRefusal(
        "A class with the name you specified already exists in this application. "
        "Specify a different class name.",
        before);
}

TEST_F(ClassRecordTest, OfTheCatalogueItselfStaysAsItIs) {
    const Rows before = Everything();
    EXPECT_FALSE(CheckClassRecord(db_, LoadClassRecord(db_, 1).value()));
    ExpectRefusal("You cannot view or edit this class.", before);
    EXPECT_FALSE(CheckApplicationRecord(db_, LoadApplicationRecord(db_, 1).value()));
    ExpectRefusal("You cannot view or edit this application.", before);
    EXPECT_EQ(LoadClassRecord(db_, 9), std::nullopt);
    EXPECT_EQ(SaveClassRecord(db_, {.classID = 9, .name = "gone"}), 0);
    EXPECT_EQ(Everything(), before);
}

TEST_F(ClassRecordTest, AndApplicationsHaveTextsThatFit) {
    const std::string tooLong(64'001, 'x');
    const Rows before = Everything();
    EXPECT_FALSE(CheckClassRecord(db_, {.name = "New", .languageID = 1, .declarations = tooLong}));
    ExpectRefusal("The text is too long: it has 64,001 characters, and 64,000 can be stored.",
                  before);
    EXPECT_FALSE(CheckApplicationRecord(db_, {.name = "New", .comment = tooLong}));
    ExpectRefusal("The comment is too long: it has 64,001 characters, and 64,000 can be stored.",
                  before);
    EXPECT_FALSE(CheckApplicationRecord(db_, {.name = "app2"}));
    ExpectRefusal(
        "A application with the name you specified already exists. Specify a different "
        "application name.",
        before);
}

TEST_F(ClassRecordTest, AndApplicationsForgetWhatAnImportCutOffATextThatIsAnother) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblOverlong VALUES (2, 1, 'appComment', 'rest'), (2, 2, 'classDI', 'rest')");
    ApplicationRecord application = LoadApplicationRecord(db_, 2).value();
    application.version = "2";
    SaveApplicationRecord(db_, application);
    EXPECT_EQ(Select("SELECT part FROM tblOverlong"), (Rows{"appComment", "classDI"}));
    application.comment = "new";
    SaveApplicationRecord(db_, application);
    ClassRecord record = Class2();
    record.declarations += "' more";
    SaveClassRecord(db_, record);
    EXPECT_EQ(Select("SELECT part FROM tblOverlong"), Rows{});
    EXPECT_EQ(LoadApplicationRecord(db_, 2)->version, "2");
}

}  // namespace
}  // namespace snippetarium::test
