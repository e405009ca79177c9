#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>
#include <QTreeView>

#include "forms/fIndex.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

/// The panes beside the contents: search, index and bookmarks.
class ListsFormTest : public DesktopFixture {
  protected:
    void SetUp() override { StartProgram(); }

    QAction& Item(const char* name) { return Get<QAction>(name); }
    std::string Selected() {
        return Get<QTreeView>("trVwClass").currentIndex().data().toString().toStdString();
    }
    std::vector<std::string> Found() {
        std::vector<std::string> rows;
        const QAbstractItemModel& model = *Get<QTreeView>("lstVwSearch").model();
        for (int row = 0; row < model.rowCount(); ++row) {
            std::string text;
            for (int column = 0; column < model.columnCount(); ++column)
                text += model.index(row, column).data().toString().toStdString() + "|";
            rows.push_back(text);
        }
        return rows;
    }
    QStringList Titles(const char* side) {
        const auto& tabs = Get<QTabWidget>(side);
        QStringList titles;
        for (int tab = 0; tab < tabs.count(); ++tab)
            titles << tabs.tabText(tab);
        return titles;
    }
    void Enter(const char* control) { PressKey(Get<QWidget>(control), Qt::Key_Return); }
};

TEST_F(ListsFormTest, SearchByEachOptionAndShowTheTopicInTheTree) {
    Item("tbrSearch").trigger();
    EXPECT_TRUE(Get<QLineEdit>("txtSearch").hasFocus());
    // clang-format off
    const struct {
        const char* option;
        const char* entry;
        const char* first;
    } cases[] = {
        {"optnFunction", "Draw777", "Draw777|Grid38|Paint 1|"},
        {"optnCode",     "Draw778", "Draw778|Grid38|Paint 1|"},
        {"optnComment",  "draws 779", "Draw779|Grid38|Paint 1|"},
    };
    // clang-format on
    for (const auto& [option, entry, first] : cases) {
        Get<QRadioButton>(option).setChecked(true);
        Get<QLineEdit>("txtSearch").setText(entry);
        Enter("txtSearch");
        EXPECT_EQ(Found(), std::vector<std::string>{first}) << option;
        EXPECT_TRUE(Get<QPushButton>("cmdSrchDisplay").isEnabled());
    }
    Get<QPushButton>("cmdSrchDisplay").click();
    EXPECT_EQ(Selected(), "Draw779");
    EXPECT_EQ(Get<QTreeView>("lstVwSearch").columnWidth(0), 1200 / 15);
}

TEST_F(ListsFormTest, SearchKeepsItsTopicsWhereAnotherFindsNone) {
    Item("tbrSearch").trigger();
    Get<QRadioButton>("optnFunction").setChecked(true);
    Get<QLineEdit>("txtSearch").setText("Draw77");
    Enter("optnFunction");
    const std::vector<std::string> found = Found();
    EXPECT_EQ(found.size(), 11U);
    for (const char* entry : {"", "Nothing bears this name"}) {
        modal_.ExpectBox(QMessageBox::Ok);
        Get<QLineEdit>("txtSearch").setText(entry);
        Get<QPushButton>("cmdSrchListTopic").click();
        EXPECT_EQ(Found(), found);
    }
    EXPECT_EQ(modal_.texts,
              (std::vector<std::string>{"Please enter search word(s) in the text box.",
                                        "No topics found."}));
    modal_.ExpectBox(QMessageBox::Ok);
    Get<QCheckBox>("chckLanguage").setChecked(true);
    Enter("cmbLanguage");
    EXPECT_EQ(modal_.LastText(), "Please select a language.");
    EXPECT_EQ(Get<QComboBox>("cmbLanguage").itemText(0), "Select a language");
    EXPECT_EQ(Get<QComboBox>("cmbLanguage").count(), 12);
}

TEST_F(ListsFormTest, SearchByDatesAndALanguage) {
    Item("tbrSearch").trigger();
    EXPECT_FALSE(Get<QDateEdit>("dtFrom").isVisible());
    Get<QRadioButton>("optnDate").click();
    EXPECT_TRUE(Get<QDateEdit>("dtFrom").isVisible());
    Get<QDateEdit>("dtFrom").setDate({2024, 2, 1});
    Get<QDateEdit>("dtTo").setDate({2024, 3, 1});
    Enter("chckLanguage");
    const std::size_t all = Found().size();
    EXPECT_GT(all, 300U);
    Get<QCheckBox>("chckLanguage").setChecked(true);
    // All classes are in one language.
    auto& languages = Get<QComboBox>("cmbLanguage");
    modal_.ExpectBox(QMessageBox::Ok);
    languages.setCurrentIndex(languages.findText("Java"));
    Enter("cmbLanguage");
    EXPECT_EQ(modal_.LastText(), "No topics found.");
    languages.setCurrentIndex(languages.findText("Visual Basic"));
    Enter("cmbLanguage");
    EXPECT_EQ(Found().size(), all);
}

TEST_F(ListsFormTest, JumpInTheIndexAsOneTypesAndOpenAWord) {
    Item("tbrIndex").trigger();
    auto& entry = Get<QLineEdit>("txtIndex");
    auto& words = Get<QListView>("lstIndex");
    EXPECT_EQ(words.model()->rowCount(), 50);
    entry.setText("WORD4");
    emit entry.textEdited("WORD4");
    EXPECT_EQ(words.currentIndex().data().toString(), "word4");
    PressKey(entry, Qt::Key_Down);
    EXPECT_NE(words.currentIndex().data().toString(), "word4");
    emit entry.textEdited("word4");
    modal_.Expect([](QWidget& topics) {
        auto& list = Find<QTreeView>(topics, "lstVwTopic");
        EXPECT_GT(list.model()->rowCount(), 10);
        list.setCurrentIndex(list.model()->index(1, 0));
        Find<QPushButton>(topics, "cmdDisplay").click();
    });
    PressKey(entry, Qt::Key_Return);
    EXPECT_TRUE(Selected().starts_with("Draw")) << Selected();
    EXPECT_TRUE(Item("mnuIndexDel").isEnabled());
    modal_.ExpectBox(QMessageBox::Yes);
    Item("mnuIndexDel").trigger();
    EXPECT_EQ(words.model()->rowCount(), 49);
    // At its end the list stays there, and the word before takes the place of the last one.
    words.setCurrentIndex(words.model()->index(48, 0));
    ASSERT_GT(words.verticalScrollBar()->value(), 0);
    modal_.ExpectBox(QMessageBox::Yes);
    Item("mnuIndexDel").trigger();
    EXPECT_EQ(words.currentIndex().row(), 47);
    EXPECT_TRUE(words.viewport()->rect().intersects(words.visualRect(words.currentIndex())));
    const int place = words.verticalScrollBar()->value();
    words.setCurrentIndex({});
    Get<fIndex>("fIndex").Load();
    EXPECT_EQ(words.verticalScrollBar()->value(), place);
}

TEST_F(ListsFormTest, AddShowAndRemoveBookmarks) {
    Item("tbrBookmarks").trigger();
    auto& list = Get<QListWidget>("lstBookmark");
    const int before = list.count();
    Item("tbrSearch").trigger();
    Get<QRadioButton>("optnFunction").setChecked(true);
    Get<QLineEdit>("txtSearch").setText("Draw777");
    Enter("txtSearch");
    Get<QPushButton>("cmdSrchDisplay").click();
    Item("mnuBkmkHideAdd").trigger();
    ASSERT_EQ(list.count(), before + 1);
    EXPECT_EQ(Get<QStatusBar>("StatusBar1").currentMessage(), "Bookmarked.");
    EXPECT_TRUE(list.currentItem()->text().startsWith("Draw777"));
    Get<QTreeView>("trVwClass").setCurrentIndex(Get<QTreeView>("trVwClass").model()->index(0, 0));
    Item("mnuBkmkHideDisplay").trigger();
    EXPECT_EQ(Selected(), "Draw777");
    // What is below takes the place of one that goes.
    Get<QLineEdit>("txtSearch").setText("Draw778");
    Enter("txtSearch");
    Get<QPushButton>("cmdSrchDisplay").click();
    Item("mnuBkmkHideAdd").trigger();
    ASSERT_EQ(list.count(), before + 2);
    list.setCurrentRow(0);
    emit Find<QShortcut>(list, "").activated();
    ASSERT_EQ(list.count(), before + 1);
    EXPECT_EQ(list.currentRow(), 0);
    while (list.count() > 0)
        Item("mnuBkmkHideRemove").trigger();
    EXPECT_FALSE(Item("mnuBkmkHideRemove").isEnabled());
}

TEST_F(ListsFormTest, StandAsTabsAtTheirSideAndComeBackSo) {
    Item("tbrIndex").trigger();
    Item("tbrSearch").trigger();
    EXPECT_EQ(Get<QTabWidget>("tabLeft").count(), 2);
    EXPECT_EQ(Get<QTabWidget>("tabLeft").currentWidget()->objectName(), "fIndex");
    EXPECT_EQ(Get<QTabWidget>("tabRight").count(), 1);
    Item("tbrBookmarks").trigger();
    // Too narrow for three titles: the one in front can be read.
    Get<QSplitter>("paneDock").setSizes({200, 600, 200});
    EXPECT_EQ(Titles("tabLeft"), (QStringList{"", "", "Bookmarks"}));
    Get<QTabWidget>("tabLeft").setCurrentIndex(1);
    EXPECT_EQ(Titles("tabLeft"), (QStringList{"", "Index", ""}));
    Get<QSplitter>("paneDock").setSizes({600, 200, 200});
    EXPECT_EQ(Titles("tabLeft"), (QStringList{"Contents", "Index", "Bookmarks"}));
    Item("tbrBookmarks").trigger();
    Get<QTabWidget>("tabLeft").setCurrentIndex(0);
    EndProgram();
    StartProgram();
    EXPECT_EQ(Get<QTabWidget>("tabLeft").count(), 2);
    EXPECT_EQ(Get<QTabWidget>("tabLeft").currentWidget()->objectName(), "fContents");
    EXPECT_TRUE(Item("tbrSearch").isChecked());
}

}  // namespace
}  // namespace snippetarium::test
