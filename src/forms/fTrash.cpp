#include "forms/fTrash.h"

#include <QHeaderView>
#include <algorithm>

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/icons.h"
#include "forms/qt_text.h"
#include "navigator/help.h"
#include "navigator/node_deletion.h"
#include "store/database.h"
#include "store/owner_place.h"
#include "support/message_boxes.h"
#include "ui_fTrash.h"

namespace snippetarium {

namespace {

constexpr std::string_view kEmptyQuestion =
    "Remove everything that is in the trash for good?  It cannot be brought back then.";
constexpr int kWidestName = 260;

QIcon IconOf(OwnerKind kind) {
    if (kind == OwnerKind::Application) return Icon("application");
    return Icon(kind == OwnerKind::Class ? "class" : "procedure");
}

QString Place(const TrashEntry& entry) {
    if (entry.owner.kind == OwnerKind::Application) return {};
    if (entry.owner.kind == OwnerKind::Class) return ToQt(entry.appName);
    return ToQt(entry.appName) + ", " + ToQt(entry.className);
}

}  // namespace

fTrash::fTrash(Database& db, NodeDeletion& deletion, QWidget* parent)
    : QDialog(parent), db_(db), deletion_(deletion), ui_(std::make_unique<Ui::fTrash>()) {
    ui_->setupUi(this);
    List();
    connect(ui_->lstVwTrash, &QTreeWidget::itemSelectionChanged, this, &fTrash::EnableButtons);
    connect(ui_->lstVwTrash, &QTreeWidget::itemActivated, this,
            [this] { Handle(db_.Reporter(), Procedure::TrashEvent, [this] { Restore(); }); });
    connect(ui_->cmdRestore, &QPushButton::clicked, this,
            [this] { Handle(db_.Reporter(), Procedure::TrashEvent, [this] { Restore(); }); });
    connect(ui_->cmdEmpty, &QPushButton::clicked, this,
            [this] { Handle(db_.Reporter(), Procedure::TrashEvent, [this] { Empty(); }); });
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &fTrash::OpenHelpPage);
    new HelpKey(this, [this] { OpenHelpPage(); });
}

fTrash::~fTrash() = default;

void fTrash::List() {
    entries_ = ListTrash(db_);
    QTreeWidget* const list = ui_->lstVwTrash;
    list->clear();
    for (const TrashEntry& entry : entries_) {
        auto* item = new QTreeWidgetItem({ToQt(entry.name).simplified(), Place(entry).simplified(),
                                          QString::number(entry.codeCount), ToQt(entry.deletedOn),
                                          ToQt(KeptUntil(entry))});
        item->setIcon(0, IconOf(entry.owner.kind));
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        list->addTopLevelItem(item);
    }
    for (int column = 0; column < list->columnCount(); ++column) {
        list->resizeColumnToContents(column);
        if (list->columnWidth(column) > kWidestName) list->setColumnWidth(column, kWidestName);
    }
    SelectRow(0);
    EnableButtons();
}

void fTrash::SelectRow(int row) {
    QTreeWidget* const list = ui_->lstVwTrash;
    list->setCurrentItem(list->topLevelItem(std::min(row, list->topLevelItemCount() - 1)));
}

void fTrash::EnableButtons() {
    const bool mayWrite = !db_.IsReadOnly();
    ui_->cmdRestore->setEnabled(mayWrite && ui_->lstVwTrash->currentItem() != nullptr);
    ui_->cmdEmpty->setEnabled(mayWrite && !entries_.empty());
}

void fTrash::Restore() {
    const int row = ui_->lstVwTrash->indexOfTopLevelItem(ui_->lstVwTrash->currentItem());
    if (row < 0 || db_.IsReadOnly()) return;
    const std::int32_t trashID = entries_.at(static_cast<std::size_t>(row)).trashID;
    const TrashReturn returned = RestoreFromTrash(db_, trashID);
    deletion_.Forget(trashID);
    List();
    SelectRow(row);
    for (const std::string& remark : returned.remarks)
        ShowInformation(db_.GetHost().messages, remark, kInformationTitle);
    if (returned.owner.id != 0) emit BroughtBack(PlaceOf(db_, returned.owner));
}

void fTrash::Empty() {
    if (AskYesNo(db_.GetHost().messages, kEmptyQuestion, kQuestionTitle) != StandardAnswer::Yes) {
        return;
    }
    EmptyTrash(db_);
    for (const TrashEntry& entry : entries_)
        deletion_.Forget(entry.trashID);
    List();
}

void fTrash::OpenHelpPage() {
    Handle(db_.Reporter(), Procedure::TrashEvent, [this] { OpenHelp(db_, AnchorOf("fTrash")); });
}

}  // namespace snippetarium
