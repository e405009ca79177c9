#include "forms/fLanguage.h"

#include <QHeaderView>

#include "editors/catalogue_lists.h"
#include "editors/languages.h"
#include "forms/dialog_help.h"
#include "forms/handler.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "store/reads_languages.h"
#include "ui_fLanguage.h"

namespace snippetarium {

fLanguage::fLanguage(Database& db, QWidget* parent)
    : QDialog(parent), db_(db), ui_(std::make_unique<Ui::fLanguage>()) {
    ui_->setupUi(this);
    QHeaderView* const header = ui_->lstVwLanguage->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    List({});
    Connect();
}

fLanguage::~fLanguage() = default;

void fLanguage::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::LanguageEvent, body);
}

void fLanguage::Connect() {
    connect(ui_->cmdAdd, &QPushButton::clicked, this, [this] { OnEvent([this] { Add(); }); });
    connect(ui_->cmdRename, &QPushButton::clicked, this, [this] { OnEvent([this] { Rename(); }); });
    connect(ui_->cmdDelete, &QPushButton::clicked, this, [this] { OnEvent([this] { Delete(); }); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->lstVwLanguage, &QTreeWidget::currentItemChanged, this, &fLanguage::ShowSelected);
    connect(ui_->txtLanguage, &QLineEdit::textChanged, this, &fLanguage::EnableButtons);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fLanguage::List(const std::string& language) {
    QTreeWidget* const list = ui_->lstVwLanguage;
    const QSignalBlocker quiet(list);
    list->clear();
    for (Recordset row = AllLanguages(db_); !row.EndOfFile(); row.MoveNext()) {
        auto* const item = new QTreeWidgetItem(
            list, {ToQt(row["language"].TextView()), ToQt(row["classCount"].Text()),
                   ToQt(row["codeCount"].Text())});
        item->setData(0, Qt::UserRole, row["languageID"].Long());
        for (const int column : {1, 2})
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        if (row["language"].TextView() == language) list->setCurrentItem(item);
    }
    if (list->currentItem() == nullptr) list->setCurrentItem(list->topLevelItem(0));
    ShowSelected();
}

std::int32_t fLanguage::LanguageID() const {
    const QTreeWidgetItem* const item = ui_->lstVwLanguage->currentItem();
    return item == nullptr ? 0 : item->data(0, Qt::UserRole).toInt();
}

std::string fLanguage::Selected() const {
    const QTreeWidgetItem* const item = ui_->lstVwLanguage->currentItem();
    return item == nullptr ? std::string() : FromQt(item->text(0));
}

std::string fLanguage::Entered() const {
    return FromQt(ui_->txtLanguage->text().trimmed());
}

void fLanguage::ShowSelected() {
    ui_->txtLanguage->setText(ToQt(Selected()));
    EnableButtons();
}

void fLanguage::EnableButtons() {
    const bool mayWrite = !db_.IsReadOnly();
    const bool isOther = Entered() != Selected();
    ui_->txtLanguage->setReadOnly(!mayWrite);
    ui_->cmdAdd->setEnabled(mayWrite && isOther);
    ui_->cmdRename->setEnabled(mayWrite && isOther && LanguageID() != 0);
    ui_->cmdDelete->setEnabled(mayWrite && LanguageID() != 0);
    (ui_->cmdAdd->isEnabled() ? ui_->cmdAdd : ui_->cmdClose)->setDefault(true);
}

void fLanguage::Add() {
    const std::string language = Entered();
    ShowChange(AddLanguage(db_, language), language);
}

void fLanguage::Rename() {
    const std::string language = Entered();
    ShowChange(RenameLanguage(db_, LanguageID(), language), language);
}

void fLanguage::Delete() {
    QTreeWidget* const list = ui_->lstVwLanguage;
    QTreeWidgetItem* const item = list->currentItem();
    const QTreeWidgetItem* beside = list->itemBelow(item);
    if (beside == nullptr) beside = list->itemAbove(item);
    const std::string next = beside == nullptr ? std::string() : FromQt(beside->text(0));
    ShowChange(RemoveLanguage(db_, Selected()), next);
}

void fLanguage::ShowChange(bool isDone, const std::string& language) {
    if (isDone) {
        hasChanged_ = true;
        return List(language);
    }
    ui_->txtLanguage->setFocus();
    ui_->txtLanguage->selectAll();
}

}  // namespace snippetarium
