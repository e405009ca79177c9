#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>

#include "forms/fImport.h"
#include "forms/fProgressBar2.h"
#include "tests/forms/dialog_fixture.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

class ImportDialogTest : public DialogFixture {
  protected:
    void Open(const std::string& folder) {
        StoreSetting(db_, "import.folder", folder);
        dialog_ = std::make_unique<fImport>(db_, files_, state_, nullptr);
        dialog_->show();
        RunEvents();
    }
    template <typename Control>
    Control& Get(const char* name) {
        return Find<Control>(*dialog_, name);
    }
    void Click(const char* button) { Get<QAbstractButton>(button).click(); }
    std::string Text(const char* name) { return Get<QLineEdit>(name).text().toStdString(); }
    Names Source() { return Sorted(Rows(*dialog_, "lstSrcFiles")); }
    Names Selected() { return Sorted(Rows(*dialog_, "lstSelFiles")); }
    static Names Sorted(Names names) {
        std::ranges::sort(names);
        return names;
    }
    std::string Buttons() {
        std::string enabled;
        for (const char* name : {"cmdAddOne", "cmdAddAll", "cmdRmvOne", "cmdRmvAll"})
            enabled += Get<QPushButton>(name).isEnabled() ? '1' : '0';
        return enabled;
    }

    /// Goes into a subfolder, or up, as with the keyboard.
    void OpenFolder(const char* name) {
        auto& folders = Get<QTreeWidget>("dlstSrcDir");
        const auto found = folders.findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << name;
        folders.setCurrentItem(found.last());
        PressKey(folders, Qt::Key_Return);
        RunEvents();
    }
    std::string Folder() {
        return Get<QTreeWidget>("dlstSrcDir").currentItem()->toolTip(0).toStdString();
    }
    void DropFiles(const Names& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : paths)
            urls << QUrl::fromLocalFile(QString::fromStdString(path));
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Get<QListView>("lstSelFiles").viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Get<QListView>("lstSelFiles").viewport(), &drop);
        RunEvents();
    }
    /// The report of an import; the window is closed.
    void ExpectReport() {
        modal_.Expect([this](QWidget& window) {
            EXPECT_EQ(window.objectName(), "fLogError");
            report_ = Find<QPlainTextEdit>(window, "txtLog").toPlainText().toStdString();
            Find<QPushButton>(window, "cmdClose").click();
        });
    }
    bool ReportSays(std::string_view text) const { return report_.find(text) != std::string::npos; }

    ImportState state_;
    std::unique_ptr<fImport> dialog_;
    std::string report_;
};

TEST_F(ImportDialogTest, ListsFilesMovesThemAndFillsTheTexts) {
    WriteSource("Paint/Tool.cpp", "int f() {}\n");
    WriteSource("Paint/Main.bas", "Sub A()\r\nEnd Sub\r\n");
    WriteSource("Paint/page.htm", "<p>");
    WriteSource("Paint/sub/Grid.java", "class Grid {}\n");
    WriteSource("Tides/Tide.c", "int t() {}\n");
    Open(Sources());
    EXPECT_EQ(Buttons(), "0000");
    EXPECT_LE(dialog_->minimumSizeHint().width(), 500) << "1,500 pixels at 300 %";
    OpenFolder("Paint");
    EXPECT_EQ(Folder(), Sources() + "/Paint");
    EXPECT_EQ(Source(), (Names{"Main.bas", "Tool.cpp"}));
    EXPECT_EQ(Rows(*dialog_, "flstSrcFiles").size(), 2U);
    EXPECT_EQ(Text("txtAppPath"), Sources() + "/Paint");
    EXPECT_EQ(Text("txtApp"), "");
    EXPECT_EQ(Buttons(), "1100");

    Click("chkSubfolder");
    EXPECT_EQ(Source(), (Names{"Main.bas", "Tool.cpp", "sub/Grid.java"}));
    Click("cmdAddAll");
    EXPECT_EQ(Buttons(), "0011");
    EXPECT_EQ(Text("txtApp"), "Paint");
    EXPECT_NE(Text("txtLanguage").find("Java"), std::string::npos);
    Click("chkSubfolder");
    EXPECT_EQ(Selected(), (Names{"Main.bas", "Tool.cpp", "sub/Grid.java"}));

    auto& selected = Get<QListView>("lstSelFiles");
    selected.setCurrentIndex(selected.model()->index(0, 0));
    PressKey(selected, Qt::Key_Delete);
    EXPECT_EQ(Buttons(), "1111");
    auto& source = Get<QListView>("lstSrcFiles");
    source.setCurrentIndex(source.model()->index(0, 0));
    PressKey(source, Qt::Key_Return);
    EXPECT_EQ(Selected().size(), 3U);

    // Another folder would lose the selection: No keeps all, Yes takes it.
    modal_.ExpectBox(QMessageBox::No);
    PressKey(Get<QTreeWidget>("dlstSrcDir"), Qt::Key_Backspace);
    RunEvents();
    EXPECT_EQ(Selected().size(), 3U);
    EXPECT_EQ(Folder(), Sources() + "/Paint");
    modal_.ExpectBox(QMessageBox::Yes);
    PressKey(Get<QTreeWidget>("dlstSrcDir"), Qt::Key_Backspace);
    RunEvents();
    EXPECT_EQ(Folder(), Sources());
    EXPECT_EQ(Selected(), Names{});
    EXPECT_EQ(Text("txtApp") + Text("txtLanguage"), "");
    EXPECT_TRUE(modal_.texts.at(0).starts_with("Snippetarium must store application name"));
    EXPECT_EQ(modal_.titles, (Names{"Snippetarium Question", "Snippetarium Question"}));
}

TEST_F(ImportDialogTest, PointsToWhatIsMissingBeforeItBegins) {
    WriteSource("a.bas", "Sub A()\r\nEnd Sub\r\n");
    Open(Sources());
    const auto refuses = [&](const char* control, const char* message) {
        dialog_->activateWindow();
        modal_.ExpectBox(QMessageBox::Ok);
        Click("cmdImport");
        EXPECT_EQ(modal_.texts.back(), message);
        EXPECT_EQ(dialog_->focusWidget()->objectName(), control);
    };
    refuses("lstSelFiles", "Please select file(s) that you wish to import.");
    Click("cmdAddAll");
    Get<QLineEdit>("txtAppPath").clear();
    emit Get<QLineEdit>("txtAppPath").textEdited("");
    refuses("txtAppPath", "Please specify an application path.");
    emit Get<QLineEdit>("txtAppPath").textEdited("/x");
    emit Get<QLineEdit>("txtLanguage").textEdited(" ");
    refuses("txtLanguage", "Please specify the programming language for your application.");
    emit Get<QLineEdit>("txtLanguage").textEdited("Visual Basic");
    emit Get<QLineEdit>("txtApp").textEdited("");
    modal_.ExpectBox(QMessageBox::Yes);
    Click("cmdImport");
    EXPECT_EQ(dialog_->focusWidget()->objectName(), "txtApp");
    modal_.ExpectBox(QMessageBox::No);
    modal_.ExpectBox(QMessageBox::Ok);
    Click("cmdImport");
    EXPECT_EQ(modal_.texts.back(), "The code has been successfully imported.");
    EXPECT_EQ(Select("SELECT appID FROM tblClass WHERE classID > 1"), Names{"1"});
}

TEST_F(ImportDialogTest, ShowsWhatAFileWouldBeCutIntoAndStoresNothing) {
    WriteSource("Main.bas",
                "Attribute VB_Name = \"Drawing\"\r\nOption Explicit\r\n"
                "'Draws.\r\nSub Draw()\r\nEnd Sub\r\nFunction Area()\r\nEnd Function\r\n");
    WriteSource("empty.bas", "");
    WriteSource("other/a.bas", "");
    Open(Sources());
    const QString hint = Get<QLabel>("lblProblems").text();
    auto& source = Get<QListView>("lstSrcFiles");
    auto& tree = Get<QTreeWidget>("trVwPreview");
    const auto show = [&](const char* name) {
        for (int row = 0; row < source.model()->rowCount(); ++row) {
            const QModelIndex index = source.model()->index(row, 0);
            if (index.data().toString() == name) source.setCurrentIndex(index);
        }
    };
    show("Main.bas");
    WaitUntil([&] { return tree.topLevelItemCount() == 1; });
    const QTreeWidgetItem& top = *tree.topLevelItem(0);
    EXPECT_EQ(top.text(0), "Drawing");
    ASSERT_EQ(top.childCount(), 2);
    EXPECT_EQ(top.child(1)->text(0), "Area()");
    tree.setCurrentItem(top.child(0));
    EXPECT_EQ(Get<QPlainTextEdit>("txtPreview").toPlainText(), "'Draws.\nSub Draw()\nEnd Sub\n");
    show("empty.bas");
    WaitUntil([&] { return Get<QLabel>("lblProblems").text() == "The file is empty."; });
    show("Main.bas");
    WaitUntil([&] { return tree.topLevelItemCount() == 1; });
    OpenFolder("other");
    EXPECT_EQ(tree.topLevelItemCount(), 0) << "the file is in another folder";
    EXPECT_EQ(Get<QLabel>("lblProblems").text(), hint);
    EXPECT_EQ(Select("SELECT classID FROM tblClass WHERE classID > 1"), Names{});
}

TEST_F(ImportDialogTest, TakesFilesAndFoldersThatAreDropped) {
    for (const char* name : {"Paint/a.bas", "Paint/b.bas", "Paint/p.htm", "Paint/sub/c.cs",
                             "Paint/sub/deep/d.java", "Paint/sub/notes.txt", "Tides/t.c"})
        WriteSource(name, "x");
    Open(Sources() + "/Paint");
    // Below the folder that is taken; pages and C# too, and a file of no kind only by its name.
    DropFiles({Sources() + "/Paint/sub", Sources() + "/Paint/p.htm", Sources() + "/Paint/gone.c"});
    EXPECT_EQ(Selected(), (Names{"p.htm", "sub/c.cs", "sub/deep/d.java"}));
    EXPECT_EQ(Source(), (Names{"a.bas", "b.bas"}));
    DropFiles({Sources() + "/Paint/a.bas", Sources() + "/Paint/a.bas"});
    EXPECT_EQ(Selected().size(), 4U);
    EXPECT_EQ(Source(), Names{"b.bas"});
    // Beside it: the folder that holds both is taken, where the user agrees.
    modal_.ExpectBox(QMessageBox::No);
    DropFiles({Sources() + "/Tides", Sources() + "/Paint/a.bas"});
    EXPECT_EQ(Selected().size(), 4U);
    modal_.ExpectBox(QMessageBox::Yes);
    DropFiles({Sources() + "/Tides", Sources() + "/Paint/a.bas"});
    EXPECT_EQ(Selected(), (Names{"Paint/a.bas", "Tides/t.c"}));
    EXPECT_EQ(Folder(), Sources());
    EXPECT_EQ(Text("txtLanguage").size(), std::string("Visual Basic, C").size());
}

TEST_F(ImportDialogTest, LosesNothingToFoldersAndFilesThatGoWhileTheyAreListed) {
    WriteSource("old/a.bas", "Sub A()\r\nEnd Sub\r\n");
    WriteSource("old/b.bas", "Sub B()\r\nEnd Sub\r\n");
    WriteSource("old/sub/c.bas", "Sub C()\r\nEnd Sub\r\n");
    std::filesystem::create_directory_symlink(Sources() + "/old", Sources() + "/old/sub/circle");
    Open(Sources() + "/old");
    Click("chkSubfolder");
    EXPECT_EQ(Source(), (Names{"a.bas", "b.bas", "sub/c.bas"}));
    std::filesystem::remove_all(Sources() + "/old/sub");
    modal_.ExpectBox(QMessageBox::Ok);
    OpenFolder("sub");
    EXPECT_EQ(Folder(), Sources() + "/old");
    EXPECT_EQ(Source().size(), 3U);

    Click("cmdAddAll");
    std::filesystem::remove(Sources() + "/old/b.bas");
    std::filesystem::create_directory(Sources() + "/old/b.bas");
    ExpectReport();
    Click("cmdImport");
    EXPECT_TRUE(ReportSays("b.bas was not imported")) << report_;
    EXPECT_TRUE(ReportSays("sub/c.bas was not imported")) << report_;
    EXPECT_TRUE(ReportSays("circle")) << report_;
    EXPECT_TRUE(ReportSays("successfully imported:\n\n  a.bas")) << report_;
    EXPECT_EQ(Select("SELECT codeName FROM tblCode"), Names{"A()"});
}

TEST_F(ImportDialogTest, TakesOddNamesAndTellsOfThoseThatItCannotList) {
    const Names odd = {"it's.bas",
                       "x%y_[z].bas",
                       "\xC3\xBC"
                       "ber.bas",
                       "\xF0\x9F\x8E\xA8.bas",
                       " lead.bas",
                       "a;b \"c\".bas",
                       "<b>.bas"};
    for (const std::string& name : odd)
        WriteSource(name, "Sub A()\r\nEnd Sub\r\n");
    WriteSource("back\\slash.bas", "x");
    Open(Sources());
    EXPECT_EQ(Source(), Sorted(odd));
    Click("cmdAddAll");
    ExpectReport();
    Click("cmdImport");
    EXPECT_TRUE(ReportSays("back")) << report_;
    EXPECT_EQ(Sorted(Select("SELECT ClassPathInApp FROM tblClass WHERE classID > 1")), Sorted(odd));
}

}  // namespace
}  // namespace snippetarium::test
