#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTreeView>

#include "store/settings.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

/// Import, search and export as the main window's commands open them.
class MainTransfersTest : public DesktopFixture {
  protected:
    QAction& Item(const char* name) { return Get<QAction>(name); }
    QString Selected() { return Get<QTreeView>("trVwClass").currentIndex().data().toString(); }
    /// The export dialog that comes up; what it is called is noted, and it is closed.
    void ExpectExport() {
        modal_.Expect([this](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), "fExport");
            exports_ << dialog.windowTitle();
            fileNames_ << Find<QLineEdit>(dialog, "txtFileName").text();
            Find<QPushButton>(dialog, "cmdCancel").click();
        });
    }

    QStringList exports_;
    QStringList fileNames_;
};

TEST_F(MainTransfersTest, ShowWhatWasImportedFindItAndOfferItsExport) {
    StartProgram();
    const std::string sources = folder_.File("Tides");
    std::filesystem::create_directory(sources);
    WriteBytes(sources + "/moon.cpp", "int LowWater(int day) {\n    return day % 2;\n}\n");
    StoreSetting(*db_, "import.folder", sources);
    modal_.Expect([this](QWidget& dialog) {
        // Not in here: the box that comes is for the driver too.
        QTimer::singleShot(0, &dialog, [this, &dialog] {
            Find<QPushButton>(dialog, "cmdAddAll").click();
            modal_.ExpectBox(QMessageBox::Ok);
            Find<QPushButton>(dialog, "cmdImport").click();
            EXPECT_EQ(Selected(), "Tides");
            Find<QPushButton>(dialog, "cmdExit").click();
        });
    });
    Item("mnuFileImport").trigger();
    EXPECT_EQ(modal_.texts.back(), "The code has been successfully imported.");
    EXPECT_EQ(Selected(), "Tides");
    ExpectExport();
    Item("mnuFileExportSel").trigger();

    Item("tbrSearch").trigger();
    Get<QRadioButton>("optnCode").setChecked(true);
    Get<QLineEdit>("txtSearch").setText("\"day % 2\"");
    PressKey(Get<QLineEdit>("txtSearch"), Qt::Key_Return);
    PressKey(Get<QTreeView>("lstVwSearch"), Qt::Key_Return);
    EXPECT_EQ(Selected(), "LowWater(int day)");
    QStringList marked;
    for (const auto& mark : Get<QPlainTextEdit>("txtPage").extraSelections())
        marked << mark.cursor.selectedText();
    EXPECT_EQ(marked, QStringList("day "));
    for (const char* name : {"mnuFileExportCurrent", "mnuClassHideExport", "mnuEditHideExport"}) {
        ExpectExport();
        Item(name).trigger();
    }
    EXPECT_EQ(exports_,
              (QStringList{"Export application: Tides", "Export procedure: LowWater(int day)",
                           "Export procedure: LowWater(int day)",
                           "Export procedure: LowWater(int day)"}));
    EXPECT_TRUE(fileNames_.last().endsWith(".cpp")) << fileNames_.last().toStdString();
}

}  // namespace
}  // namespace snippetarium::test
