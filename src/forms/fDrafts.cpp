#include "forms/fDrafts.h"

#include <algorithm>

#include "forms/dialog_help.h"
#include "forms/handler.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "support/message_boxes.h"
#include "ui_fDrafts.h"

namespace snippetarium {

namespace {

constexpr std::string_view kThrowAwayQuestion =
    "Throw away what is selected?  It cannot be brought back then.";

QIcon IconOf(OwnerKind kind) {
    if (kind == OwnerKind::Application) return Icon("application");
    return Icon(kind == OwnerKind::Class ? "class" : "procedure");
}

}  // namespace

fDrafts::fDrafts(Database& db, std::vector<Draft> drafts, QWidget* parent)
    : QDialog(parent), db_(db), drafts_(std::move(drafts)), ui_(std::make_unique<Ui::fDrafts>()) {
    ui_->setupUi(this);
    List();
    connect(ui_->lstDrafts, &QListWidget::itemSelectionChanged, this, &fDrafts::EnableButtons);
    connect(ui_->lstDrafts, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(ui_->cmdOpen, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdThrowAway, &QPushButton::clicked, this,
            [this] { Handle(db_.Reporter(), Procedure::DraftsEvent, [this] { ThrowAway(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

fDrafts::~fDrafts() = default;

void fDrafts::List() {
    ui_->lstDrafts->clear();
    for (const Draft& draft : drafts_) {
        auto* const item =
            new QListWidgetItem(IconOf(draft.kind), ToQt(DraftTitle(draft)).simplified());
        item->setData(Qt::UserRole, draft.draftID);
        ui_->lstDrafts->addItem(item);
    }
    ui_->lstDrafts->selectAll();
    EnableButtons();
}

void fDrafts::EnableButtons() {
    const bool hasSelection = !ui_->lstDrafts->selectedItems().isEmpty();
    ui_->cmdOpen->setEnabled(hasSelection);
    ui_->cmdThrowAway->setEnabled(hasSelection);
}

std::vector<std::int32_t> fDrafts::Chosen() const {
    std::vector<std::int32_t> chosen;
    for (const QListWidgetItem* item : ui_->lstDrafts->selectedItems())
        chosen.push_back(item->data(Qt::UserRole).toInt());
    return chosen;
}

void fDrafts::ThrowAway() {
    if (AskYesNo(db_.GetHost().messages, kThrowAwayQuestion, kQuestionTitle) !=
        StandardAnswer::Yes) {
        return;
    }
    for (const std::int32_t draftID : Chosen()) {
        DeleteDraft(db_, draftID);
        std::erase_if(drafts_, [&](const Draft& draft) { return draft.draftID == draftID; });
    }
    List();
    if (drafts_.empty()) reject();
}

}  // namespace snippetarium
