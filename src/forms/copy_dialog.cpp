#include "forms/copy_dialog.h"

#include "editors/field_rules.h"
#include "forms/dialog_help.h"
#include "forms/handler.h"
#include "forms/node_picker.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "ui_copy_dialog.h"

namespace snippetarium {

CopyDialog::CopyDialog(Database& db, const Texts& texts, QWidget* parent)
    : QDialog(parent),
      db_(db),
      nothingSelected_(texts.nothingSelected),
      procedure_(texts.procedure),
      ui_(std::make_unique<Ui::CopyDialog>()) {
    ui_->setupUi(this);
    setObjectName(texts.form);
    setWindowTitle(texts.title);
    ui_->lblTarget->setText(texts.target);
    ui_->lblSource->setText(texts.source);
    picker_ = new NodePicker(db_, {ui_->txtFilter, ui_->trVwSource, ui_->lblFilter});
    const auto on = [this](auto* sender, auto signal, void (CopyDialog::*handler)()) {
        connect(sender, signal, this, [this, handler] {
            Handle(db_.Reporter(), procedure_, [&] { (this->*handler)(); });
        });
    };
    on(picker_, &NodePicker::SelectionChanged, &CopyDialog::ShowProposal);
    on(ui_->cmdOK, &QPushButton::clicked, &CopyDialog::Accept);
    connect(picker_, &NodePicker::DoubleClicked, this, [this] {
        if (CanBeCopied(picker_->Selection())) ui_->cmdOK->click();
    });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

CopyDialog::~CopyDialog() = default;

void CopyDialog::ShowProposal() {
    const NodeIDs& node = picker_->Selection();
    // A name from an import may have line breaks, which the entry would hide.
    ui_->txtName->setText(CanBeCopied(node) ? ToQt(Proposal(node)).simplified() : QString());
}

void CopyDialog::Accept() {
    const NodeIDs node = picker_->Selection();
    if (!CanBeCopied(node)) {
        RefuseEntry(db_, nothingSelected_);
        return ui_->trVwSource->setFocus();
    }
    if (Copy(node, FromQt(ui_->txtName->text().trimmed()))) return accept();
    ui_->txtName->setFocus();
    ui_->txtName->selectAll();
}

}  // namespace snippetarium
