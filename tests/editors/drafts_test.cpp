#include "editors/drafts.h"

#include <gtest/gtest.h>

#include "editors/application_editor.h"
#include "editors/class_editor.h"
#include "editors/code_editor.h"
#include "store/deletion.h"
#include "store/restore.h"
#include "tests/editors/editors_fixture.h"
#include "tests/killed_child.h"

namespace snippetarium::test {
namespace {

/// A text with all that a statement or a list of lines could trip over.
constexpr std::string_view kOddText = "it's \"Dr\u00e4w\";\t--\r\n\r\n  /* %x [a] ? */\r\n";

class DraftsTest : public EditorsFixture {
  protected:
    /// What a window does some seconds after the last keystroke.
    std::int32_t Keep(RecordEditor& editor) {
        EXPECT_TRUE(SaveDraft(db_, editor));
        return editor.DraftID();
    }
    std::unique_ptr<CodeEditor> OpenDraw() { return OpenCodeEditor(db_, noise_, 1); }
    /// The one draft that is left, taken up again.
    template <typename Editor>
    std::unique_ptr<Editor> TakeUp() {
        const std::vector<Draft> left = DraftsLeft(db_);
        if (left.size() != 1) ADD_FAILURE() << left.size() << " drafts";
        if (left.empty()) return nullptr;
        auto* editor = dynamic_cast<Editor*>(OpenDraft(db_, noise_, left[0].draftID).release());
        EXPECT_TRUE(editor);
        return std::unique_ptr<Editor>(editor);
    }

    NoiseWords noise_;
};

TEST_F(DraftsTest, BringBackWhatEachEditorHeld) {
    const auto fill = [](RecordEditor& editor) {
        editor.Details() = {.authors = {{"Ann", "", "Lee"}, {"", "", "Ray"}},
                            .dates = {"3/14/2001", "not yet a d"},
                            .keywords = {std::string(kOddText), 4}};
    };
    const auto check = [&]<typename Editor>(Editor& editor, std::string_view title) {
        fill(editor);
        Keep(editor);
        EXPECT_EQ(DraftTitle(DraftsLeft(db_).at(0)).substr(0, title.size()), title);
        const std::unique_ptr<Editor> back = TakeUp<Editor>();
        ASSERT_TRUE(back);
        EXPECT_EQ(back->Record(), editor.Record());
        EXPECT_EQ(back->Details(), editor.Details());
        EXPECT_EQ(back->Key(), editor.Key());
        EXPECT_TRUE(back->IsChanged());
        DropDraft(db_, *back);
        EXPECT_TRUE(DraftsLeft(db_).empty());
    };
    const std::string text(kOddText);
    const auto newApplication = NewApplicationEditor(db_, noise_);
    newApplication->Record() = {.path = "C:\\x", .version = "v'1", .comment = text};
    check(*newApplication, "New application without a name, edited 20");
    const auto application = OpenApplicationEditor(db_, noise_, 2);
    application->Record().comment = text;
    check(*application, "Application 'App2', edited 20");
    const auto newClass = NewClassEditor(db_, noise_, 2);
    newClass->Record() = {.name = "it's", .appID = 2, .languageID = 4, .declarations = text};
    check(*newClass, "New class 'it's', edited 20");
    const auto aClass = OpenClassEditor(db_, noise_, 2);
    aClass->Record() = {2, "Class2", 1, 7, "sub\\x.js", text, text};
    check(*aClass, "Class 'Class2', edited 20");
    const auto newCode = NewCodeEditor(db_, noise_, 3);
    newCode->Record().code = text;
    check(*newCode, "New procedure without a name, edited 20");
    const auto code = OpenDraw();
    code->Record() = {1, "Paint", 3, 2, text, text};
    check(*code, "Procedure 'Paint', edited 20");
}

TEST_F(DraftsTest, SurviveACrashAndTheRecoveryOfADamagedFile) {
    db_.Close();
    RunUntilItDies([&] {
        db_.Open();
        const auto editor = OpenDraw();
        for (const char letter : std::string_view("abc")) {
            editor->Record().code += letter;
            Keep(*editor);
        }
        DieHere();
    });
    const SalvageResult result = SalvageCatalogue(host_.host, folder_.Path());
    EXPECT_TRUE(result.report.IsComplete());
    OpenCatalogue(db_);
    EXPECT_EQ(TakeUp<CodeEditor>()->Record().code, "Sub Draw()\r\nEnd Subabc");
}

TEST_F(DraftsTest, AreReplacedWholeOrNotAtAll) {
    const auto editor = OpenDraw();
    editor->Record().code = "first";
    Keep(*editor);
    editor->Record().code = "second";
    RefuseInsertsInto("tblDraftText");
    EXPECT_FALSE(SaveDraft(db_, *editor));
    TakeBox();
    EXPECT_EQ(TakeUp<CodeEditor>()->Record().code, "first");
    db_.GetConnection().RunScript("DROP TRIGGER refusetblDraftText");
    Keep(*editor);
    EXPECT_EQ(TakeUp<CodeEditor>()->Record().code, "second");
    EXPECT_EQ(Select("SELECT count(*) AS n FROM tblDraftText WHERE field = 'code'"), (Rows{"1"}));
}

TEST_F(DraftsTest, AreListedNewestFirstWithoutThoseOfOpenEditors) {
    const auto draw = OpenDraw();
    draw->Record().code = "mine";
    const auto first = Keep(*draw);
    host_.clock.Advance(std::chrono::minutes{1});
    const auto fresh = NewCodeEditor(db_, noise_, 2);
    fresh->Record().name = "Fresh";
    const auto second = Keep(*fresh);
    const auto ids = [&](std::vector<std::int32_t> open) {
        std::vector<std::int32_t> left;
        for (const Draft& draft : DraftsLeft(db_, open))
            left.push_back(draft.draftID);
        return left;
    };
    EXPECT_EQ(ids({}), (std::vector{second, first}));
    EXPECT_EQ(ids({second}), (std::vector{first}));
    EXPECT_EQ(ids({second, first}), std::vector<std::int32_t>{});
}

TEST_F(DraftsTest, AreKeptOnlyOfWhatIsChanged) {
    const auto editor = OpenDraw();
    EXPECT_EQ(Keep(*editor), 0);
    editor->Record().code = "mine";
    EXPECT_NE(Keep(*editor), 0);
    editor->Record().code = "Sub Draw()\r\nEnd Sub";
    EXPECT_EQ(Keep(*editor), 0);
    EXPECT_TRUE(DraftsLeft(db_).empty());
    EXPECT_EQ(Select("SELECT field FROM tblDraftText"), Rows{});
    DropDraft(db_, *editor);
    EXPECT_FALSE(OpenDraft(db_, noise_, 77));
}

TEST_F(DraftsTest, LeaveAloneWhatOthersStoredSinceAndAskAboutTheRest) {
    const auto editor = OpenDraw();
    editor->Record().code = "mine";
    Keep(*editor);
    db_.GetConnection().RunScript("UPDATE tblCode SET codeName = 'Renamed'");
    auto back = TakeUp<CodeEditor>();
    EXPECT_EQ(back->Record().name, "Renamed") << "the draft did not change it";
    EXPECT_EQ(back->Record().code, "mine");

    db_.GetConnection().RunScript("UPDATE tblCode SET code = 'theirs'");
    back = TakeUp<CodeEditor>();
    host_.messages.Expect(StandardAnswer::Cancel);
    EXPECT_EQ(back->Save().result, SaveResult::NotSaved);
    EXPECT_NE(TakeBox().text.find("(its code)"), std::string::npos);
}

TEST_F(DraftsTest, OfADeletedRecordCanBeStoredAsANewOne) {
    const auto editor = OpenDraw();
    editor->Record().comment = "'*mine";
    editor->Details().keywords.text = "draw";
    Keep(*editor);
    DeleteCode(db_, 1);
    host_.messages.shown.clear();
    const std::vector<Draft> left = DraftsLeft(db_);
    EXPECT_FALSE(left.at(0).isOwnerThere);
    EXPECT_EQ(DraftTitle(left[0]).substr(0, 32), "Procedure 'Draw', deleted since,");

    const auto back = TakeUp<CodeEditor>();
    host_.messages.Expect(StandardAnswer::Yes);
    EXPECT_EQ(back->Save().result, SaveResult::Saved);
    host_.messages.shown.clear();
    EXPECT_EQ(Select("SELECT codeName, code, codeComment, classID FROM tblCode"),
              (Rows{"Draw|Sub Draw()\r\nEnd Sub|'*mine|2"}));
    EXPECT_EQ(LoadOwnerDetails(db_, {OwnerKind::Procedure, back->ID()}).keywords->entry.text,
              "draw");
    EXPECT_NE(back->DraftID(), 0) << "the window drops it";
}

TEST_F(DraftsTest, BelongToTheProgramThatMayWrite) {
    auto editor = OpenDraw();
    editor->Record().code = "mine";
    Keep(*editor);
    db_.Close();
    db_.SetMode(AccessMode::Read);
    OpenCatalogue(db_);
    EXPECT_TRUE(DraftsLeft(db_).empty());
    editor = OpenDraw();
    editor->Record().code = "mine too";
    EXPECT_EQ(Keep(*editor), 0);
}

}  // namespace
}  // namespace snippetarium::test
