#include "forms/fTopicsFound.h"

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/topics_model.h"
#include "navigator/help.h"
#include "store/database.h"
#include "ui_fTopicsFound.h"

namespace snippetarium {

fTopicsFound::fTopicsFound(Database& db, TopicList& topics, QWidget* parent)
    : QDialog(parent), topics_(topics), ui_(std::make_unique<Ui::fTopicsFound>()) {
    ui_->setupUi(this);
    auto* model =
        new TopicsModel(topics, {tr("Procedure Names"), tr("Class"), tr("Application")}, this);
    ShowTopics(ui_->lstVwTopic, model);
    ui_->lstVwTopic->setCurrentIndex(ui_->lstVwTopic->model()->index(0, 0));
    connect(ui_->lstVwTopic, &QTreeView::doubleClicked, this, &fTopicsFound::Choose);
    connect(ui_->cmdDisplay, &QPushButton::clicked, this, &fTopicsFound::Choose);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    new HelpKey(this, [&db] {
        Handle(db.Reporter(), form_procedure::TopicsFoundEvent,
               [&db] { OpenHelp(db, AnchorOf("fTopicsFound")); });
    });
}

fTopicsFound::~fTopicsFound() = default;

void fTopicsFound::Choose() {
    const std::optional<std::size_t> row = CurrentTopic(ui_->lstVwTopic);
    if (!row) return;
    chosenKey_ = topics_.KeyAt(*row);
    accept();
}

}  // namespace snippetarium
