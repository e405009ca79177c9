#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include "forms/fPage.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

/// With a page that has letters of more than one byte before everything that is looked for.
class ReadingWindowsTest : public DesktopFixture {
  protected:
    void SetUp() override {
        StartProgram();
        db_->GetConnection().RunScript(
            "UPDATE tblCode SET code = 'ä 𝄞 Grid' || char(13, 10) || 'grid GridView' || char(13, "
            "10) || "
            "'end grid' WHERE codeName = 'Loose';");
        const int id = static_cast<int>(
            db_->GetConnection()
                .Execute("SELECT codeID FROM tblCode WHERE codeName = 'Loose'")["codeID"]
                .Long());
        page_ = {.appID = 1, .classID = 1, .codeID = id};
        Get<fPage>("fPage").ShowPage(page_);
        RunEvents();
    }

    void Trigger(const char* item) {
        emit Get<QMenu>("mnuEdit").aboutToShow();
        Get<QAction>(item).trigger();
        RunEvents();
    }

    void PressFindNext() { PressKey(Get<QLineEdit>("txtFind"), Qt::Key_Return); }

    /// Where the selection begins: line and column from 0, and what it is.
    static std::string Selected(const QPlainTextEdit& text) {
        QTextCursor cursor = text.textCursor();
        const std::string what = cursor.selectedText().toStdString();
        cursor.setPosition(cursor.selectionStart());
        return std::to_string(cursor.blockNumber()) + ":" +
               std::to_string(cursor.positionInBlock()) + " " + what;
    }

    NodeIDs page_;
};

TEST_F(ReadingWindowsTest, FindsNextByCaseAndWordAndGoesOnAtTheBeginningWithANotice) {
    auto& text = Get<fPage>("fPage").Text();
    Trigger("mnuEditDisplayFind");
    auto& dialog = Get<QDialog>("fFind");
    EXPECT_FALSE(dialog.isModal());
    EXPECT_FALSE(Get<QPushButton>("cmdFindNext").isEnabled());
    struct Options {
        bool matchCase;
        bool wholeWord;
        std::vector<std::string> selections;
    };
    const Options all[] = {
        {false, false, {"0:5 Grid", "1:0 grid", "1:5 Grid", "2:4 grid", "0:5 Grid"}},
        {true, false, {"1:0 grid", "2:4 grid", "1:0 grid"}},
        {false, true, {"0:5 Grid", "1:0 grid", "2:4 grid", "0:5 Grid"}},
        {true, true, {"1:0 grid", "2:4 grid", "1:0 grid"}},
    };
    for (const Options& options : all) {
        text.moveCursor(QTextCursor::Start);
        Get<QCheckBox>("chckCase").setChecked(options.matchCase);
        Get<QCheckBox>("chckWord").setChecked(options.wholeWord);
        const char* const sought = options.matchCase ? "grid" : "GRID";
        Get<QLineEdit>("txtFind").setText(sought);
        for (const std::string& selection : options.selections) {
            EXPECT_EQ(Get<QLabel>("lblNotice").text().contains("beginning"), false);
            PressFindNext();
            EXPECT_EQ(Selected(text), selection)
                << sought << options.matchCase << options.wholeWord;
        }
        EXPECT_TRUE(Get<QLabel>("lblNotice").text().contains("beginning"));
        EXPECT_EQ(static_cast<std::size_t>(text.extraSelections().size()),
                  options.selections.size() - 1);
    }
    PressKey(dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(text.extraSelections().isEmpty());
    Trigger("mnuEditHideFind");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(Get<QLineEdit>("txtFind").text(), "grid");
}

TEST_F(ReadingWindowsTest, SaysSoWhereNothingIsFoundAndLeavesTheSelection) {
    auto& text = Get<fPage>("fPage").Text();
    text.selectAll();
    Trigger("mnuEditDisplayFind");
    Get<QLineEdit>("txtFind").setText("grids");
    modal_.ExpectBox(QMessageBox::Ok);
    PressFindNext();
    EXPECT_EQ(modal_.LastText(), "Search string not found.");
    EXPECT_EQ(modal_.titles.back(), "Snippetarium Information");
    EXPECT_EQ(text.textCursor().selectedText().size(), text.toPlainText().size());
    PressKey(Get<QLineEdit>("txtFind"), Qt::Key_F1);
    EXPECT_TRUE(qtHost_.Help().IsVisible());
}

TEST_F(ReadingWindowsTest, ShowsThePageLargeInAWindowThatKeepsItAndIsSearchedToo) {
    Trigger("actZoomWindow");
    auto& zoom = Get<QWidget>("fZoom");
    auto& text = Get<QPlainTextEdit>("txtZoom");
    ASSERT_TRUE(zoom.isVisible() && zoom.isWindow());
    EXPECT_EQ(text.toPlainText(), Get<fPage>("fPage").Text().toPlainText());
    EXPECT_GT(text.font().pointSizeF(), Get<fPage>("fPage").Text().font().pointSizeF() * 1.5);
    Get<fPage>("fPage").ShowPage({});
    EXPECT_TRUE(text.toPlainText().contains("GridView"));

    emit text.customContextMenuRequested({});
    auto& menu = Get<QMenu>("mnuZoomHide");
    EXPECT_TRUE(menu.isVisible());
    menu.hide();
    EXPECT_FALSE(Get<QAction>("mnuZoomHideCopy").isEnabled());
    Trigger("mnuZoomHideSelect");
    Trigger("mnuZoomHideCopy");
    EXPECT_EQ(QApplication::clipboard()->text(), text.toPlainText());

    text.moveCursor(QTextCursor::Start);
    Trigger("mnuZoomHideFind");
    Get<QLineEdit>("txtFind").setText("gridview");
    PressFindNext();
    EXPECT_EQ(Selected(text), "1:5 GridView");
    EXPECT_TRUE(Get<fPage>("fPage").Text().extraSelections().isEmpty());
    zoom.close();
    EXPECT_FALSE(Get<QDialog>("fFind").isVisible());
    // The program ends with all its windows.
    Trigger("mnuZoomHideFind");
    window_->close();
    EXPECT_FALSE(zoom.isVisible() || Get<QDialog>("fFind").isVisible());
}

}  // namespace
}  // namespace snippetarium::test
