#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <algorithm>

#include "editors/owner_details.h"
#include "forms/fPage.h"
#include "store/settings.h"
#include "tests/forms/editor_fixture.h"

namespace snippetarium::test {
namespace {

class EditorFormsTest : public EditorFixture {
  protected:
    QString PageText() { return Get<fPage>("fPage").Text().toPlainText(); }
};

TEST_F(EditorFormsTest, ShowsAProcedureAndStoresWhatWasChangedWhileTheWindowStays) {
    EditorWindow& editor = Open(kProcedure);
    EXPECT_EQ(editor.objectName(), "fCode");
    EXPECT_FALSE(editor.isModal());
    EXPECT_TRUE(editor.screen()->geometry().contains(editor.geometry()));
    EXPECT_EQ(editor.windowTitle(), "Edit Procedure - Draw1[*]");
    EXPECT_EQ(Find<QComboBox>(editor, "cmbApplication").currentText(), "Paint 0");
    EXPECT_EQ(Find<QComboBox>(editor, "cmbClass").currentText(), "Grid0");
    EXPECT_EQ(Find<QComboBox>(editor, "cmbLanguage").currentText(), "Java");
    EXPECT_EQ(Find<QLineEdit>(editor, "txtKeywords").text(), "word2");
    EXPECT_EQ(Find<QLineEdit>(editor, "txtAuthors").text(), "Bob M O'Hara");
    EXPECT_EQ(Find<QLineEdit>(editor, "txtDates").text(), "2002-12-01 08:30:00");
    EXPECT_TRUE(Text(editor, "txtCode").startsWith("Sub Draw1()"));

    SetLine(editor, "txtName", "Render");
    SetText(editor, "txtCode", "void Render() {\n}");
    WaitUntil([&] { return editor.isWindowModified(); });
    emit editor.findChild<QShortcut*>()->activated();
    RunEvents();
    EXPECT_EQ(CodeOf(1), "void Render() {\r\n}");
    EXPECT_FALSE(editor.isWindowModified());
    EXPECT_TRUE(editor.isVisible());
    EXPECT_EQ(Get<fContents>("fContents").Selection(), kProcedure);
    EXPECT_EQ(Get<QTreeView>("trVwClass").currentIndex().data(), "Render");
    EXPECT_TRUE(PageText().contains("void Render()"));
    // What was typed can still be taken back in the editor.
    Find<QPlainTextEdit>(editor, "txtCode").undo();
    EXPECT_TRUE(Text(editor, "txtCode").startsWith("Sub Draw1()"));
    Click(editor, "cmdOK");
    EXPECT_TRUE(Editors().empty());
    EXPECT_EQ(CodeOf(1).substr(0, 11), "Sub Draw1()");
}

TEST_F(EditorFormsTest, TakesNothingForAChangeThatItsControlsCannotShow) {
    Execute(
        "UPDATE tblCode SET codeName = 'a' || char(13, 10) || 'b', codeComment = char(13) || 'c', "
        "code = 'x' || char(160, 8233, 13, 10) || 'y' WHERE codeID = 1;"
        "UPDATE tblClass SET languageID = 99, classPathInApp = 'a' || char(9) || 'b' "
        "WHERE classID = 2;"
        "DELETE FROM tblCode_Link_Language WHERE codeID = 1;");
    for (const NodeIDs& node : {kProcedure, kClass}) {
        Open(node).close();
        RunEvents();
        EXPECT_TRUE(Editors().empty());
    }
}

TEST_F(EditorFormsTest, ShowsPathsAsThePlatformWritesThemAndStoresThemAsTheCatalogueDoes) {
    const struct {
        NodeIDs node;
        std::string column;
    } paths[] = {{kApplication, "appPath FROM tblApplication WHERE appID = 2"},
                 {kClass, "classPathInApp FROM tblClass WHERE classID = 2"}};
    for (const auto& [node, column] : paths) {
        const auto stored = [&, what = "SELECT " + column] {
            return db_->GetConnection().Execute(what)[std::size_t{0}].Text();
        };
        const std::string table = column.substr(column.find("FROM ") + 5);
        const std::string set = " SET " + column.substr(0, column.find(' ')) + " = 'src\\a/b'";
        Execute("UPDATE " + table.substr(0, table.find(' ')) + set + table.substr(table.find(' ')));
        Open(node).close();
        RunEvents();
        EXPECT_TRUE(Editors().empty()) << "what is shown otherwise is no change";
        EditorWindow& editor = Open(node);
        EXPECT_EQ(Find<QLineEdit>(editor, "txtPath").text(), "src/a/b");
        EXPECT_TRUE(Get<QLabel>("lblHeading").text().contains("src/a/b"));
        SetLine(editor, "txtPath", "src/c");
        if (node == kClass) ExpectNoKeywords();
        Click(editor, "cmdSave");
        EXPECT_EQ(stored(), "src\\c");
        editor.close();
        RunEvents();
    }
}

TEST_F(EditorFormsTest, HasTheSizeThatOneOfItsKindHadWhenItWasClosed) {
    const auto sizeOf = [this](const NodeIDs& node) {
        EditorWindow& editor = Open(node);
        const QSize size = editor.size();
        editor.close();
        RunEvents();
        return size;
    };
    const QSize designed = sizeOf(kClass);
    EditorWindow& editor = Open(kProcedure);
    editor.resize(623, 471);
    editor.close();
    RunEvents();
    EndProgram();
    StartProgram();
    EXPECT_EQ(sizeOf(kProcedure), QSize(623, 471));
    EXPECT_EQ(sizeOf(kClass), designed) << "another kind";
    for (const char* wrong : {"", "9x", "-600x-400", "large"}) {
        StoreSetting(*db_, "fClass.size", wrong);
        EXPECT_EQ(sizeOf(kClass), designed) << wrong;
    }
    StoreSetting(*db_, "fClass.size", "90000x90000");
    const QSize screen = window_->screen()->availableSize();
    const QSize large = sizeOf(kClass);
    EXPECT_TRUE(large.width() < screen.width() && large.height() < screen.height());
}

TEST_F(EditorFormsTest, StaysOpenWithWhatWasTypedWhereItIsRefused) {
    struct Refusal {
        NodeIDs node;
        QString name;
        const char* message;
    };
    const Refusal refusals[] = {
        {kApplication, "", "name"},         {kApplication, "Paint 1", "already exists"},
        {kClass, QString(256, 'x'), "255"}, {kClass, "grid1", "already exists"},
        {kProcedure, " ", "name"},          {kProcedure, "DRAW2", "already exists"},
    };
    for (const Refusal& row : refusals) {
        EditorWindow& editor = Open(row.node);
        SetLine(editor, "txtName", row.name);
        editor.activateWindow();
        Find<QPushButton>(editor, "cmdOK").setFocus();
        modal_.ExpectBox(QMessageBox::Ok);
        Click(editor, "cmdOK");
        EXPECT_EQ(editor.focusWidget()->objectName(), "txtName");
        EXPECT_NE(modal_.LastText().find(row.message), std::string::npos) << modal_.LastText();
        EXPECT_EQ(modal_.titles.back(), "Snippetarium Information");
        ASSERT_TRUE(editor.isVisible());
        EXPECT_EQ(Find<QLineEdit>(editor, "txtName").text(), row.name);
        modal_.ExpectBox(QMessageBox::No);
        editor.close();
        RunEvents();
    }
}

TEST_F(EditorFormsTest, MakesNewRecordsWhereTheSelectionIsAndSelectsThem) {
    Trigger("mnuFileNewApp");
    EditorWindow* editor = &Editor();
    EXPECT_EQ(editor->windowTitle(), "New Application[*]");
    SetLine(*editor, "txtName", "Harbour");
    SetLine(*editor, "txtPath", "/home/ann/harbour");
    SetText(*editor, "txtComment", "tides\nand ships");
    ExpectNoKeywords();
    Click(*editor, "cmdOK");
    const NodeIDs app = Get<fContents>("fContents").Selection();
    EXPECT_EQ(AppNameByID(*db_, app.appID), "Harbour");
    EXPECT_EQ(ApplicationRSByID(*db_, app.appID)["appComment"].Text(), "tides\r\nand ships");

    Trigger("mnuFileNewClass");
    editor = &Editor();
    EXPECT_EQ(Find<QComboBox>(*editor, "cmbApplication").currentText(), "Harbour");
    SetLine(*editor, "txtName", "Tides");
    Find<QComboBox>(*editor, "cmbLanguage").setCurrentText("Visual Basic");
    SetLine(*editor, "txtPath", "src\\Tides.bas");
    SetText(*editor, "txtText", "Option Explicit");
    ExpectNoKeywords();
    Click(*editor, "cmdOK");
    const NodeIDs cls = Get<fContents>("fContents").Selection();
    EXPECT_EQ(ClassNameByID(*db_, cls.classID), "Tides");
    EXPECT_EQ(AppIDByClassID(*db_, cls.classID), app.appID);

    Trigger("mnuFileNewCode");
    editor = &Editor();
    EXPECT_EQ(Find<QComboBox>(*editor, "cmbClass").currentText(), "Tides");
    EXPECT_EQ(Find<QComboBox>(*editor, "cmbLanguage").currentText(), "Visual Basic");
    SetText(*editor, "txtCode", "Private Sub High()\nEnd Sub");
    WaitUntil([&] { return !Find<QLineEdit>(*editor, "txtName").text().isEmpty(); });
    ExpectNoKeywords();
    Click(*editor, "cmdOK");
    const NodeIDs code = Get<fContents>("fContents").Selection();
    EXPECT_EQ(CodeByID(*db_, code.codeID)["codeName"].Text(), "High()");
    // The class's text says where it stands.
    EXPECT_NE(ClassDIByClassID(*db_, cls.classID).find("High()"), std::string::npos);
}

TEST_F(EditorFormsTest, ProposesANameOnlyWhileTheUserHasTypedNone) {
    Select(kClass);
    Trigger("mnuFileNewCode");
    EditorWindow& editor = Editor();
    auto& name = Find<QLineEdit>(editor, "txtName");
    Find<QComboBox>(editor, "cmbLanguage").setCurrentText("Visual Basic");
    SetText(editor, "txtCode", "Sub One()\nEnd Sub");
    WaitUntil([&] { return name.text() == "One()"; });
    SetText(editor, "txtCode", "Sub Two()\nEnd Sub");
    WaitUntil([&] { return name.text() == "Two()"; });
    name.setText("Mine");
    SetText(editor, "txtCode", "Sub Three()\nEnd Sub");
    WaitUntil([&] { return editor.windowTitle().contains("Mine"); });
    EXPECT_EQ(name.text(), "Mine");
    modal_.ExpectBox(QMessageBox::No);
    editor.close();
}

TEST_F(EditorFormsTest, GuessesTheLanguageOfWhatIsPastedOrDroppedUntilTheUserHasChosenOne) {
    constexpr const char* kScript = "function area(x) {\n    var y = x === 2;\n    return y;\n}\n";
    const std::string file = folder_.File("area");
    WriteBytes(file, kScript);
    for (const bool isFile : {false, true}) {
        for (const bool hasChosen : {false, true}) {
            Select(kClass);
            Trigger("mnuFileNewCode");
            EditorWindow& editor = Editor();
            auto& box = Find<QComboBox>(editor, "cmbLanguage");
            if (hasChosen) {
                box.setCurrentText("C#");
                emit box.activated(box.currentIndex());
            }
            auto* const data = new QMimeData;
            if (isFile) {
                data->setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
            } else {
                data->setText(kScript);
            }
            QApplication::clipboard()->setMimeData(data);
            Find<QPlainTextEdit>(editor, "txtCode").paste();
            RunEvents();
            EXPECT_EQ(box.currentText(), hasChosen ? "C#" : "JavaScript") << isFile;
            modal_.ExpectBox(QMessageBox::No);
            editor.close();
            RunEvents();
        }
    }
}

TEST_F(EditorFormsTest, TakesInADroppedFileInItsEncodingAfterAQuestion) {
    EditorWindow& editor = Open(kProcedure);
    auto& code = Find<QPlainTextEdit>(editor, "txtCode");
    const auto drop = [&](const std::string& path) {
        auto* const data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        QApplication::clipboard()->setMimeData(data);
        code.paste();
        RunEvents();
    };
    TemporaryFolder sources;
    WriteBytes(sources.File("x.bas"),
               "' Gr\xFC\xDF"
               "e\r\n");
    modal_.ExpectBox(QMessageBox::No);
    drop(sources.File("x.bas"));
    EXPECT_TRUE(code.toPlainText().startsWith("Sub Draw1()"));
    modal_.ExpectBox(QMessageBox::Yes);
    drop(sources.File("x.bas"));
    EXPECT_EQ(code.toPlainText().toStdString(), "' Grüße\n");
    code.undo();
    EXPECT_TRUE(code.toPlainText().startsWith("Sub Draw1()"));
    modal_.ExpectBox(QMessageBox::Ok);
    drop(sources.Path());
    WriteBytes(sources.File("large"), std::string(1'000'001, 'x'));
    modal_.ExpectBox(QMessageBox::Ok);
    drop(sources.File("large"));
    EXPECT_TRUE(code.toPlainText().startsWith("Sub Draw1()"));
}

TEST_F(EditorFormsTest, HasOneWindowForARecordAndManyForOthers) {
    EditorWindow& first = Open(kProcedure);
    SetLine(first, "txtName", "Typed");
    Trigger("mnuEditCode");
    EXPECT_EQ(&Editor(), &first);
    EXPECT_EQ(Find<QLineEdit>(first, "txtName").text(), "Typed");
    Trigger("mnuEditClass");
    Trigger("mnuEditApp");
    Trigger("mnuEditHideEdit");
    EXPECT_EQ(Editors().size(), 3U);
    Trigger("mnuFileNewCode");
    Trigger("mnuFileNewCode");
    EXPECT_EQ(Editors().size(), 5U);
    SetLine(first, "txtName", "Draw1");
}

TEST_F(EditorFormsTest, SaysWhyNothingIsOpened) {
    struct Refusal {
        NodeIDs selection;
        const char* item;
        const char* message;
    };
    const Refusal refusals[] = {
        {{}, "mnuEditApp", "Please select an application."},
        {{}, "mnuEditClass", "Please select a class/module."},
        {{}, "mnuEditCode", "Please select a subroutine."},
        {{1, 0, 0}, "mnuEditApp", "You cannot view or edit this application."},
        {{1, 1, 0}, "mnuEditClass", "You cannot view or edit this class."},
        {{1, 1, 0}, "mnuClassHideEdit", "You cannot view or edit this class."},
    };
    for (const Refusal& row : refusals) {
        if (row.selection != NodeIDs{}) Select(row.selection);
        modal_.ExpectBox(QMessageBox::Ok);
        Trigger(row.item);
        EXPECT_EQ(modal_.LastText(), row.message);
        EXPECT_TRUE(Editors().empty());
    }
}

TEST_F(EditorFormsTest, ShowsARecordInTheTreeThoughALaterStepFailed) {
    Trigger("mnuFileNewApp");
    EditorWindow& editor = Editor();
    SetLine(editor, "txtName", "Harbour");
    editor.Editor().Details().dates = {"2031-03-14"};
    Execute("CREATE TRIGGER refuse BEFORE INSERT ON tblDate BEGIN SELECT RAISE(ABORT, ''); END");
    modal_.ExpectBox(QMessageBox::Ok);
    EXPECT_FALSE(editor.Save());
    const NodeIDs node = Get<fContents>("fContents").Selection();
    EXPECT_EQ(AppNameByID(*db_, node.appID), "Harbour");
    EXPECT_TRUE(editor.windowTitle().startsWith("Edit Application - Harbour"));
    Execute("DROP TRIGGER refuse");
    ExpectNoKeywords();
    EXPECT_TRUE(editor.Save());
    EXPECT_EQ(Get<fContents>("fContents").Selection(), node);
}

TEST_F(EditorFormsTest, AddsNewBelowTheNodeUnderThePointer) {
    const auto captionAt = [&](const NodeIDs& node) {
        auto& tree = Get<QTreeView>("trVwClass");
        if (node != NodeIDs{}) Select(node);
        const QPoint at =
            node == NodeIDs{} ? QPoint(20, 5000) : tree.visualRect(tree.currentIndex()).center();
        emit tree.customContextMenuRequested(at);
        Get<QMenu>("mnuClassHide").close();
        RunEvents();
        Trigger("mnuClassHideAdd");
        const std::string title = Editor().windowTitle().remove("[*]").toStdString();
        Editor().close();
        RunEvents();
        return title;
    };
    EXPECT_EQ(captionAt(kApplication), "New Class");
    EXPECT_EQ(captionAt(kProcedure), "New Procedure");
    EXPECT_EQ(captionAt({}), "New Application");
}

TEST_F(EditorFormsTest, MovesAProcedureToAClassOfAnotherApplication) {
    EditorWindow& editor = Open(kProcedure);
    Find<QComboBox>(editor, "cmbApplication").setCurrentText("Paint 1");
    auto& box = Find<QComboBox>(editor, "cmbClass");
    EXPECT_NE(box.currentText(), "Grid0");
    box.setCurrentText("Grid25");
    Click(editor, "cmdSave");
    const std::int32_t classID = CodeByID(*db_, 1)["classID"].Long();
    EXPECT_EQ(ClassNameByID(*db_, classID), "Grid25");
    EXPECT_EQ(Get<fContents>("fContents").Selection(),
              (NodeIDs{AppIDByClassID(*db_, classID), classID, 1}));
    EXPECT_FALSE(Get<fPage>("fPage").History().CanGoForward());
}

TEST_F(EditorFormsTest, LeadsTheTabKeyThroughAllControlsInTheirOrder) {
    const std::pair<NodeIDs, const char*> orders[] = {
        {kApplication, "txtName txtPath cmdPath txtVersion txtComment "},
        {kClass, "txtName cmbApplication cmbLanguage cmdLanguage txtPath txtComment txtText "},
        {kProcedure, "txtName cmbApplication cmbLanguage cmdLanguage cmbClass txtComment txtCode "},
    };
    for (const auto& [node, order] : orders) {
        EditorWindow& editor = Open(node);
        std::string found;
        const QWidget* const first = &Find<QLineEdit>(editor, "txtName");
        const QWidget* control = first;
        do {
            const bool isStop = control->focusPolicy() & Qt::TabFocus;
            if (isStop && control->isVisible() && !control->objectName().startsWith("qt_"))
                found += control->objectName().toStdString() + " ";
            control = control->nextInFocusChain();
        } while (control != first);
        EXPECT_EQ(found, std::string(order) +
                             "txtKeywords cmdKeywords txtAuthors cmdAuthors "
                             "txtDates cmdDates cmdSave cmdOK cmdCancel cmdHelp ");
        editor.close();
        RunEvents();
    }
}

TEST_F(EditorFormsTest, StoresKeywordsAuthorsAndDatesWithTheRest) {
    EditorWindow& editor = Open(kClass);
    modal_.Expect([](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), "fKeywords");
        Find<QPlainTextEdit>(dialog, "txtKeywords").setPlainText("raster view");
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Click(editor, "cmdKeywords");
    modal_.Expect([](QWidget& dialog) {
        Find<QLineEdit>(dialog, "txtFirst").setText("Eva");
        Find<QLineEdit>(dialog, "txtLast").setText("Berg");
        Find<QPushButton>(dialog, "cmdAdd").click();
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Click(editor, "cmdAuthors");
    modal_.Expect([](QWidget& dialog) {
        Find<QLineEdit>(dialog, "txtDate").setText("15.03.2001");
        Find<QPushButton>(dialog, "cmdAdd").click();
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Click(editor, "cmdDates");
    const std::string dates = Find<QLineEdit>(editor, "txtDates").text().toStdString();
    EXPECT_NE(dates.find("2001-03-15"), std::string::npos) << dates;
    modal_.Expect([](QWidget& dialog) { dialog.close(); });
    Click(editor, "cmdDates");
    WaitUntil([&] { return editor.isWindowModified(); });
    Click(editor, "cmdOK");
    const OwnerDetails stored = LoadOwnerDetails(*db_, {OwnerKind::Class, 2});
    ASSERT_TRUE(stored.keywords.has_value());
    EXPECT_EQ(stored.keywords->searchWords, "raster view");
    EXPECT_EQ(stored.authors.back().name.last, "Berg");
    EXPECT_NE(std::ranges::find(stored.dates, "2001-03-15"), stored.dates.end());
    // The index has the new words when there is time.
    EXPECT_TRUE(Get<QLabel>("lblHeading").text().contains("raster"));
}

TEST_F(EditorFormsTest, OffersToAddKeywordsAndStoresThemBeforeItCloses) {
    Execute("UPDATE tblCode SET keywordID = NULL WHERE codeID = 1");
    EditorWindow& editor = Open(kProcedure);
    SetText(editor, "txtComment", "draws");
    modal_.ExpectBox(QMessageBox::Yes);
    modal_.Expect([](QWidget& dialog) {
        Find<QPlainTextEdit>(dialog, "txtKeywords").setPlainText("brush");
        Find<QPushButton>(dialog, "cmdOK").click();
    });
    Click(editor, "cmdOK");
    EXPECT_TRUE(Editors().empty());
    const OwnerDetails stored = LoadOwnerDetails(*db_, {OwnerKind::Procedure, 1});
    ASSERT_TRUE(stored.keywords.has_value());
    EXPECT_EQ(stored.keywords->entry.text, "brush");
}

TEST_F(EditorFormsTest, FindsInTheCodeAndLeavesTheWindowWithIt) {
    EditorWindow& editor = Open(kProcedure);
    auto& code = Find<QPlainTextEdit>(editor, "txtCode");
    PressKey(code, Qt::Key_F, Qt::ControlModifier);
    auto& find = Find<QDialog>(editor, "fFind");
    ASSERT_TRUE(find.isVisible());
    Find<QLineEdit>(find, "txtFind").setText("draw1");
    PressKey(Find<QLineEdit>(find, "txtFind"), Qt::Key_Return);
    EXPECT_EQ(code.textCursor().selectedText(), "Draw1");
    editor.close();
    EXPECT_FALSE(find.isVisible());
    RunEvents();
    EXPECT_TRUE(Editors().empty());
}

}  // namespace
}  // namespace snippetarium::test
