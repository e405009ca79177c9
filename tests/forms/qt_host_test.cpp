#include "forms/qt_host.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <QTextBrowser>
#include <QWindow>
#include <thread>

#include "forms/fLogError.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "support/guard.h"
#include "support/import_export_report.h"
#include "support/message_boxes.h"
#include "tests/forms/form_driver.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

TEST(QtText, TakesLineEndsAndBytesBothWays) {
    // What came into the catalogue with any line ends goes out of a control with the catalogue's.
    EXPECT_EQ(LinesToQt("a\r\n\r\nb"), QString("a\n\nb"));
    EXPECT_EQ(LinesFromQt("a\n\nb\r\nc"), "a\r\n\r\nb\r\nc");
    EXPECT_EQ(FromQt(ToQt("Gr\xC3\xBC\xC3\x9F \xF0\x9F\x99\x82")),
              "Gr\xC3\xBC\xC3\x9F \xF0\x9F\x99\x82");
    EXPECT_EQ(ToQt(std::string_view("a\0b", 3)).size(), 3);
}

class QtHostTest : public ::testing::Test {
  protected:
    QtHostTest() { qtHost_.ProgressWindows().SetDelay(std::chrono::milliseconds(0)); }

    /// Lets events run as a job does.
    void YieldUntil(const std::function<bool()>& condition) {
        for (int i = 0; i < 1000 && !condition(); ++i) {
            host_.events.Yield();
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        EXPECT_TRUE(condition());
    }

    ModalDriver modal_;
    QtHost qtHost_;
    Host host_ = qtHost_.Interfaces();
};

TEST_F(QtHostTest, AsksInBoxesAndShowsNamesAsTheyAre) {
    modal_.ExpectBox(QMessageBox::Ok);
    ShowInformation(host_.messages, "List<b>T</b>\r\nline", kInformationTitle);
    EXPECT_EQ(modal_.LastText(), "List<b>T</b>\nline");
    EXPECT_EQ(modal_.titles.back(), kInformationTitle);

    modal_.ExpectBox(QMessageBox::Yes);
    EXPECT_EQ(AskYesNo(host_.messages, "Sure?", kQuestionTitle), StandardAnswer::Yes);
    // Esc is the answer that does least.
    modal_.Expect([](QWidget& box) { PressKey(box, Qt::Key_Escape); });
    EXPECT_EQ(AskYesNo(host_.messages, "Sure?", kQuestionTitle), StandardAnswer::No);
    modal_.ExpectBox(QMessageBox::No);
    EXPECT_EQ(AskYesNoCancel(host_.messages, "Save?", kQuestionTitle), StandardAnswer::No);
    modal_.Expect([](QWidget& box) { PressKey(box, Qt::Key_Escape); });
    EXPECT_EQ(AskYesNoCancel(host_.messages, "Save?", kQuestionTitle), StandardAnswer::Cancel);
}

TEST_F(QtHostTest, ShowsBoxesOverTheProgramAndAsWideAsTheirTitles) {
    QMainWindow window;
    window.show();
    QApplication::setActiveWindow(nullptr);  // as between two windows
    const QString title(60, 'm');
    modal_.Expect([&](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(title));
        box.close();
    });
    ShowInformation(host_.messages, "No.", FromQt(title));
}

TEST_F(QtHostTest, AnswersASeriesByEachOfItsButtons) {
    const std::pair<const char*, SeriesAnswer> answers[] = {
        {"cmdYes", SeriesAnswer::Yes},       {"cmdYesToAll", SeriesAnswer::YesToAll},
        {"cmdNo", SeriesAnswer::No},         {"cmdNoToAll", SeriesAnswer::NoToAll},
        {"cmdCancel", SeriesAnswer::Cancel},
    };
    for (const auto& [name, answer] : answers) {
        modal_.Expect([name = name](QWidget& box) {
            EXPECT_EQ(Find<QLabel>(box, "lblMsg").text(), "Overwrite a<b>?");
            Find<QPushButton>(box, name).click();
        });
        EXPECT_EQ(host_.messages.Series("Overwrite a<b>?"), answer) << name;
    }
    modal_.Expect([](QWidget& box) { box.close(); });
    EXPECT_EQ(host_.messages.Series("Overwrite?"), SeriesAnswer::Cancel);
}

/// The progress window that is shown, by its form's name; empty for none.
std::string ShownForm() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->inherits("snippetarium::ProgressWindow"))
            return window->objectName().toStdString();
    }
    return {};
}

TEST_F(QtHostTest, ShowsTheProgressWindowThatTheJobNeeds) {
    host_.progress.Open("Deleting");
    host_.events.Yield();
    EXPECT_EQ(ShownForm(), "fProgressBar1");
    EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Deleting , please wait...");
    host_.progress.SetCancelHandler([] {});
    YieldUntil([&] { return ShownForm() == "fPrgrCancel"; });
    host_.progress.SetFolderLine("src");
    host_.progress.SetUnit(50);
    YieldUntil([&] { return ShownForm() == "fProgressBar2"; });
    EXPECT_EQ(Find<QProgressBar>(*QApplication::activeModalWidget(), "prgUnit").value(), 500);
    host_.progress.Close();
    EXPECT_EQ(ShownForm(), "");
    EXPECT_FALSE(host_.progress.IsOpen());
}

TEST_F(QtHostTest, CancelsAJobFromWithinItsYieldAndSurvivesAHandlerThatClosesTheWindow) {
    int presses = 0;
    host_.progress.Open("Importing");
    host_.progress.SetFolderLine("src");
    host_.progress.SetCancelHandler([&] {
        // A failure in what an event starts must not fly through the job.
        Guarded(host_.reporter, Procedure::ScalarLong, [] { throw Error(7, "no"); });
        if (++presses == 2) host_.progress.Close();
    });
    modal_.Expect([](QWidget& box) { box.close(); });
    modal_.Expect([](QWidget& box) { box.close(); });
    Guarded(host_.reporter, Procedure::ScalarLong, [&] {
        host_.events.Yield();
        QWidget& window = *QApplication::activeModalWidget();
        QTimer::singleShot(0, &window, [&] { Find<QPushButton>(window, "cmdCancel").click(); });
        YieldUntil([&] { return presses == 1; });
        QTimer::singleShot(0, &window, [&] { PressKey(window, Qt::Key_Escape); });
        YieldUntil([&] { return presses == 2; });
        EXPECT_FALSE(host_.progress.IsOpen());
    });
}

TEST_F(QtHostTest, KeepsShortJobsWithoutAWindow) {
    qtHost_.ProgressWindows().SetDelay(std::chrono::hours(1));
    host_.progress.Open("Deleting");
    host_.events.Yield();
    EXPECT_TRUE(host_.progress.IsOpen());
    EXPECT_EQ(ShownForm(), "");
    host_.progress.Close();
}

TEST_F(QtHostTest, ShowsHelpInOneWindowAlsoOutOfADialog) {
    const TemporaryFolder folder;
    WriteBytes(folder.File("default.htm"), "<h1>Help</h1><p><a name=\"UseImport\"></a>Import</p>");
    EXPECT_FALSE(host_.help.IsVisible());
    host_.help.Create();
    host_.help.Navigate(folder.Path() + "\\default.htm#UseImport");
    EXPECT_TRUE(host_.help.IsVisible());
    QTextBrowser* page = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "fHelp") page = window->findChild<QTextBrowser*>("txtHelp");
    }
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(page->source().fragment(), "UseImport");
    EXPECT_TRUE(page->toPlainText().contains("Import"));

    QDialog dialog;
    modal_.Expect([&](QWidget& window) {
        host_.help.Navigate(folder.Path() + "\\default.htm");
        EXPECT_EQ(page->window()->windowHandle()->transientParent(), window.windowHandle());
        window.close();
    });
    dialog.exec();
    host_.help.Navigate(folder.Path() + "\\missing.htm");
    EXPECT_TRUE(page->toPlainText().contains("missing.htm"));
}

TEST_F(QtHostTest, SavesAReportAsItStands) {
    const TemporaryFolder folder;
    const std::string path = folder.File("report.txt");
    const std::string report = "The following error(s) occurred\r\n  Gr\xC3\xBC\xC3\x9F\r\n";
    Database db(host_, CatalogueProviders(), folder.Path());
    fLogError window(db, kImportReportLabel, report, nullptr);
    EXPECT_EQ(Find<QLabel>(window, "lblLog").text(), "Import report:");
    modal_.Expect([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Import Report");
        EXPECT_EQ(Find<QLineEdit>(dialog, "fileNameEdit").text(), "Import report.txt");
        Find<QLineEdit>(dialog, "fileNameEdit").setText(ToQt(path));
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    modal_.ExpectBox(QMessageBox::Ok);
    Find<QPushButton>(window, "cmdSaveAS").click();
    EXPECT_EQ(ReadBytes(path), report);
    EXPECT_EQ(modal_.LastText(), kReportSaved);
}

}  // namespace
}  // namespace snippetarium::test
