#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include "editors/owner_details.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

/// The commands that open the small editors and copy what is there, in the main window.
class ListCommandsTest : public DesktopFixture {
  protected:
    void SetUp() override { StartProgram(); }

    QAction& Item(const char* name) { return Get<QAction>(name); }
    QTreeView& Tree() { return Get<QTreeView>("trVwClass"); }
    std::string Selected() { return Tree().currentIndex().data().toString().toStdString(); }
    /// Selects nodes of these names one below the other.
    void GoTo(const std::vector<const char*>& names) {
        QModelIndex parent;
        for (const char* name : names) {
            if (parent.isValid()) Tree().expand(parent);
            const auto* const model = Tree().model();
            QModelIndex found;
            for (int row = 0; row < model->rowCount(parent); ++row) {
                if (model->index(row, 0, parent).data() == name)
                    found = model->index(row, 0, parent);
            }
            ASSERT_TRUE(found.isValid()) << name;
            parent = found;
        }
        Tree().setCurrentIndex(parent);
    }
    /// What is done in the next dialog, other than by the driver: the boxes that come are for it.
    void InDialog(const std::function<void(QWidget&)>& action) {
        modal_.Expect([action](QWidget& dialog) {
            QTimer::singleShot(0, &dialog, [action, &dialog] { action(dialog); });
        });
    }
    static void Filter(QWidget& dialog, const QString& text) {
        Find<QLineEdit>(dialog, "txtFilter").setText(text);
        const auto& tree = Find<QTreeView>(dialog, "trVwSource");
        WaitUntil([&] { return tree.model()->rowCount() == 1; });
    }
    /// The last node of a branch that is filtered down to one, as far as it is open. To show the
    /// placeholder below a closed node the view would open the node, which takes the placeholder
    /// away while it is being selected.
    static void SelectDeepest(QWidget& dialog) {
        auto& tree = Find<QTreeView>(dialog, "trVwSource");
        QModelIndex index = tree.model()->index(0, 0);
        while (tree.isExpanded(index))
            index = tree.model()->index(0, 0, index);
        tree.setCurrentIndex(index);
    }
    std::vector<std::string> Select(const std::string& statement) {
        std::vector<std::string> rows;
        for (Recordset row = db_->GetConnection().Execute(statement); !row.EndOfFile();
             row.MoveNext())
            rows.push_back(row[std::size_t{0}].Text());
        return rows;
    }
};

TEST_F(ListCommandsTest, AClassIsCopiedIntoTheSelectedApplicationUnderANameOfItsOwn) {
    GoTo({"Paint 2"});
    InDialog([this](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "fAddClass");
        modal_.ExpectBox(QMessageBox::Ok);
        Find<QPushButton>(dialog, "cmdOK").click();
        EXPECT_EQ(modal_.LastText(), "Please select a class/module.");
        Filter(dialog, "Draw777");
        SelectDeepest(dialog);
        auto& name = Find<QLineEdit>(dialog, "txtName");
        EXPECT_EQ(name.text(), "Grid38") << "the class of the procedure";
        for (const auto& [entry, message] :
             {std::pair{QString(" "), "Please enter a name."},
              std::pair{QString(256, 'x'),
                        "The name you specified is too long (over 255 characters)."},
              std::pair{QString("a\tb"),
                        "A name cannot hold a line break, a tab or another control character."}}) {
            name.setText(entry);
            modal_.ExpectBox(QMessageBox::Ok);
            Find<QPushButton>(dialog, "cmdOK").click();
            EXPECT_EQ(modal_.LastText(), message);
        }
        name.setText("It's \"Grid\"");
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Item("mnuFileExist").trigger();
    EXPECT_EQ(Selected(), "It's \"Grid\"");
    EXPECT_EQ(Tree().currentIndex().parent().data(), "Paint 2");
    EXPECT_EQ(Tree().model()->rowCount(Tree().currentIndex()), 1) << "not loaded yet";
    Tree().expand(Tree().currentIndex());
    EXPECT_EQ(Tree().model()->rowCount(Tree().currentIndex()), 20);

    // Beside the first copy the name is taken, so another is proposed.
    GoTo({"Paint 2"});
    InDialog([](QWidget& dialog) {
        Filter(dialog, "It's");
        SelectDeepest(dialog);
        EXPECT_EQ(Find<QLineEdit>(dialog, "txtName").text(), "It's \"Grid\" (2)");
        Find<QPushButton>(dialog, "cmdCancel").click();
    });
    Item("mnuClassHideAddExist").trigger();
    EXPECT_EQ(Selected(), "Paint 2");
}

TEST_F(ListCommandsTest, AProcedureIsCopiedWithAllThatItHasAndItsMarker) {
    const std::int32_t codeID =
        ScalarLong(*db_, "SELECT codeID FROM tblCode WHERE codeName = 'Draw779'");
    SaveDetailChanges(*db_, LoadNoiseWords(*db_), {OwnerKind::Procedure, codeID},
                      {.authors = std::vector<AuthorName>{{"Ann", "", "Lee"}},
                       .dates = std::vector<std::string>{"2001-03-14"},
                       .keywords = KeywordEntry{"leap, year", 2}});
    GoTo({"Paint 1", "Grid38", "Draw778"});
    const std::string classText =
        Select("SELECT classDI FROM tblClass WHERE className = 'Grid38'").front();
    InDialog([this](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "fAddCode");
        Filter(dialog, "Draw779");
        modal_.ExpectBox(QMessageBox::Ok);
        Find<QPushButton>(dialog, "cmdOK").click();
        EXPECT_EQ(modal_.LastText(), "Please select a subroutine.");
        SelectDeepest(dialog);
        auto& name = Find<QLineEdit>(dialog, "txtName");
        EXPECT_EQ(name.text(), "Draw779 (2)");
        name.setText("dRAW779");
        modal_.ExpectBox(QMessageBox::Ok);
        Find<QPushButton>(dialog, "cmdOK").click();
        EXPECT_TRUE(modal_.LastText().starts_with("A procedure with the name you specified"));
        name.setText("Redraw");
        PressKey(name, Qt::Key_Return);
    });
    Item("mnuClassHideAddExist").trigger();
    EXPECT_EQ(Selected(), "Redraw");
    EXPECT_TRUE(Get<QPlainTextEdit>("txtPage").toPlainText().contains("779"));
    const Owner copy{OwnerKind::Procedure,
                     ScalarLong(*db_, "SELECT codeID FROM tblCode WHERE codeName = 'Redraw'")};
    const OwnerDetails details = LoadOwnerDetails(*db_, copy);
    ASSERT_EQ(details.authors.size(), 1U);
    EXPECT_EQ(details.dates, std::vector<std::string>{"2001-03-14"});
    EXPECT_EQ(details.keywords->searchWords, "leap year");
    const std::string id = std::to_string(copy.id);
    for (const char* column : {"code", "codeComment", "classID"}) {
        EXPECT_EQ(
            Select(std::string("SELECT count(DISTINCT ") + column +
                   ") FROM tblCode WHERE codeID IN (" + id + "," + std::to_string(codeID) + ")"),
            std::vector<std::string>{"1"})
            << column;
    }
    EXPECT_EQ(Select("SELECT languageID FROM tblCode_Link_Language WHERE codeID = " + id),
              Select("SELECT languageID FROM tblCode_Link_Language WHERE codeID = " +
                     std::to_string(codeID)));
    const std::string now =
        Select("SELECT classDI FROM tblClass WHERE className = 'Grid38'").front();
    EXPECT_TRUE(now.starts_with(classText));
    EXPECT_NE(now.find("Redraw", classText.size()), std::string::npos);
}

TEST_F(ListCommandsTest, ASearchWordIsEditedInTheIndexWhichKeepsItsPlace) {
    SaveDetailChanges(*db_, LoadNoiseWords(*db_), {OwnerKind::Class, 2},
                      {.keywords = KeywordEntry{"zebra, yak", 2}});
    Item("tbrIndex").trigger();
    auto& index = Get<QListView>("lstIndex");
    WaitUntil([&] { return Get<QLabel>("lblIndex").isHidden(); });
    InDialog([](QWidget& dialog) {
        Find<QLineEdit>(dialog, "txtLanguage").setText("Zig");
        Find<QPushButton>(dialog, "cmdAdd").click();
        Find<QPushButton>(dialog, "cmdClose").click();
    });
    Item("mnuEditLanguage").trigger();  // after it all lists are read anew
    Get<QLineEdit>("txtIndex").setText("zebra");
    emit Get<QLineEdit>("txtIndex").textEdited("zebra");
    ASSERT_EQ(index.currentIndex().data(), "zebra");
    GoTo({"Paint 1"});
    InDialog([](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "fEditSearchWord");
        Find<QLineEdit>(dialog, "txtWord").setText("quagga");
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Item("mnuIndexEdit").trigger();
    EXPECT_EQ(index.currentIndex().data(), "quagga");
    EXPECT_EQ(Selected(), "Paint 1");

    InDialog([this](QWidget& dialog) {
        Find<QLineEdit>(dialog, "txtWord").setText("Yak");
        modal_.ExpectBox(QMessageBox::Yes);
        Find<QPushButton>(dialog, "cmdAdd").click();
        Find<QPushButton>(dialog, "cmdClose").click();
    });
    Item("mnuEditNoise").trigger();
    EXPECT_EQ(index.currentIndex().data(), "quagga");
    EXPECT_EQ(Select("SELECT searchWord FROM tblSearchWord WHERE searchWord = 'yak'").size(), 0U);
}

}  // namespace
}  // namespace snippetarium::test
