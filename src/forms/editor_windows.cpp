#include "forms/editor_windows.h"

#include <utility>

#include "editors/application_editor.h"
#include "editors/class_editor.h"
#include "editors/code_editor.h"
#include "editors/drafts.h"
#include "editors/field_rules.h"
#include "forms/fApplication.h"
#include "forms/fClass.h"
#include "forms/fCode.h"
#include "forms/fContents.h"
#include "forms/fDrafts.h"
#include "forms/fPage.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "navigator/node.h"
#include "store/database.h"

namespace snippetarium {

namespace {

void BringToFront(QWidget& window) {
    window.show();
    if (window.isMinimized()) window.showNormal();
    window.raise();
    window.activateWindow();
}

std::unique_ptr<RecordEditor> EditorOf(Database& db, const NoiseWords& noise, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return OpenApplicationEditor(db, noise, owner.id);
        case OwnerKind::Class:
            return OpenClassEditor(db, noise, owner.id);
        case OwnerKind::Procedure:
            break;
    }
    return OpenCodeEditor(db, noise, owner.id);
}

/// The editor as what its kind says it is.
template <typename Editor>
std::unique_ptr<Editor> As(std::unique_ptr<RecordEditor> editor) {
    return std::unique_ptr<Editor>(static_cast<Editor*>(editor.release()));
}

/// `appID` as fCode takes it.
EditorWindow* WindowFor(Database& db, std::unique_ptr<RecordEditor> editor, std::int32_t appID) {
    switch (editor->Kind()) {
        case OwnerKind::Application:
            return new fApplication(db, As<ApplicationEditor>(std::move(editor)));
        case OwnerKind::Class:
            return new fClass(db, As<ClassEditor>(std::move(editor)));
        case OwnerKind::Procedure:
            break;
    }
    return new fCode(db, As<CodeEditor>(std::move(editor)), appID);
}

}  // namespace

EditorWindows::EditorWindows(const Parts& parts) : QObject(&parts.window), parts_(parts) {
    connect(&parts_.contents, &fContents::EditRequested, this, [this](const EditTarget& target) {
        Handle(parts_.db.Reporter(), Procedure::RunCommand, [&] { Open(target); });
    });
}

EditorWindows::~EditorWindows() {
    for (const QPointer<EditorWindow>& window : windows_)
        delete window.data();
}

void EditorWindows::Perform(MenuCommand command) {
    Database& db = parts_.db;
    const NodeIDs& selection = parts_.contents.Selection();
    switch (command) {
        case MenuCommand::NewApplication:
            return OpenNew({.kind = NodeKind::Application});
        case MenuCommand::NewClass:
            return OpenNew(NewClassIn(selection));
        case MenuCommand::NewProcedure:
            return OpenNew(NewProcedureIn(selection));
        case MenuCommand::AddNew:
            return OpenNew(AddNewAt(parts_.contents.MenuNode()));
        case MenuCommand::EditApplication:
            return OpenRequested(EditSelectedApplication(db, selection));
        case MenuCommand::EditClass:
            return OpenRequested(EditSelectedClass(db, selection));
        case MenuCommand::EditProcedure:
            return OpenRequested(EditSelectedProcedure(db, selection));
        case MenuCommand::EditNode:
            return OpenRequested(EditNode(db, selection));
        case MenuCommand::EditShownPage:
            return OpenRequested(EditShownPage(db, parts_.page.Shown()));
        default:
            return;
    }
}

void EditorWindows::OpenNew(const NewTarget& target) {
    Database& db = parts_.db;
    switch (target.kind) {
        case NodeKind::Application:
            return OpenEditor(NewApplicationEditor(db, parts_.noise), 0);
        case NodeKind::Class:
            return OpenEditor(NewClassEditor(db, parts_.noise, target.appID), 0);
        default:
            return OpenEditor(NewCodeEditor(db, parts_.noise, target.classID), target.appID);
    }
}

void EditorWindows::OpenRequested(const EditRequest& request) {
    if (request) Open(*request);
}

void EditorWindows::Open(const EditTarget& target) {
    const Owner owner = OwnerOf(target.node);
    const EditorKey key{owner.kind, owner.id};
    for (const QPointer<EditorWindow>& window : windows_) {
        if (window != nullptr && window->Editor().Key() == key) return BringToFront(*window);
    }
    std::unique_ptr<RecordEditor> editor = EditorOf(parts_.db, parts_.noise, owner);
    if (editor == nullptr) {
        const std::string kind(KindName(target.kind));
        RefuseEntry(parts_.db, "This " + kind + " has been deleted.");
        return;
    }
    OpenEditor(std::move(editor), 0);
}

void EditorWindows::OpenEditor(std::unique_ptr<RecordEditor> editor, std::int32_t appID) {
    if (editor == nullptr) return;
    EditorWindow* const window = WindowFor(parts_.db, std::move(editor), appID);
    windows_.emplace_back(window);
    connect(window, &EditorWindow::Saved, this, &EditorWindows::OnSaved);
    connect(window, &EditorWindow::AuthorsRenamed, this,
            [this] { parts_.page.ShowPage(parts_.page.Shown()); });
    connect(window, &EditorWindow::Closed, this, [this, window] { OnClosed(window); });
    BringToFront(*window);
}

void EditorWindows::OnSaved(const NodeIDs& before, const NodeIDs& node) {
    Handle(parts_.db.Reporter(), Procedure::RunCommand, [&] {
        if (before != NodeIDs{} && before != node) parts_.page.History().Forget(before);
        parts_.contents.Refresh();
        if (node != NodeIDs{} && !parts_.contents.SelectNode(node)) parts_.page.ShowPage(node);
    });
}

void EditorWindows::OnClosed(EditorWindow* window) {
    std::erase(windows_, window);
    window->deleteLater();
    if (windows_.empty()) parts_.window.activateWindow();
}

void EditorWindows::OfferDrafts() {
    if (parts_.db.IsReadOnly()) return;
    std::vector<std::int32_t> open;
    for (const QPointer<EditorWindow>& window : windows_)
        open.push_back(window->Editor().DraftID());
    std::vector<Draft> drafts = DraftsLeft(parts_.db, open);
    if (drafts.empty()) return;
    fDrafts dialog(parts_.db, std::move(drafts), &parts_.window);
    if (RunModal(dialog, parts_.db.Reporter()) != QDialog::Accepted) return;
    for (const std::int32_t draftID : dialog.Chosen())
        OpenEditor(OpenDraft(parts_.db, parts_.noise, draftID), 0);
}

bool EditorWindows::CloseAll() {
    const std::vector<QPointer<EditorWindow>> windows = windows_;
    for (const QPointer<EditorWindow>& window : windows) {
        if (window == nullptr) continue;
        if (window->Editor().IsChanged()) BringToFront(*window);
        if (!window->close()) return false;
    }
    return true;
}

}  // namespace snippetarium
