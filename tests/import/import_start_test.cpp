#include "import/import_start.h"

#include <gtest/gtest.h>

#include "store/reads_applications.h"
#include "store/writes_applications.h"
#include "support/message_boxes.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

/// What follows from an answer to the question about an application that is there.
struct AnswerCase {
    StandardAnswer answer;
    bool mayStart;
    OverwriteChoice choice;
};

// clang-format off
constexpr AnswerCase kAnswers[] = {
    {StandardAnswer::Yes,    true,  OverwriteChoice::Yes},
    {StandardAnswer::No,     true,  OverwriteChoice::No},
    {StandardAnswer::Cancel, false, OverwriteChoice::None},
};
// clang-format on

class ImportStartTest : public WriteFixture {
  protected:
    ImportStart Start(std::size_t fileCount = 1) {
        return StartImport(db_, state_, texts_, fileCount);
    }
    void ExpectRefused(ImportControl focus, std::string_view message) {
        const ImportStart start = Start(0 == message.find("Please select") ? 0 : 1);
        EXPECT_FALSE(start.mayStart);
        EXPECT_EQ(start.focus, focus);
        EXPECT_EQ(TakeBox(), (ShownBox{BoxKind::Information, "Snippetarium Information",
                                       std::string(message)}));
        EXPECT_TRUE(host_.messages.shown.empty());
    }

    ImportState state_;
    ImportTexts texts_;
};

TEST_F(ImportStartTest, ChecksOneThingAfterTheOther) {
    texts_.applicationPath = "  ";
    texts_.language = " ";
    ExpectRefused(ImportControl::SelectedFiles, "Please select file(s) that you wish to import.");
    ExpectRefused(ImportControl::ApplicationPath, "Please specify an application path.");
    texts_.applicationPath = "/home/ann/Paint";
    ExpectRefused(ImportControl::Language,
                  "Please specify the programming language for your application.");
    texts_.language = "C";
    texts_.application = "   ";
    host_.messages.Expect(StandardAnswer::Yes);
    const ImportStart start = Start();
    EXPECT_FALSE(start.mayStart);
    EXPECT_EQ(start.focus, ImportControl::Application);
    EXPECT_EQ(TakeBox(),
              (ShownBox{BoxKind::YesNo, "Snippetarium Question",
                        "Please specify an application name.\r\n\r\n"
                        "If you do not supply an application name, all the classes/code imported "
                        "will be listed under the category: Application Undefined.\r\n\r\n"
                        "Would you like to supply an application name?"}));
    EXPECT_EQ(Select("SELECT count(appID) FROM tblApplication"), (Rows{"1"}));
}

TEST_F(ImportStartTest, WithoutANameGoesToTheUndefinedApplicationAndAsksNothingMore) {
    texts_ = {.application = "", .applicationPath = "/p", .language = "C"};
    state_.overwriteChoice = OverwriteChoice::Yes;
    host_.messages.Expect(StandardAnswer::No);
    const ImportStart start = Start();
    TakeBox();
    EXPECT_TRUE(start.mayStart);
    EXPECT_EQ(start.appID, 1);
    EXPECT_EQ(state_.overwriteChoice, OverwriteChoice::None);
}

TEST_F(ImportStartTest, WithoutANameTakesAnAnswerThatWasGiven) {
    texts_ = {.application = "", .applicationPath = "/p", .language = "C"};
    for (const AnswerCase& test : kAnswers) {
        const ImportStart start = StartImport(
            db_, state_, texts_, 1, {.supplyName = StandardAnswer::No, .overwrite = test.answer});
        EXPECT_EQ(start.mayStart, test.mayStart);
        EXPECT_EQ(start.appID, test.mayStart ? 1 : 0);
        EXPECT_EQ(state_.overwriteChoice, test.choice);
    }
    EXPECT_TRUE(host_.messages.shown.empty());
}

TEST_F(ImportStartTest, AddsAnApplicationThatIsNewWithItsPathInTheCataloguesForm) {
    texts_ = {.application = "Ann's", .applicationPath = "/home/ann/Paint", .language = "C"};
    const ImportStart start = Start();
    EXPECT_TRUE(start.mayStart);
    EXPECT_EQ(start.appID, 2);
    EXPECT_EQ(state_.overwriteChoice, OverwriteChoice::None);
    EXPECT_EQ(Select("SELECT appName, appPath FROM tblApplication WHERE appID = 2"),
              (Rows{"Ann's|\\home\\ann\\Paint"}));
}

TEST_F(ImportStartTest, AsksWhatIsToBecomeOfAnApplicationThatIsThere) {
    texts_ = {.application = "PAINT", .applicationPath = "/p", .language = "C"};
    const std::int32_t appID = AddApplication(db_, {.name = "Paint", .path = "\\p"});
    for (const AnswerCase& test : kAnswers) {
        host_.messages.Expect(test.answer);
        const ImportStart start = Start();
        const ShownBox box = TakeBox();
        EXPECT_EQ(box.kind, BoxKind::YesNoCancel);
        EXPECT_EQ(box.text,
                  "The application 'PAINT' exists in the database. If the classes you would like "
                  "to import now are also found in the database, would you like to overwrite the "
                  "old contents?\r\n\r\nClick Yes to overwrite the old contents, click No to "
                  "import new class contents only, click cancel to stop importing.");
        EXPECT_EQ(start.mayStart, test.mayStart);
        EXPECT_EQ(start.focus, ImportControl::None);
        EXPECT_EQ(start.appID, test.mayStart ? appID : 0);
        EXPECT_EQ(state_.overwriteChoice, test.choice);
    }
    EXPECT_EQ(Select("SELECT count(appID) FROM tblApplication"), (Rows{"2"}));
    EXPECT_EQ(state_.importErrorLog + state_.importedFilesLog, "");
}

TEST_F(ImportStartTest, DoesNotStartWhereTheApplicationCannotBeAdded) {
    RefuseInsertsInto("tblApplication");
    texts_ = {.application = "Paint", .applicationPath = "/p", .language = "C"};
    EXPECT_FALSE(Start().mayStart);
    ExpectFailedStatement();
}

}  // namespace
}  // namespace snippetarium::test
