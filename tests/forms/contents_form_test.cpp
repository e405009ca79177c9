#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTreeView>
#include <QTreeWidget>

#include "store/trash.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {
namespace {

class ContentsFormTest : public DesktopFixture {
  protected:
    void SetUp() override { StartProgram(); }

    QTreeView& Tree() { return Get<QTreeView>("trVwClass"); }
    QAction& Item(const char* name) { return Get<QAction>(name); }

    /// The node reached by these captions; invalid where there is none.
    QModelIndex Node(const QStringList& path) {
        QModelIndex at;
        for (const QString& name : path) {
            const QAbstractItemModel& model = *Tree().model();
            QModelIndex next;
            for (int row = 0; row < model.rowCount(at); ++row) {
                if (model.index(row, 0, at).data().toString() == name)
                    next = model.index(row, 0, at);
            }
            if (!next.isValid()) return {};
            at = next;
        }
        return at;
    }
    /// The same, opening each node on the way and selecting the last.
    void Open(const QStringList& path) {
        for (qsizetype depth = 1; depth <= path.size(); ++depth) {
            const QModelIndex node = Node(path.first(depth));
            ASSERT_TRUE(node.isValid()) << path.join("/").toStdString();
            Tree().setCurrentIndex(node);
            if (depth < path.size()) Tree().expand(node);
        }
    }
    void Rename(const QString& name) {
        Tree().edit(Tree().currentIndex());
        auto* editor = Tree().viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->setText(name);
        PressKey(*editor, Qt::Key_Return);
        RunEvents();
    }
};

TEST_F(ContentsFormTest, LoadsChildrenOnceWhenANodeIsOpened) {
    const QModelIndex app = Node({"Paint 0"});
    ASSERT_TRUE(app.isValid());
    EXPECT_EQ(Tree().model()->rowCount(app), 1);
    EXPECT_EQ(app.model()->index(0, 0, app).data(), "Loading...");
    Open({"Paint 0", "Grid0", "Draw1"});
    EXPECT_EQ(Tree().model()->rowCount(Node({"Paint 0"})), 20);
    EXPECT_EQ(Tree().model()->rowCount(Node({"Paint 0", "Grid0"})), 19);
    Tree().collapse(Node({"Paint 0"}));
    Tree().expand(Node({"Paint 0"}));
    EXPECT_EQ(Tree().model()->rowCount(Node({"Paint 0"})), 20);
    EXPECT_TRUE(Node({"Paint 0", "Grid0", "Draw1"}).data(Qt::DecorationRole).isValid());
}

TEST_F(ContentsFormTest, GoesToTheFirstNodeAtTheFirstArrowKey) {
    for (const int key : {Qt::Key_Down, Qt::Key_Up}) {
        Tree().setCurrentIndex({});
        Get<QLineEdit>("txtFilter").setFocus();
        Tree().setFocus();
        PressKey(Tree(), key);
        EXPECT_EQ(Tree().currentIndex(), Tree().model()->index(0, 0));
        EXPECT_TRUE(Tree().selectionModel()->isSelected(Tree().currentIndex()));
        EXPECT_FALSE(Get<QPlainTextEdit>("txtPage").toPlainText().isEmpty());
    }
    PressKey(Tree(), Qt::Key_Down);
    EXPECT_EQ(Tree().currentIndex(), Tree().model()->index(1, 0));
}

TEST_F(ContentsFormTest, RenamesInPlaceAndSaysWhyNot) {
    Open({"Paint 0", "Grid0", "Draw1"});
    Rename("Render<b>");
    EXPECT_TRUE(Node({"Paint 0", "Grid0", "Render<b>"}).isValid());
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), "fCode") << "the key that ended the edit opened the editor";
    EXPECT_TRUE(Get<QLabel>("lblStatusNode").toolTip().endsWith("Render<b>"));
    modal_.ExpectBox(QMessageBox::Ok);
    Rename(QString(256, 'x'));
    EXPECT_EQ(modal_.LastText(), "The name you specified is too long (over 255 characters).");
    modal_.ExpectBox(QMessageBox::Ok);
    Rename("Draw2");
    Rename("");
    EXPECT_TRUE(Node({"Paint 0", "Grid0", "Render<b>"}).isValid());
    EXPECT_FALSE(
        Tree().model()->flags(Node({"Application Undefined"})).testFlag(Qt::ItemIsEditable));
}

TEST_F(ContentsFormTest, DeletesAfterAQuestionAndTakesItBack) {
    Open({"Paint 1", "Grid20"});
    modal_.ExpectBox(QMessageBox::No);
    Item("mnuFileDelete").trigger();
    EXPECT_TRUE(Node({"Paint 1", "Grid20"}).isValid());
    modal_.ExpectBox(QMessageBox::Yes);
    Item("mnuFileDelete").trigger();
    EXPECT_FALSE(Node({"Paint 1", "Grid20"}).isValid());
    EXPECT_EQ(Tree().currentIndex(), Node({"Paint 1", "Grid21"}));
    EXPECT_TRUE(Get<QLabel>("lblStatusNode").toolTip().endsWith("Grid21"));
    EXPECT_TRUE(Tree().isExpanded(Node({"Paint 1"})));
    EXPECT_TRUE(Item("actUndoDelete").isEnabled());
    Item("actUndoDelete").trigger();
    EXPECT_EQ(Tree().currentIndex(), Node({"Paint 1", "Grid20"}));
    EXPECT_FALSE(Item("actUndoDelete").isEnabled());
}

TEST_F(ContentsFormTest, ShowsTheTrashFromWhichNodesComeBack) {
    Open({"Paint 0", "Grid1"});
    modal_.ExpectBox(QMessageBox::Yes);
    Item("mnuFileDelete").trigger();
    modal_.Expect([this](QWidget& trash) {
        const auto& list = Find<QTreeWidget>(trash, "lstVwTrash");
        ASSERT_EQ(list.topLevelItemCount(), 1);
        EXPECT_EQ(list.topLevelItem(0)->text(0), "Grid1");
        EXPECT_EQ(list.topLevelItem(0)->text(1), "Paint 0");
        Find<QPushButton>(trash, "cmdRestore").click();
        EXPECT_EQ(list.topLevelItemCount(), 0);
        EXPECT_FALSE(Find<QPushButton>(trash, "cmdRestore").isEnabled());
        Find<QPushButton>(trash, "cmdClose").click();
    });
    Item("actTrash").trigger();
    EXPECT_EQ(Tree().currentIndex(), Node({"Paint 0", "Grid1"}));
    EXPECT_FALSE(Item("actUndoDelete").isEnabled());
    EXPECT_TRUE(ListTrash(*db_).empty());
}

TEST_F(ContentsFormTest, FiltersByNameAndComesBack) {
    Open({"Paint 0", "Grid1"});
    auto& filter = Get<QLineEdit>("txtFilter");
    filter.setText("dRAW99");
    WaitUntil([&] { return !Node({"Paint 0", "Grid1"}).isValid(); });
    EXPECT_TRUE(Node({"Paint 0", "Grid4", "Draw99"}).isValid());
    EXPECT_TRUE(Tree().isExpanded(Node({"Paint 0", "Grid4"})));
    EXPECT_FALSE(Node({"Paint 0", "Grid4", "Draw98"}).isValid());
    filter.clear();
    WaitUntil([&] { return Node({"Application Undefined"}).isValid(); });
    EXPECT_TRUE(Node({"Paint 0", "Grid1"}).isValid());
}

TEST_F(ContentsFormTest, OffersTheCommandsOfTheNodeUnderThePointer) {
    const auto captions = [&](const QStringList& path) {
        if (!path.isEmpty()) Open(path);
        const QModelIndex node = path.isEmpty() ? QModelIndex() : Node(path);
        const QPoint at = node.isValid() ? Tree().visualRect(node).center() : QPoint(20, 5000);
        emit Tree().customContextMenuRequested(at);
        QString all;
        for (const QAction* action : Get<QMenu>("mnuClassHide").actions()) {
            if (action->isVisible() && !action->isSeparator()) all += action->text() + "|";
        }
        Get<QMenu>("mnuClassHide").close();
        RunEvents();
        return all.remove('&').toStdString();
    };
    EXPECT_EQ(captions({"Paint 0"}),
              "Edit Application|Export Application|Delete Application|Rename|Add New Class|"
              "Add Existing Class|");
    EXPECT_EQ(captions({"Paint 0", "Grid0"}),
              "Edit Class/Module|Export Class/Module|Delete Class/Module|Rename|Add New Procedure|"
              "Add Existing Procedure|");
    EXPECT_EQ(captions({}), "Add New Application|");
    // The keys of items that were hidden work again.
    EXPECT_TRUE(Item("mnuClassHideDelete").isVisible());
}

}  // namespace
}  // namespace snippetarium::test
