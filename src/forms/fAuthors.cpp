#include "forms/fAuthors.h"

#include <algorithm>

#include "editors/author_text.h"
#include "forms/dialog_help.h"
#include "forms/filtered_list.h"
#include "forms/handler.h"
#include "forms/list_keys.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "support/message_boxes.h"
#include "ui_fAuthors.h"

namespace snippetarium {

fAuthors::fAuthors(Database& db, std::vector<LinkedAuthor> authors, QWidget* parent)
    : QDialog(parent),
      db_(db),
      list_(db, std::move(authors)),
      ui_(std::make_unique<Ui::fAuthors>()) {
    ui_->setupUi(this);
    knownList_ = new FilteredList(ui_->txtFilter, ui_->lstKnown);
    ListKnown();
    ListAuthors(-1);
    Connect();
    ShowSelected();
    ui_->txtFirst->setFocus();
}

fAuthors::~fAuthors() = default;

void fAuthors::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::AuthorsEvent, body);
}

void fAuthors::Connect() {
    const auto on = [this](QPushButton* button, void (fAuthors::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, handler] { OnEvent([&] { (this->*handler)(); }); });
    };
    on(ui_->cmdChoose, &fAuthors::Choose);
    on(ui_->cmdAdd, &fAuthors::Add);
    on(ui_->cmdChange, &fAuthors::Change);
    on(ui_->cmdRemove, &fAuthors::Remove);
    on(ui_->cmdOK, &fAuthors::Accept);
    connect(ui_->lstKnown, &QListView::doubleClicked, ui_->cmdChoose, &QPushButton::click);
    connect(knownList_, &FilteredList::SelectionChanged, this, &fAuthors::EnableButtons);
    connect(ui_->lstAuthors, &QListWidget::currentRowChanged, this, &fAuthors::ShowSelected);
    for (const QLineEdit* part : {ui_->txtFirst, ui_->txtMiddle, ui_->txtLast})
        connect(part, &QLineEdit::textChanged, this, &fAuthors::EnableButtons);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    RemoveByKey(ui_->lstAuthors, ui_->cmdRemove);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fAuthors::ListKnown() {
    known_ = KnownAuthors(db_);
    std::vector<std::string> names;
    for (const KnownAuthor& author : known_)
        names.push_back(AuthorText(author.name));
    knownList_->SetTexts(std::move(names));
}

void fAuthors::ListAuthors(int row) {
    ui_->lstAuthors->clear();
    for (const LinkedAuthor& author : list_.Authors())
        ui_->lstAuthors->addItem(ToQt(AuthorText(author.name)).simplified());
    ui_->lstAuthors->setCurrentRow(std::min(row, ui_->lstAuthors->count() - 1));
    ShowSelected();
}

std::optional<std::size_t> fAuthors::Selected() const {
    const int row = ui_->lstAuthors->currentRow();
    if (row < 0) return std::nullopt;
    return static_cast<std::size_t>(row);
}

AuthorName fAuthors::Entered() const {
    return {FromQt(ui_->txtFirst->text()), FromQt(ui_->txtMiddle->text()),
            FromQt(ui_->txtLast->text())};
}

void fAuthors::ShowSelected() {
    const auto row = Selected();
    const AuthorName name = row ? list_.Authors().at(*row).name : AuthorName{};
    ui_->txtFirst->setText(ToQt(name.first));
    ui_->txtMiddle->setText(ToQt(name.middle));
    ui_->txtLast->setText(ToQt(name.last));
    EnableButtons();
}

/// In how many places the catalogue names the author of a row.
std::int32_t fAuthors::PlacesOf(std::size_t row) const {
    const std::int32_t authorID = list_.Authors().at(row).authorID;
    const auto known = std::ranges::find(known_, authorID, &KnownAuthor::authorID);
    return known == known_.end() ? 0 : known->ownerCount;
}

/// Whether a name was typed that is not that of the selected author.
bool fAuthors::HasEntry() const {
    const AuthorName name = Entered();
    const auto row = Selected();
    return !AuthorText(name).empty() && !(row && list_.Authors().at(*row).name == name);
}

void fAuthors::EnableButtons() {
    const auto row = Selected();
    ui_->cmdRemove->setEnabled(row.has_value());
    ui_->cmdChoose->setEnabled(knownList_->Selected().has_value());
    ui_->cmdChange->setEnabled(row.has_value());
    // Enter takes over what is typed or selected before it takes over all.
    QPushButton* const next = ui_->cmdChoose->isEnabled() ? ui_->cmdChoose : ui_->cmdOK;
    (HasEntry() ? ui_->cmdAdd : next)->setDefault(true);
    const std::int32_t places = row ? PlacesOf(*row) : 0;
    ui_->lblShared->setText(
        places < 2
            ? tr("A changed name shows wherever the author is named.")
            : tr("A changed name shows in all %1 places where this author is named.").arg(places));
}

void fAuthors::Choose() {
    const auto place = knownList_->Selected();
    if (!place || !list_.Add(known_.at(*place).name)) return;
    knownList_->SelectNone();
    ListAuthors(-1);
}

void fAuthors::Add() {
    if (list_.Add(Entered())) ListAuthors(-1);
    ui_->txtFirst->setFocus();
}

void fAuthors::Change() {
    const auto row = Selected();
    if (!row || !list_.Change(*row, Entered())) return ui_->txtFirst->setFocus();
    ListAuthors(static_cast<int>(*row));
}

void fAuthors::Remove() {
    const auto row = Selected();
    if (!row) return;
    list_.Remove(*row);
    ListAuthors(static_cast<int>(*row));
}

/// What to do with a name that was typed and not added. False where the user goes on.
bool fAuthors::SettleEntry() {
    if (!HasEntry()) return true;
    const QString question = tr("Add '%1' to the authors?").arg(ToQt(AuthorText(Entered())));
    const StandardAnswer answer =
        AskYesNoCancel(db_.GetHost().messages, FromQt(question), kQuestionTitle);
    return answer == StandardAnswer::No || (answer == StandardAnswer::Yes && list_.Add(Entered()));
}

void fAuthors::Accept() {
    if (!SettleEntry()) return ui_->txtFirst->setFocus();
    list_.Store();
    accept();
}

}  // namespace snippetarium
