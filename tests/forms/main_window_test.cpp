#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QToolBar>
#include <QTreeView>

#include "forms/desktop_layout.h"
#include "forms/fPage.h"
#include "forms/theme.h"
#include "store/deletion.h"
#include "store/reads_other.h"
#include "store/settings.h"
#include "tests/fakes.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

class MainWindowTest : public DesktopFixture {
  protected:
    QAction& Item(const char* name) { return Get<QAction>(name); }
    QTreeView& Tree() { return Get<QTreeView>("trVwClass"); }
    QString PageText() { return Get<QPlainTextEdit>("txtPage").toPlainText(); }

    /// Opens the first class of "Paint 0" and selects its first procedure.
    void SelectFirstProcedure() {
        const QAbstractItemModel& model = *Tree().model();
        const QModelIndex app = model.index(1, 0);
        Tree().expand(app);
        const QModelIndex cls = model.index(0, 0, app);
        Tree().expand(cls);
        Tree().setCurrentIndex(model.index(0, 0, cls));
    }
};

TEST_F(MainWindowTest, ShowsWhatIsSelectedWithItsPlaceAndCounts) {
    StartProgram();
    EXPECT_EQ(window_->windowTitle(), "Snippetarium");
    EXPECT_TRUE(Get<QTabWidget>("tabLeft").isVisible());
    EXPECT_FALSE(Get<QTabWidget>("tabRight").isVisible());
    SelectFirstProcedure();
    EXPECT_TRUE(PageText().contains("Sub Draw")) << PageText().toStdString();
    const auto& heading = Get<QLabel>("lblHeading");
    EXPECT_TRUE(heading.text().contains("Draw"));
    for (const int width : {420, 1100}) {
        window_->resize(width, 600);
        RunEvents();
        EXPECT_EQ(heading.height(), heading.heightForWidth(heading.width())) << width;
    }
    EXPECT_EQ(Get<QLabel>("lblStatusNode").toolTip().toStdString(), "Paint 0 > Grid0 > Draw1");
    const QModelIndex above = Tree().currentIndex().parent();
    ClickAt(*Tree().viewport(), Tree().visualRect(above).center());
    EXPECT_EQ(Tree().currentIndex(), above);
    EXPECT_EQ(Get<QLabel>("lblStatusNode").toolTip().toStdString(), "Paint 0 > Grid0");
    EXPECT_TRUE(heading.text().contains("Grid0")) << "a click of the mouse shows the page";
    WaitUntil([&] { return !Get<QLabel>("lblStatusCounts").text().isEmpty(); });
    EXPECT_TRUE(Get<QLabel>("lblStatusCounts").text().contains("1,001 procedures"));
}

TEST_F(MainWindowTest, ColoursTheWordsOfASourceOnLightAndOnDark) {
    StartProgram();
    SelectFirstProcedure();
    const QAbstractItemModel& model = *Tree().model();
    const QModelIndex cls = Tree().currentIndex().parent();
    for (int row = 0; row < model.rowCount(cls); ++row) {
        const QModelIndex node = model.index(row, 0, cls);
        if (node.data() == "Draw11") Tree().setCurrentIndex(node);
    }
    ASSERT_TRUE(PageText().contains("Sub Draw11")) << PageText().toStdString();
    auto& text = Get<QPlainTextEdit>("txtPage");
    const auto colourOfSub = [&] {
        const QTextBlock block = text.document()->find("Sub Draw11").block();
        for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
            if (block.text().mid(range.start, range.length) == "Sub")
                return range.format.foreground().color();
        }
        return QColor();
    };
    WaitUntil([&] { return colourOfSub().isValid(); });
    Get<fPage>("fPage").MarkWords({"Draw11"});
    const auto colourOfMark = [&] {
        return text.extraSelections().front().format.background().color();
    };
    const QColor onLight = colourOfSub();
    const QColor markOnLight = colourOfMark();
    ApplyTheme(Theme::Dark);
    RunEvents();
    EXPECT_GT(colourOfSub().lightness(), onLight.lightness());
    EXPECT_LT(colourOfMark().lightness(), markOnLight.lightness());
    ApplyTheme(Theme::Desktop);
}

TEST_F(MainWindowTest, FollowsTheLinksOfAPageByMouseAndByKeyboard) {
    StartProgram();
    SelectFirstProcedure();
    const QModelIndex cls = Tree().currentIndex().parent();
    const auto showApplication = [&] { Tree().setCurrentIndex(cls.parent()); };
    const QString className = cls.data().toString();
    auto& text = Get<QPlainTextEdit>("txtPage");

    showApplication();
    const QTextCursor name = text.document()->find(className);
    ASSERT_FALSE(name.isNull()) << PageText().toStdString();
    QTextCursor begin = name;
    begin.setPosition(name.selectionStart());
    const QRect place = text.cursorRect(begin).united(text.cursorRect(name));
    const auto formats = name.block().layout()->formats();
    ASSERT_FALSE(formats.isEmpty());
    EXPECT_TRUE(formats.back().format.fontUnderline()) << "it looks like a link";
    QTextCursor end(text.document());
    end.movePosition(QTextCursor::End);
    const QPoint below = text.cursorRect(end).bottomLeft() + QPoint(2, 40);
    for (const QPoint& beside : {place.topRight() + QPoint(400, 3), below}) {
        ClickAt(*text.viewport(), beside);
        EXPECT_EQ(Tree().currentIndex(), cls.parent()) << "there is no link";
    }
    ClickAt(*text.viewport(), place.center());
    EXPECT_EQ(Tree().currentIndex(), cls);

    showApplication();
    text.setFocus();
    PressKey(text, Qt::Key_Home, Qt::ControlModifier);
    PressKey(text, Qt::Key_Tab);
    EXPECT_EQ(text.textCursor().selectedText(), className);
    PressKey(text, Qt::Key_Return);
    EXPECT_EQ(Tree().currentIndex(), cls);
    // Without looking for the link with Tab, a line leads where its only link does.
    showApplication();
    text.setFocus();
    text.setTextCursor(text.document()->find(className));
    PressKey(text, Qt::Key_Home);
    PressKey(text, Qt::Key_Return);
    EXPECT_EQ(Tree().currentIndex(), cls);
    // Behind the last link and before the first one the keys leave the text, as ever.
    showApplication();
    text.setFocus();
    text.moveCursor(QTextCursor::End);
    PressKey(text, Qt::Key_Tab);
    EXPECT_FALSE(text.hasFocus());
}

TEST_F(MainWindowTest, GoesBackAndForwardThroughWhatWasShown) {
    StartProgram();
    auto& heading = Get<QLabel>("lblHeading");
    Tree().setCurrentIndex(Tree().model()->index(1, 0));
    const int height = heading.height();
    SelectFirstProcedure();
    const QString procedure = PageText();
    EXPECT_GT(heading.height(), height);
    Tree().setCurrentIndex(Tree().model()->index(1, 0));
    EXPECT_EQ(heading.height(), height) << "a short heading leaves the room to the text";
    EXPECT_TRUE(Item("actBack").isEnabled());
    EXPECT_FALSE(Item("actForward").isEnabled());
    Item("actBack").trigger();
    EXPECT_EQ(PageText(), procedure);
    Item("actBack").trigger();
    EXPECT_NE(PageText(), procedure);
    Item("actForward").trigger();
    EXPECT_EQ(PageText(), procedure);
}

TEST_F(MainWindowTest, ComesBackAsItWasLeft) {
    StartProgram();
    window_->setGeometry(60, 40, 700, 500);
    RunEvents();
    auto& dock = Get<QSplitter>("paneDock");
    dock.setSizes({222, 400, 0});
    emit dock.splitterMoved(222, 1);
    Item("mnuEditDisplayWrap").trigger();
    const int width = Get<QTabWidget>("tabLeft").width();
    const QPoint place = window_->pos();
    EndProgram();
    StartProgram();
    EXPECT_EQ(window_->size(), QSize(700, 500));
    EXPECT_EQ(window_->pos(), place);
    EXPECT_EQ(Get<QTabWidget>("tabLeft").width(), width);
    EXPECT_TRUE(Item("mnuEditHideWrap").isChecked());
    EXPECT_EQ(Get<QPlainTextEdit>("txtPage").lineWrapMode(), QPlainTextEdit::WidgetWidth);
    // The row has twips, 15 to a pixel.
    const Recordset row = WindowSizeRS(*db_);
    EXPECT_EQ(row["tWidth"].Long(), 700 * 15);
    EXPECT_EQ(row["leftChildWidth"].Long(), width * 15);
}

TEST_F(MainWindowTest, BringsAWindowFromAScreenThatIsGoneOntoOne) {
    const QRect screen(0, 0, 1000, 800);
    EXPECT_EQ(FitOnScreen({2500, -300, 600, 400}, screen), QRect(400, 0, 600, 400));
    EXPECT_EQ(FitOnScreen({10, 10, 3000, 10}, screen), QRect(0, 10, 1000, 240));
    EXPECT_EQ(FitOnScreen({100, 50, 600, 400}, screen), QRect(100, 50, 600, 400));
}

TEST_F(MainWindowTest, HidesAndShowsPanesByButtonAndTab) {
    StartProgram();
    QAction& button = Item("tbrContents");
    EXPECT_TRUE(button.isChecked());
    emit Get<QTabWidget>("tabLeft").tabCloseRequested(0);
    EXPECT_FALSE(Get<QTabWidget>("tabLeft").isVisible());
    EXPECT_FALSE(button.isChecked());
    button.trigger();
    EXPECT_TRUE(Tree().isVisible());
    EXPECT_TRUE(button.isChecked());
    // A pane that is closed by other means hides itself too.
    Get<QWidget>("fContents").close();
    EXPECT_FALSE(Tree().isVisible());
}

TEST_F(MainWindowTest, MovesPanesAndChangesColoursByTheConfiguration) {
    StartProgram();
    const QPalette before = QApplication::palette();
    modal_.Expect([](QWidget& dialog) {
        EXPECT_TRUE(Find<QRadioButton>(dialog, "optnContentLeft").isChecked());
        for (const QRadioButton* option : dialog.findChildren<QRadioButton*>())
            EXPECT_EQ((option->focusPolicy() & Qt::TabFocus) != 0, option->isChecked());
        Find<QRadioButton>(dialog, "optnContentRight").click();
        Find<QRadioButton>(dialog, "optnThemeDark").click();
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    const auto brightness = [this](QIcon::Mode mode) {
        const QImage image = Item("actUndoDelete").icon().pixmap(QSize(24, 24), mode).toImage();
        int sum = 0;
        for (int at = 0; at < 24 * 24; ++at)
            sum += image.pixelColor(at % 24, at / 24).alpha();
        return sum;
    };
    Item("mnuUtilityConfig").trigger();
    EXPECT_LT(brightness(QIcon::Disabled), brightness(QIcon::Normal) / 2);
    EXPECT_EQ(brightness(QIcon::Selected), brightness(QIcon::Normal));
    EXPECT_TRUE(Get<QTabWidget>("tabRight").isAncestorOf(&Tree()));
    EXPECT_FALSE(Get<QTabWidget>("tabLeft").isVisible());
    EXPECT_TRUE(IsDark());
    EXPECT_EQ(WindowSizeRS(*db_)["fContentPos"].Text(), "right");
    EndProgram();
    ApplyTheme(Theme::Light);
    StartProgram();
    EXPECT_TRUE(IsDark());
    EXPECT_TRUE(Get<QTabWidget>("tabRight").isAncestorOf(&Tree()));
    modal_.Expect([](QWidget& dialog) {
        Find<QRadioButton>(dialog, "optnThemeDesktop").click();
        Find<QRadioButton>(dialog, "optnContentLeft").click();
        Find<QPushButton>(dialog, "cmdCancel").click();
    });
    Item("mnuUtilityConfig").trigger();
    EXPECT_TRUE(IsDark());
    ApplyTheme(Theme::Desktop);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), before.color(QPalette::Base));
}

TEST_F(MainWindowTest, DisablesWhatCannotBeDone) {
    StartProgram();
    emit Get<QMenu>("mnuFile").aboutToShow();
    for (const char* name : {"mnuFileDelete", "mnuFilePrint", "actUndoDelete", "actBack"})
        EXPECT_FALSE(Item(name).isEnabled()) << name;
    for (const char* name : {"mnuFileExit", "mnuUtilityConfig", "mnuHelpAbout", "actTrash"})
        EXPECT_TRUE(Item(name).isEnabled()) << name;
    SelectFirstProcedure();
    for (const char* name : {"mnuFileDelete", "mnuFilePrint", "mnuEditDisplaySelectAll"})
        EXPECT_TRUE(Item(name).isEnabled()) << name;
    EXPECT_FALSE(Item("mnuEditDisplayCopy").isEnabled());
    Item("mnuEditDisplaySelectAll").trigger();
    EXPECT_TRUE(Item("mnuEditDisplayCopy").isEnabled());
    Item("mnuEditDisplayClear").trigger();
    EXPECT_FALSE(Item("mnuFilePrint").isEnabled());
}

TEST_F(MainWindowTest, OpensReadOnlyBesideAnotherProgramAndSaysSo) {
    FakeHost otherHost;
    Database other(otherHost.host, CatalogueProviders(), folder_.Path());
    OpenCatalogue(other);
    StoreTheme(other, Theme::Dark);
    modal_.Expect([](QWidget& box) {
        EXPECT_TRUE(IsDark()) << "the first that is said has the user's colours";
        box.close();
    });
    StartProgram();
    ApplyTheme(Theme::Desktop);
    EXPECT_EQ(window_->windowTitle(), "Snippetarium (read only)");
    EXPECT_TRUE(Get<QLabel>("lblStatusReadOnly").isVisible());
    SelectFirstProcedure();
    EXPECT_FALSE(Item("mnuFileDelete").isEnabled());
    EXPECT_FALSE(Tree().model()->flags(Tree().currentIndex()).testFlag(Qt::ItemIsEditable));
    EndProgram();
    CloseCatalogue(other);
}

TEST_F(MainWindowTest, EndsWithAMessageWhereThereIsNoCatalogue) {
    std::filesystem::remove(folder_.File(kCatalogueFileName));
    db_ = std::make_unique<Database>(qtHost_.Interfaces(), CatalogueProviders(), folder_.Path());
    window_ = std::make_unique<fMain>(*db_, qtHost_);
    modal_.ExpectBox(QMessageBox::Ok);
    EXPECT_FALSE(window_->Start());
    EXPECT_FALSE(window_->isVisible());
}

TEST_F(MainWindowTest, MovesTheFocusFromPaneToPage) {
    StartProgram();
    EXPECT_TRUE(Tree().hasFocus());
    Item("actNextPane").trigger();
    EXPECT_TRUE(Get<QPlainTextEdit>("txtPage").hasFocus());
    Item("actNextPane").trigger();
    EXPECT_TRUE(Tree().hasFocus());
    Item("actBackToPage").trigger();
    EXPECT_TRUE(Get<QPlainTextEdit>("txtPage").hasFocus());
}

TEST_F(MainWindowTest, KeepsTheSizeOfThePagesText) {
    StartProgram();
    const double usual = Get<QPlainTextEdit>("txtPage").font().pointSizeF();
    for (int i = 0; i < 3; ++i)
        Item("actLargerText").trigger();
    EXPECT_DOUBLE_EQ(Get<QPlainTextEdit>("txtPage").font().pointSizeF(), usual + 3);
    EndProgram();
    StartProgram();
    EXPECT_DOUBLE_EQ(Get<QPlainTextEdit>("txtPage").font().pointSizeF(), usual + 3);
    Item("actNormalText").trigger();
    EXPECT_DOUBLE_EQ(Get<QPlainTextEdit>("txtPage").font().pointSizeF(), usual);
}

}  // namespace
}  // namespace snippetarium::test
