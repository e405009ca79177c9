#include "forms/fTopicsFound.h"

#include <QHeaderView>

#include "forms/help_key.h"
#include "forms/topic_model.h"
#include "navigator/help.h"
#include "ui_fTopicsFound.h"

namespace snippetarium {

fTopicsFound::fTopicsFound(Database& db, TopicList& topics, QWidget* parent)
    : QDialog(parent), topics_(topics), ui_(std::make_unique<Ui::fTopicsFound>()) {
    ui_->setupUi(this);
    model_ = new TopicModel(topics_, {tr("Procedure Names"), tr("Class"), tr("Application")}, this);
    QTreeView* const list = ui_->lstVwTopic;
    list->setModel(model_);
    list->header()->setSortIndicatorClearable(true);
    list->header()->setSectionResizeMode(QHeaderView::Stretch);
    list->sortByColumn(-1, Qt::AscendingOrder);
    list->setCurrentIndex(model_->index(0, 0));
    // Enter on an item presses the default button.
    connect(list, &QTreeView::doubleClicked, this, &fTopicsFound::Display);
    connect(ui_->cmdDisplay, &QPushButton::clicked, this, &fTopicsFound::Display);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    new HelpKey(this, [&db] { OpenHelp(db, AnchorOf("fTopicsFound")); });
}

fTopicsFound::~fTopicsFound() = default;

std::string fTopicsFound::ChosenKey() const {
    return topics_.SelectedKey();
}

void fTopicsFound::Display() {
    const QModelIndexList rows = ui_->lstVwTopic->selectionModel()->selectedRows();
    if (rows.isEmpty()) return;
    topics_.Select(model_->TopicAt(rows.first().row()));
    accept();
}

}  // namespace snippetarium
