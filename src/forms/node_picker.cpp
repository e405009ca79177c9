#include "forms/node_picker.h"

#include <QLabel>
#include <QLineEdit>
#include <QTreeView>

#include "forms/contents_model.h"
#include "forms/list_keys.h"
#include "forms/qt_text.h"
#include "forms/tree_opening.h"

namespace snippetarium {

NodePicker::NodePicker(Database& db, const Controls& controls)
    : QObject(controls.tree),
      controls_(controls),
      pane_(db),
      model_(std::make_unique<ContentsModel>(pane_, nullptr)) {
    pane_.Load({});
    controls_.tree->setModel(model_.get());
    new ListKeys(controls_.filter, controls_.tree);
    filterTimer_.setSingleShot(true);
    filterTimer_.setInterval(kFilterPause);
    connect(&filterTimer_, &QTimer::timeout, this, &NodePicker::ApplyFilter);
    connect(controls_.filter, &QLineEdit::textChanged, this, [this] { filterTimer_.start(); });
    connect(controls_.tree, &QTreeView::expanded, this, &NodePicker::OnExpanded);
    connect(controls_.tree, &QTreeView::doubleClicked, this, &NodePicker::DoubleClicked);
    connect(controls_.tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &NodePicker::OnCurrentChanged);
}

NodePicker::~NodePicker() = default;

void NodePicker::OnExpanded(const QModelIndex& index) {
    ContentsItem* const item = ContentsModel::ItemAt(index);
    if (item == nullptr || !item->IsUnloaded()) return;
    pane_.Expand(*item);
    controls_.tree->setCurrentIndex(model_->IndexOf(pane_.Tree().Find(pane_.Selection())));
}

void NodePicker::OnCurrentChanged(const QModelIndex& index) {
    pane_.Click(ContentsModel::ItemAt(index));
    emit SelectionChanged();
}

void NodePicker::ApplyFilter() {
    const std::string text = FromQt(controls_.filter->text());
    pane_.SetFilter(text);
    controls_.more->setVisible(pane_.IsFilterCut());
    if (!text.empty()) OpenLoaded(*controls_.tree, *model_);
    controls_.tree->setCurrentIndex(model_->IndexOf(pane_.Tree().Find(pane_.Selection())));
    emit SelectionChanged();
}

}  // namespace snippetarium
