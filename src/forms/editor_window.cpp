#include "forms/editor_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QShortcut>
#include <algorithm>

#include "editors/author_text.h"
#include "editors/drafts.h"
#include "forms/code_edit.h"
#include "forms/dropped_text.h"
#include "forms/editor_footer.h"
#include "forms/fAddDate.h"
#include "forms/fAuthors.h"
#include "forms/fFind.h"
#include "forms/fKeywords.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/icons.h"
#include "forms/modal.h"
#include "forms/qt_events.h"
#include "forms/qt_text.h"
#include "forms/window_size.h"
#include "navigator/help.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "support/message_boxes.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

/// How long the typing pauses before its result is looked at, and before a draft is kept.
constexpr int kTypingPause = 250;
constexpr int kDraftPause = 3000;

std::string ChangesQuestion(const RecordEditor& editor, std::string_view name) {
    std::string what = "The " + std::string(editor.KindWord());
    if (!name.empty()) what.append(" '").append(name).append("'");
    return what + " is not saved.  Do you want to save it?";
}

}  // namespace

EditorWindow::EditorWindow(Database& db, std::unique_ptr<RecordEditor> editor,
                           const Identity& identity)
    : QDialog(nullptr), db_(db), editor_(std::move(editor)), identity_(identity) {
    setWindowFlags(Qt::Window);
    setWindowIcon(Icon(ToQt(editor_->KindWord())));
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::Start(EditorFooter* footer) {
    footer_ = footer;
    ConnectFooter();
    ConnectTimers();
    const auto openHelp = [this] { OpenHelp(db_, AnchorOf(identity_.form)); };
    connect(footer_, &EditorFooter::HelpRequested, this, openHelp);
    new HelpKey(this, openHelp);
    ShowAll();
    if (IsReadOnly()) SetReadOnly();
    RestoreSize(db_, *this, identity_.form);
}

void EditorWindow::ConnectFooter() {
    const auto onRequest = [this](auto signal, void (EditorWindow::*action)()) {
        connect(footer_, signal, this, [this, action] { OnEvent([&] { (this->*action)(); }); });
    };
    onRequest(&EditorFooter::KeywordsRequested, &EditorWindow::EditKeywords);
    onRequest(&EditorFooter::AuthorsRequested, &EditorWindow::EditAuthors);
    onRequest(&EditorFooter::DatesRequested, &EditorWindow::EditDates);
    const auto save = [this] {
        if (!IsReadOnly()) Save();
    };
    connect(footer_, &EditorFooter::SaveRequested, this, save);
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, save);
    connect(footer_, &EditorFooter::AcceptRequested, this, [this] {
        if (Save()) close();
    });
    connect(footer_, &EditorFooter::CancelRequested, this, &EditorWindow::reject);
}

void EditorWindow::ConnectTimers() {
    pause_.setSingleShot(true);
    pause_.setInterval(kTypingPause);
    connect(&pause_, &QTimer::timeout, this, [this] {
        if (isWorking_ || IsYielding(db_.GetHost().events)) return pause_.start();
        OnEvent([this] { LookAtChanges(); });
    });
    draft_.setObjectName("tmDraft");
    draft_.setSingleShot(true);
    draft_.setInterval(kDraftPause);
    connect(&draft_, &QTimer::timeout, this, [this] {
        if (isWorking_ || IsYielding(db_.GetHost().events)) return draft_.start();
        OnEvent([this] { KeepDraft(); });
    });
}

/// What could not be kept once is not tried again at each pause: it has been reported.
void EditorWindow::KeepDraft() {
    TakeRecord();
    mayKeepDrafts_ = mayKeepDrafts_ && SaveDraft(db_, *editor_);
}

bool EditorWindow::IsReadOnly() const {
    return db_.IsReadOnly();
}

void EditorWindow::SetReadOnly() {
    footer_->SetReadOnly();
    for (auto* line : findChildren<QLineEdit*>())
        line->setReadOnly(true);
    for (auto* text : findChildren<QPlainTextEdit*>())
        text->setReadOnly(true);
    for (auto* box : findChildren<QComboBox*>())
        box->setEnabled(false);
}

void EditorWindow::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), identity_.procedure, [&] {
        if (isWorking_) return;
        const QScopedValueRollback working(isWorking_, true);
        body();
    });
}

void EditorWindow::Touch() {
    if (isShowing_ || IsReadOnly()) return;
    footer_->ShowState({});
    pause_.start();
    // Not at every keystroke anew: who types on and on needs a draft most.
    if (!draft_.isActive()) draft_.start();
}

void EditorWindow::LookAtChanges() {
    OnPause();
    TakeRecord();
    ShowTitle();
}

void EditorWindow::ShowTitle() {
    QString title = tr(std::string(editor_->Caption()).c_str());
    const QString name = ToQt(RecordName()).simplified();
    if (!name.isEmpty()) title += " - " + name;
    // The mark of a changed window stands in the title as "[*]"; a name may have one of its own.
    setWindowTitle(title.replace("[*]", "[*][*]") + "[*]");
    setWindowModified(!IsReadOnly() && editor_->IsChanged());
}

void EditorWindow::ShowAll() {
    const QScopedValueRollback showing(isShowing_, true);
    ShowRecord();
    footer_->ShowDetails(editor_->Details());
    ShowTitle();
}

bool EditorWindow::Save() {
    bool isStored = false;
    OnEvent([&] { isStored = Store(); });
    return isStored;
}

bool EditorWindow::Store() {
    TakeRecord();
    if (!editor_->IsNew() && !editor_->IsChanged()) return true;
    // What an operation that failed has reported is not the end of the window's work.
    const ErrorReporter::EventScope operations(db_.Reporter());
    const SaveOutcome outcome = editor_->Save();
    ShowAll();
    if (outcome.result == SaveResult::NotSaved) {
        // A later step failed: the record itself is there, and the tree shows it.
        if (outcome.node != NodeIDs{}) emit Saved(outcome.before, outcome.node);
        if (outcome.isRefused) FocusOnRefused();
        return false;
    }
    pause_.stop();
    draft_.stop();
    DropDraft(db_, *editor_);
    footer_->ShowState(outcome.result == SaveResult::Saved ? tr("Saved.") : tr("Loaded again."));
    emit Saved(outcome.before, outcome.node);
    if (outcome.wantsKeywords) EditKeywords();
    const bool hasMore = outcome.wantsKeywords && editor_->IsChanged();
    return hasMore ? Store() : outcome.result == SaveResult::Saved;
}

/// A text that is too long, else the name.
void EditorWindow::FocusOnRefused() {
    for (CodeEdit* text : findChildren<CodeEdit*>()) {
        if (CharacterCount(text->Code()) > kLongTextLimit) return text->setFocus();
    }
    if (auto* const name = findChild<QLineEdit*>("txtName")) {
        name->setFocus();
        name->selectAll();
    }
}

void EditorWindow::reject() {
    close();
}

void EditorWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = false;
    OnEvent([&] { mayClose = MayClose(); });
    event->setAccepted(mayClose);
    if (!mayClose) return;
    pause_.stop();
    draft_.stop();
    KeepSize(db_, *this, identity_.form);
    if (find_ != nullptr) find_->close();
    emit Closed();
}

bool EditorWindow::MayClose() {
    if (IsReadOnly()) return true;
    TakeRecord();
    if (editor_->IsChanged()) {
        const StandardAnswer answer = AskYesNoCancel(
            db_.GetHost().messages, ChangesQuestion(*editor_, RecordName()), kQuestionTitle);
        if (answer == StandardAnswer::Cancel) return false;
        if (answer == StandardAnswer::Yes) return Store();
    }
    DropDraft(db_, *editor_);
    return true;
}

void EditorWindow::EditKeywords() {
    EditedDetails& details = editor_->Details();
    fKeywords dialog(db_, {editor_->Kind(), editor_->ID()}, details.keywords, this);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    details.keywords = dialog.Entry();
    footer_->ShowDetails(details);
    Touch();
}

/// The authors of the record, with the IDs of those that the catalogue has.
std::vector<LinkedAuthor> EditorWindow::LinkedAuthors() const {
    const std::vector<LinkedAuthor> stored =
        LoadOwnerDetails(db_, {editor_->Kind(), editor_->ID()}).authors;
    std::vector<LinkedAuthor> authors;
    for (const AuthorName& name : editor_->Details().authors) {
        const auto same = std::ranges::find(stored, name, &LinkedAuthor::name);
        authors.push_back(same != stored.end() ? *same : LinkedAuthor{.name = name});
    }
    return authors;
}

void EditorWindow::EditAuthors() {
    EditedDetails& details = editor_->Details();
    fAuthors dialog(db_, LinkedAuthors(), this);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    details.authors.clear();
    for (const LinkedAuthor& author : dialog.Authors())
        details.authors.push_back(author.name);
    footer_->ShowDetails(details);
    Touch();
    emit AuthorsRenamed();
}

void EditorWindow::EditDates() {
    EditedDetails& details = editor_->Details();
    fAddDate dialog(db_, details.dates, this);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    details.dates = dialog.Dates();
    footer_->ShowDetails(details);
    Touch();
}

void EditorWindow::Serve(CodeEdit* text) {
    connect(text, &CodeEdit::textChanged, this, &EditorWindow::Touch);
    connect(text, &CodeEdit::FindRequested, this, [this, text] {
        if (find_ == nullptr) find_ = new fFind(db_, this);
        find_->FindIn(*text);
    });
    // The drop ends before anything is asked.
    connect(
        text, &CodeEdit::FileDropped, this,
        [this, text](const QString& path) { OnEvent([&] { TakeFile(*text, path); }); },
        Qt::QueuedConnection);
}

void EditorWindow::TakeFile(CodeEdit& text, const QString& path) {
    const std::optional<std::string> dropped =
        ReadDroppedText(db_, FromQt(path), text.document()->isEmpty());
    if (dropped) text.ReplaceCode(*dropped);
}

}  // namespace snippetarium
