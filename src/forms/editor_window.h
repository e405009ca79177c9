#pragma once

#include <QDialog>
#include <QTimer>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "editors/record_editor.h"
#include "support/procedure_numbers.h"

namespace snippetarium {

class CodeEdit;
class Database;
class EditorFooter;
class fFind;

/// The window in which one application, class or procedure is edited. It is not modal: others can
/// be open beside it. What all three kinds have in common is here: storing, closing, drafts,
/// authors, dates and keywords.
class EditorWindow : public QDialog {
    Q_OBJECT

  public:
    ~EditorWindow() override;

    RecordEditor& Editor() const { return *editor_; }
    /// Stores what was changed. False where it is not stored.
    bool Save();

    /// Closes it; what is not stored is asked about first.
    void reject() override;

  signals:
    /// Where the record was in the tree, and where it is.
    void Saved(const NodeIDs& before, const NodeIDs& node);
    /// An author may have another name now, wherever he is named.
    void AuthorsRenamed();
    void Closed();

  protected:
    /// The form's name and the number of its handlers.
    struct Identity {
        std::string_view form;
        Procedure procedure;
    };
    EditorWindow(Database& db, std::unique_ptr<RecordEditor> editor, const Identity& identity);

    /// For the form's constructor, when its controls are there and connected.
    void Start(EditorFooter* footer);

    /// Puts the record into the controls.
    virtual void ShowRecord() = 0;
    /// Puts what the controls hold into the record.
    virtual void TakeRecord() = 0;
    virtual std::string_view RecordName() const = 0;
    /// In a pause of the typing, before anything is looked at.
    virtual void OnPause() {}

    Database& Catalogue() const { return db_; }
    bool IsReadOnly() const;
    void OnEvent(const std::function<void()>& body);
    /// A control was changed.
    void Touch();
    /// Connects what a text control asks its window for: Find, and files that are dropped on it.
    void Serve(CodeEdit* text);

    void closeEvent(QCloseEvent* event) override;

  private:
    void ConnectFooter();
    void ConnectTimers();
    void SetReadOnly();
    void ShowAll();
    void ShowTitle();
    void LookAtChanges();
    void KeepDraft();
    bool Store();
    bool MayClose();
    void FocusOnRefused();
    void EditKeywords();
    void EditAuthors();
    std::vector<LinkedAuthor> LinkedAuthors() const;
    void EditDates();
    void TakeFile(CodeEdit& text, const QString& path);

    Database& db_;
    std::unique_ptr<RecordEditor> editor_;
    Identity identity_;
    EditorFooter* footer_ = nullptr;
    fFind* find_ = nullptr;
    QTimer pause_{this};
    QTimer draft_{this};
    /// While the program, not the user, changes the controls.
    bool isShowing_ = false;
    bool isWorking_ = false;
    bool mayKeepDrafts_ = true;
};

}  // namespace snippetarium
