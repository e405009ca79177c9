#include <QListWidget>
#include <QTimer>
#include <chrono>

#include "tests/fakes.h"
#include "tests/forms/editor_fixture.h"

namespace snippetarium::test {
namespace {

/// What becomes of work that is not stored.
using EditorClosingTest = EditorFixture;

TEST_F(EditorClosingTest, AsksBeforeItClosesWithWhatIsNotStored) {
    struct Kind {
        NodeIDs node;
        const char* stored;
    };
    const Kind kinds[] = {{kApplication, "SELECT appName FROM tblApplication WHERE appID = 2"},
                          {kClass, "SELECT className FROM tblClass WHERE classID = 2"},
                          {kProcedure, "SELECT codeName FROM tblCode WHERE codeID = 1"}};
    for (const Kind& kind : kinds) {
        const auto stored = [&] { return db_->GetConnection().Execute(kind.stored)[0U].Text(); };
        const std::string before = stored();
        EditorWindow* editor = &Open(kind.node);
        editor->close();
        RunEvents();
        EXPECT_TRUE(Editors().empty()) << "nothing was changed";

        editor = &Open(kind.node);
        SetLine(*editor, "txtName", "Other");
        modal_.ExpectBox(QMessageBox::Cancel);
        PressKey(*editor, Qt::Key_Escape);
        RunEvents();
        EXPECT_TRUE(editor->isVisible());
        modal_.ExpectBox(QMessageBox::No);
        Click(*editor, "cmdCancel");
        EXPECT_TRUE(Editors().empty());
        EXPECT_EQ(stored(), before);

        editor = &Open(kind.node);
        SetLine(*editor, "txtName", "Other");
        modal_.ExpectBox(QMessageBox::Yes);
        if (kind.node == kClass) ExpectNoKeywords();
        editor->close();
        RunEvents();
        EXPECT_TRUE(Editors().empty());
        EXPECT_EQ(stored(), "Other");
    }
}

TEST_F(EditorClosingTest, AsksWhatToDoWhereTheRecordWasChangedMeanwhile) {
    const std::pair<QMessageBox::StandardButton, std::string> answers[] = {
        {QMessageBox::Cancel, "theirs"}, {QMessageBox::Yes, "mine"}, {QMessageBox::No, "theirs"}};
    for (const auto& [answer, stored] : answers) {
        Execute("UPDATE tblCode SET code = 'loaded' WHERE codeID = 1");
        EditorWindow& editor = Open(kProcedure);
        SetText(editor, "txtCode", "mine");
        Execute("UPDATE tblCode SET code = 'theirs' WHERE codeID = 1");
        modal_.ExpectBox(answer);
        Click(editor, "cmdSave");
        EXPECT_EQ(CodeOf(1), stored);
        EXPECT_EQ(Text(editor, "txtCode").toStdString(),
                  answer == QMessageBox::No ? "theirs" : "mine");
        if (answer == QMessageBox::Cancel) modal_.ExpectBox(QMessageBox::No);
        editor.close();
        RunEvents();
    }
}

TEST_F(EditorClosingTest, StoresAnewWhatWasDeletedMeanwhile) {
    EditorWindow& editor = Open(kProcedure);
    SetText(editor, "txtCode", "mine");
    modal_.ExpectBox(QMessageBox::Yes);
    Trigger("mnuFileDelete");
    ASSERT_TRUE(CodeByID(*db_, 1).EndOfFile());
    modal_.ExpectBox(QMessageBox::No);
    Click(editor, "cmdOK");
    ASSERT_TRUE(editor.isVisible());
    modal_.ExpectBox(QMessageBox::Yes);
    Click(editor, "cmdSave");
    const NodeIDs node = Get<fContents>("fContents").Selection();
    EXPECT_EQ(CodeOf(node.codeID), "mine");
    EXPECT_NE(node.codeID, 1);
    EXPECT_EQ(editor.Editor().ID(), node.codeID);
}

TEST_F(EditorClosingTest, EndsWithTheProgramAndMayKeepItOpen) {
    EditorWindow& editor = Open(kProcedure);
    SetText(editor, "txtCode", "mine");
    modal_.ExpectBox(QMessageBox::Cancel);
    window_->close();
    EXPECT_TRUE(window_->isVisible());
    EXPECT_TRUE(editor.isVisible());
    modal_.ExpectBox(QMessageBox::Yes);
    window_->close();
    EXPECT_FALSE(window_->isVisible());
    RunEvents();
    EXPECT_TRUE(Editors().empty());
    StartProgram();
    EXPECT_EQ(CodeOf(1), "mine");
}

TEST_F(EditorClosingTest, KeepsADraftOnceNoJobIsInTheMiddleOfSomething) {
    EditorWindow& editor = Open(kProcedure);
    auto& timer = Find<QTimer>(editor, "tmDraft");
    timer.setInterval(1);
    SetText(editor, "txtCode", "unsaved");
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (std::chrono::steady_clock::now() < end)
        db_->GetHost().events.Yield();
    EXPECT_EQ(editor.Editor().DraftID(), 0);
    EXPECT_TRUE(timer.isActive());
    WaitUntil([&] { return editor.Editor().DraftID() != 0; });
}

TEST_F(EditorClosingTest, OffersAgainWhatACrashLeft) {
    const auto leaveDraft = [&](const char* text) {
        EditorWindow& editor = Open(kProcedure);
        Find<QTimer>(editor, "tmDraft").setInterval(1);
        SetText(editor, "txtCode", text);
        WaitUntil([&] { return editor.Editor().DraftID() != 0; });
        // No window is closed: the program just ends.
        window_.reset();
        CloseCatalogue(*db_);
        db_.reset();
    };
    leaveDraft("unsaved");
    modal_.Expect([](QWidget& dialog) {
        EXPECT_EQ(Find<QListWidget>(dialog, "lstDrafts").count(), 1);
        EXPECT_TRUE(Find<QListWidget>(dialog, "lstDrafts").item(0)->text().contains("Draw1"));
        Find<QPushButton>(dialog, "cmdOpen").click();
    });
    StartProgram();
    WaitUntil([] { return !Editors().empty(); });
    EditorWindow& editor = Editor();
    EXPECT_EQ(Text(editor, "txtCode"), "unsaved");
    EXPECT_TRUE(editor.isWindowModified());
    Click(editor, "cmdOK");
    EXPECT_EQ(CodeOf(1), "unsaved");
    EndProgram();
    // It is not offered twice. Another one is thrown away.
    StartProgram();
    leaveDraft("worthless");
    modal_.Expect([](QWidget& dialog) {
        // The question that follows comes up when this has ended.
        QTimer::singleShot(0, &Find<QPushButton>(dialog, "cmdThrowAway"), &QPushButton::click);
    });
    modal_.ExpectBox(QMessageBox::Yes);
    StartProgram();
    WaitUntil([&] { return modal_.LastText().find("Throw away") != std::string::npos; });
    EndProgram();
    StartProgram();
    EXPECT_EQ(CodeOf(1), "unsaved");
}

TEST_F(EditorClosingTest, OnlyShowsWhereTheCatalogueCanOnlyBeRead) {
    EndProgram();
    FakeHost otherHost;
    Database other(otherHost.host, CatalogueProviders(), folder_.Path());
    OpenCatalogue(other);
    modal_.ExpectBox(QMessageBox::Ok);
    StartProgram();
    for (const NodeIDs& node : {kApplication, kClass, kProcedure}) {
        EditorWindow& editor = Open(node);
        for (const auto* line : editor.findChildren<QLineEdit*>())
            EXPECT_TRUE(line->isReadOnly()) << line->objectName().toStdString();
        for (const auto* text : editor.findChildren<QPlainTextEdit*>())
            EXPECT_TRUE(text->isReadOnly()) << text->objectName().toStdString();
        for (const auto* button : editor.findChildren<QPushButton*>()) {
            const bool isHarmless =
                button->objectName() == "cmdCancel" || button->objectName() == "cmdHelp";
            EXPECT_EQ(button->isEnabled(), isHarmless) << button->objectName().toStdString();
        }
        editor.close();
        RunEvents();
    }
    EndProgram();
    CloseCatalogue(other);
}

}  // namespace
}  // namespace snippetarium::test
