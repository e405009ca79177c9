#pragma once

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTreeView>

#include "forms/editor_window.h"
#include "forms/fContents.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "tests/forms/desktop_fixture.h"

namespace snippetarium::test {

/// The program with the editors of applications, classes and procedures.
class EditorFixture : public DesktopFixture {
  protected:
    static constexpr NodeIDs kApplication{.appID = 2};
    static constexpr NodeIDs kClass{.appID = 2, .classID = 2};
    static constexpr NodeIDs kProcedure{.appID = 2, .classID = 2, .codeID = 1};

    void SetUp() override { StartProgram(); }

    void Select(const NodeIDs& node) { ASSERT_TRUE(Get<fContents>("fContents").SelectNode(node)); }
    void Trigger(const char* item) {
        emit Get<QMenu>("mnuEdit").aboutToShow();
        Get<QAction>(item).trigger();
        RunEvents();
    }

    /// The open editors, in no order.
    static std::vector<EditorWindow*> Editors() {
        std::vector<EditorWindow*> editors;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* const editor = qobject_cast<EditorWindow*>(window);
            if (editor != nullptr && editor->isVisible()) editors.push_back(editor);
        }
        return editors;
    }
    /// The only open editor.
    static EditorWindow& Editor() {
        const auto editors = Editors();
        if (editors.size() != 1) throw std::runtime_error("there is not one editor");
        return *editors.front();
    }
    /// Opens the editor of a node as Enter in the tree does.
    EditorWindow& Open(const NodeIDs& node) {
        Select(node);
        PressKey(Get<QTreeView>("trVwClass"), Qt::Key_Return);
        RunEvents();
        return Editor();
    }

    static QString Text(EditorWindow& editor, const char* name) {
        return Find<QPlainTextEdit>(editor, name).toPlainText();
    }
    static void SetText(EditorWindow& editor, const char* name, const QString& text) {
        auto& control = Find<QPlainTextEdit>(editor, name);
        control.selectAll();
        control.insertPlainText(text);
    }
    static void SetLine(EditorWindow& editor, const char* name, const QString& text) {
        Find<QLineEdit>(editor, name).setText(text);
    }
    static void Click(EditorWindow& editor, const char* button) {
        Find<QPushButton>(editor, button).click();
        RunEvents();
    }
    /// Answers No to the question whether keywords are to be added.
    void ExpectNoKeywords() { modal_.ExpectBox(QMessageBox::No); }

    std::string CodeOf(std::int32_t codeID) { return CodeByID(*db_, codeID)["code"].Text(); }
    void Execute(const std::string& script) { db_->GetConnection().RunScript(script); }
};

}  // namespace snippetarium::test
