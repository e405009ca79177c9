#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "forms/fExport.h"
#include "forms/fImport.h"
#include "forms/fSearch.h"
#include "forms/fTopicsFound.h"
#include "tests/forms/dialog_fixture.h"

namespace snippetarium::test {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view kModule =
    "Attribute VB_Name = \"Drawing\"\r\nOption Explicit\r\n\r\n"
    "'Author: Ann Lee\r\n'Date: 2001-03-14\r\n'Keywords: canvas, brush\r\n"
    "'Draws the grid.\r\nSub DrawGrid()\r\n    Paint 1\r\nEnd Sub\r\n";
constexpr std::string_view kCpp =
    "// Counts.\nint CountCells(int rows) {\n    return rows * 2;\n}\n\n"
    "int Twice(int x) { return x + x; }\n";
constexpr std::string_view kJava =
    "package tide;\n\n/** High water. */\nclass Tide {\n    int high() {\n        return 12;\n"
    "    }\n}\n";

/// Presses Cancel of the progress window, once, when the job has come some way.
class CancelPresser {
  public:
    CancelPresser() {
        timer_.setInterval(1);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
        timer_.start();
    }
    bool HasPressed() const { return hasPressed_; }

  private:
    void Look() {
        if (hasPressed_) return;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (!window->isVisible() || window->objectName() != "fProgressBar2") continue;
            if (Find<QLabel>(*window, "lblContent").text().isEmpty()) continue;
            hasPressed_ = true;
            Find<QPushButton>(*window, "cmdCancel").click();
            return;
        }
    }

    QTimer timer_;
    bool hasPressed_ = false;
};

class TransferVisitTest : public DialogFixture {
  protected:
    static constexpr int kFillers = 60;

    TransferVisitTest() {
        qtHost_.ProgressWindows().SetDelay(std::chrono::milliseconds(0));
        WriteSource("Paint/Drawing.bas", kModule);
        WriteSource("Paint/sub/cells.cpp", kCpp);
        WriteSource("Paint/sub/deep/Tide.java", kJava);
        for (int i = 0; i < kFillers; ++i) {
            WriteSource("Paint/fill/f" + std::to_string(i) + ".c",
                        "int filler" + std::to_string(i) + "(void) {\n    return 1;\n}\n");
        }
    }

    /// Chooses the whole folder in the dialog.
    void ChooseAll(fImport& dialog) {
        dialog.show();
        RunEvents();
        Find<QCheckBox>(dialog, "chkSubfolder").click();
        Find<QPushButton>(dialog, "cmdAddAll").click();
        EXPECT_EQ(Rows(dialog, "lstSelFiles").size(), kFillers + 3U);
    }
    std::size_t ClassCount() { return Select("SELECT classID FROM tblClass").size() - 1; }

    /// The topics of a search, with the keys of the rows.
    Names Found(fSearch& search, const char* option, const char* entry) {
        Find<QRadioButton>(search, option).setChecked(true);
        auto& text = Find<QLineEdit>(search, "txtSearch");
        text.setText(entry);
        PressKey(text, Qt::Key_Return);
        Names rows;
        const auto& list = Find<QTreeView>(search, "lstVwSearch");
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QModelIndex index = list.model()->index(row, 0);
            const std::string key = index.data(Qt::UserRole).toString().toStdString();
            rows.push_back(key.substr(0, 1) + " " + index.data().toString().toStdString());
        }
        std::ranges::sort(rows);
        return rows;
    }
};

TEST_F(TransferVisitTest, ImportsSearchesAndExportsAFolder) {
    StoreSetting(db_, "import.folder", Sources() + "/Paint");
    ImportState state;
    fImport dialog(db_, files_, state, nullptr);
    std::vector<std::int32_t> imported;
    QObject::connect(&dialog, &fImport::Imported,
                     [&](std::int32_t appID) { imported.push_back(appID); });
    ChooseAll(dialog);
    auto& import = Find<QPushButton>(dialog, "cmdImport");
    {
        // Cancelled: what was imported stays.
        const CancelPresser presser;
        modal_.ExpectBox(QMessageBox::Yes);
        modal_.ExpectBox(QMessageBox::Ok);
        import.click();
        EXPECT_TRUE(presser.HasPressed());
        EXPECT_EQ(modal_.texts.back(), "Code import was not completed.");
        EXPECT_LT(ClassCount(), kFillers + 3U);
    }
    {
        // No goes on; the application is there now.
        const CancelPresser presser;
        modal_.ExpectBox(QMessageBox::Yes);
        modal_.ExpectBox(QMessageBox::No);
        modal_.ExpectBox(QMessageBox::Ok);
        import.click();
        EXPECT_TRUE(presser.HasPressed());
        EXPECT_EQ(modal_.texts.back(), "The code has been successfully imported.");
        EXPECT_EQ(ClassCount(), kFillers + 3U);
    }
    EXPECT_EQ(imported, (std::vector<std::int32_t>{2, 2}));
    EXPECT_TRUE(Find<QLabel>(dialog, "lblTime").text().startsWith("Time: 0 :0 :"));

    fSearch search(db_, nullptr);
    search.show();
    struct Kind {
        const char* option;
        const char* entry;
        Names found;
    };
    const Kind kinds[] = {
        {"optnKeyword", "brush and canvas", {"f DrawGrid()"}},
        {"optnFunction", "twice", {"f Twice(int x)"}},
        {"optnCode", "\"return 12\"", {"f Tide.high()"}},
        {"optnComment", "Counts", {"f CountCells(int rows)"}},
        {"optnAuthor", "ann", {"f DrawGrid()"}},
    };
    for (const Kind& kind : kinds)
        EXPECT_EQ(Found(search, kind.option, kind.entry), kind.found) << kind.option;
    Find<QDateEdit>(search, "dtFrom").setDate(QDate(2001, 3, 14));
    Find<QDateEdit>(search, "dtTo").setDate(QDate(2001, 3, 14));
    EXPECT_EQ(Found(search, "optnDate", ""), Names{"f DrawGrid()"});

    fExport exporting(db_, files_,
                      {NodeKind::Application, {2, 0, 0}, "Export application: Paint", ""}, nullptr);
    exporting.show();
    const std::string target = folder_.File("out");
    Find<QLineEdit>(exporting, "txtFolder").setText(QString::fromStdString(target));
    modal_.ExpectBox(QMessageBox::Ok);
    Find<QPushButton>(exporting, "cmdExport").click();
    EXPECT_EQ(modal_.texts.back(), "The application has been successfully exported.");
    EXPECT_EQ(exporting.result(), QDialog::Accepted);
    EXPECT_EQ(ReadBytes(target + "/sub/cells.cpp"), kCpp);
    EXPECT_EQ(ReadBytes(target + "/sub/deep/Tide.java"), kJava);
    for (int i = 0; i < kFillers; ++i) {
        const std::string name = "/fill/f" + std::to_string(i) + ".c";
        EXPECT_EQ(ReadBytes(target + name), ReadBytes(Sources() + "/Paint" + name)) << name;
    }
    std::string module = ReadBytes(target + "/Drawing.bas");
    while (module.ends_with("\r\n\r\n"))
        module.resize(module.size() - 2);
    EXPECT_EQ(module, kModule);
}

TEST_F(TransferVisitTest, SearchesByKeyboardSortsAndDisplaysEveryLevel) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblApplication (appID, appName) VALUES (2, 'Tides');"
        "INSERT INTO tblClass (classID, className, appID, languageID) VALUES (2, 'b', 2, 2),"
        " (3, 'A', 2, 5);"
        "INSERT INTO tblCode (codeID, codeName, code, classID) VALUES (7, 'run', 'x', 3);"
        "INSERT INTO tblKeyword (keywordID, keyword) VALUES (1, 'moon'), (2, 'moon'), (3, 'moon'),"
        " (4, 'moon');"
        "INSERT INTO tblSearchWord (searchWordID, searchWord) VALUES (1, 'moon');"
        "INSERT INTO tblKeyword_link_searchWord (keywordID, searchWordID) VALUES (1, 1), (2, 1),"
        " (3, 1), (4, 1);"
        "UPDATE tblApplication SET keywordID = 1 WHERE appID = 2;"
        "UPDATE tblClass SET keywordID = classID WHERE classID IN (2, 3);"
        "UPDATE tblCode SET keywordID = 4;");
    fSearch search(db_, nullptr);
    search.show();
    std::vector<std::string> shown;
    QObject::connect(&search, &fSearch::DisplayRequested,
                     [&](const QString& key, const QStringList& words) {
                         shown.push_back((key + " " + words.join(',')).toStdString());
                     });
    auto& text = Find<QLineEdit>(search, "txtSearch");
    auto& list = Find<QTreeView>(search, "lstVwSearch");
    auto& display = Find<QPushButton>(search, "cmdSrchDisplay");
    for (int column = 0; column < 3; ++column)
        EXPECT_EQ(list.columnWidth(column), 80);  // 1200 twips, 15 to a pixel

    modal_.ExpectBox(QMessageBox::Ok);
    PressKey(text, Qt::Key_Return);
    EXPECT_EQ(modal_.texts.back(), "Please enter search word(s) in the text box.");
    EXPECT_EQ(modal_.titles.back(), "Snippetarium");
    EXPECT_EQ(Found(search, "optnKeyword", "moon"), (Names{"a ", "c ", "c ", "f run"}));
    EXPECT_TRUE(display.isEnabled());
    EXPECT_TRUE(list.currentIndex().isValid());

    // Sorted by class: the application's cell is empty, and letter case does not count.
    list.sortByColumn(1, Qt::AscendingOrder);
    for (int row = 0; row < 4; ++row) {
        list.setCurrentIndex(list.model()->index(row, 0));
        PressKey(list, Qt::Key_Return);
    }
    EXPECT_EQ(shown, (Names{"a2 moon", "c3 moon", "f7 moon", "c2 moon"}));

    // What finds nothing leaves the list.
    modal_.ExpectBox(QMessageBox::Ok);
    Found(search, "optnFunction", "nothing");
    EXPECT_EQ(modal_.texts.back(), "No topics found.");
    EXPECT_EQ(modal_.titles.back(), "Search");
    EXPECT_EQ(list.model()->rowCount(), 4);

    auto& language = Find<QComboBox>(search, "cmbLanguage");
    EXPECT_EQ(language.itemText(0), "Select a language");
    auto& only = Find<QCheckBox>(search, "chckLanguage");
    only.click();
    modal_.ExpectBox(QMessageBox::Ok);
    PressKey(only, Qt::Key_Return);
    EXPECT_EQ(modal_.texts.back(), "Please select a language.");
    language.setCurrentIndex(language.findText("Java"));
    EXPECT_EQ(Found(search, "optnKeyword", "moon"), Names{"c "});
    Find<QRadioButton>(search, "optnDate").click();
    modal_.Expect([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "fCalendar");
        Find<QPushButton>(window, "cmdToday").click();
        Find<QPushButton>(window, "cmdOK").click();
    });
    Find<QAbstractButton>(search, "cmdFrom").click();
    EXPECT_EQ(Find<QDateEdit>(search, "dtFrom").date(), QDate::currentDate());
}

TEST_F(TransferVisitTest, ChoosesAmongTheTopicsOfAWord) {
    TopicList topics;
    topics.Replace({{"Draw", "Grid", "Paint", {2, 3, 4}}, {"", "Brush", "Paint", {2, 5, 0}}});
    fTopicsFound dialog(db_, topics, nullptr);
    dialog.show();
    auto& list = Find<QTreeView>(dialog, "lstVwTopic");
    list.sortByColumn(1, Qt::AscendingOrder);
    list.setCurrentIndex(list.model()->index(0, 0));
    PressKey(list, Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialog.ChosenKey(), "c5");
}

TEST_F(TransferVisitTest, ExportsAgainAfterARefusalAndIntoAPlaceThatCannotBeWritten) {
    db_.GetConnection().RunScript(
        "INSERT INTO tblClass (classID, className, appID, languageID, classDI) VALUES"
        " (2, 'Grid', 1, 4, 'int x;');");
    fExport dialog(db_, files_, {NodeKind::Class, {1, 2, 0}, "Export class: Grid", "Grid"},
                   nullptr);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Export class: Grid");
    auto& folder = Find<QLineEdit>(dialog, "txtFolder");
    auto& name = Find<QLineEdit>(dialog, "txtFileName");
    auto& button = Find<QPushButton>(dialog, "cmdExport");
    const auto press = [&] {
        modal_.ExpectBox(QMessageBox::Ok);
        button.click();
        return modal_.texts.back();
    };
    folder.clear();
    EXPECT_EQ(press(), "Please enter a folder to export to.");
    folder.setText(QString::fromStdString(folder_.Path()));
    EXPECT_EQ(press(), "Please enter a file name with extention.");
    EXPECT_TRUE(dialog.isVisible());
    name.setText("Grid.cpp");
    folder.setText("/proc/nowhere");
    EXPECT_NE(press().find("/proc/nowhere"), std::string::npos);
    WriteBytes(folder_.File("file"), "x");
    folder.setText(QString::fromStdString(folder_.File("file")));
    EXPECT_TRUE(press().starts_with("An error has occurred."));
    EXPECT_TRUE(dialog.isVisible());

    // The folder dialog: into a new folder, by keyboard.
    folder.setText(QString::fromStdString(folder_.Path()));
    std::filesystem::create_directory(folder_.File("deep"));
    modal_.Expect([](QWidget& window) {
        EXPECT_EQ(window.objectName(), "fSaveTo");
        auto& folders = Find<QTreeWidget>(window, "dlstDir");
        folders.setCurrentItem(
            folders.findItems("deep", Qt::MatchExactly | Qt::MatchRecursive).last());
        PressKey(folders, Qt::Key_Return);
        RunEvents();
        Find<QPushButton>(window, "cmdOK").click();
    });
    Find<QPushButton>(dialog, "cmdSaveTo").click();
    EXPECT_EQ(folder.text().toStdString(), folder_.File("deep"));
    EXPECT_EQ(press(), "The class has been successfully exported.");
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(ReadBytes(folder_.File("deep/Grid.cpp")), "int x;\r\n");
}

}  // namespace
}  // namespace snippetarium::test
