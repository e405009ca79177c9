#include "forms/fContents.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include "forms/contents_model.h"
#include "forms/handler.h"
#include "forms/qt_events.h"
#include "forms/qt_text.h"
#include "forms/tree_opening.h"
#include "store/database.h"
#include "ui_fContents.h"

namespace snippetarium {

fContents::fContents(Database& db, QWidget* parent)
    : ChildPane(parent), db_(db), pane_(db), deletion_(db), ui_(std::make_unique<Ui::fContents>()) {
    ui_->setupUi(this);
    model_ = new ContentsModel(pane_, this);
    ui_->trVwClass->setModel(model_);
    filterTimer_.setSingleShot(true);
    filterTimer_.setInterval(kFilterPause);
    connect(&filterTimer_, &QTimer::timeout, this, &fContents::ApplyFilter);
    connect(ui_->txtFilter, &QLineEdit::textChanged, this, [this] { filterTimer_.start(); });
    connect(ui_->txtFilter, &QLineEdit::returnPressed, this, [this] {
        ApplyFilter();
        ui_->trVwClass->setFocus();
    });
    ConnectTree();
}

fContents::~fContents() = default;

ErrorReporter& fContents::Reporter() {
    return db_.Reporter();
}

void fContents::ConnectTree() {
    QTreeView* const tree = ui_->trVwClass;
    tree->installEventFilter(this);
    connect(tree, &QTreeView::expanded, this, &fContents::OnExpanded);
    connect(tree, &QTreeView::doubleClicked, this, &fContents::OnDoubleClicked);
    connect(tree, &QTreeView::customContextMenuRequested, this, &fContents::OnContextMenu);
    // Not the current node: a click of the mouse changes that before it selects, and a tree that
    // gets the focus makes its first node the current one without selecting it.
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &fContents::OnSelectionChanged);
    // The control finishes its edit before anything is stored or asked.
    connect(model_, &ContentsModel::NameEntered, this, &fContents::OnNameEntered,
            Qt::QueuedConnection);
}

void fContents::Load(const std::function<void()>& loadIndex) {
    {
        const QScopedValueRollback moving(isSelfMoving_, true);
        const QSignalBlocker quiet(ui_->txtFilter);
        ui_->txtFilter->clear();
        pane_.Load({.isPaneShown = isVisible(), .loadIndex = loadIndex});
    }
    ui_->lblFilter->hide();
    emit CatalogueChanged();
}

void fContents::Refresh() {
    {
        const QScopedValueRollback moving(isSelfMoving_, true);
        pane_.Refresh();
        ShowSelection();
    }
    emit NodeSelected(pane_.Selection());
    emit CatalogueChanged();
}

bool fContents::SelectNode(const NodeIDs& node) {
    return SelectBy([&] { return pane_.Select(node); });
}

bool fContents::SelectTopic(std::string_view topicKey) {
    return SelectBy([&] { return pane_.SelectTopic(topicKey); });
}

bool fContents::SelectBy(const std::function<const ContentsItem*()>& select) {
    const ContentsItem* item = nullptr;
    {
        const QScopedValueRollback moving(isSelfMoving_, true);
        item = select();
        if (pane_.Filter().empty()) {
            const QSignalBlocker quiet(ui_->txtFilter);
            ui_->txtFilter->clear();
            ui_->lblFilter->hide();
        }
        ShowSelection();
    }
    if (item == nullptr) return false;
    emit NodeSelected(pane_.Selection());
    return true;
}

void fContents::ShowSelection() {
    const QModelIndex index = model_->IndexOf(pane_.Tree().Find(pane_.Selection()));
    ui_->trVwClass->setCurrentIndex(index);
    if (index.isValid()) ui_->trVwClass->scrollTo(index);
}

void fContents::StartRename() {
    const QModelIndex index = ui_->trVwClass->currentIndex();
    if (index.isValid()) ui_->trVwClass->edit(index);
}

void fContents::DeleteSelected() {
    const NodeIDs node = pane_.Selection();
    if (!deletion_.Delete(node)) return;
    pane_.SelectBeside(node);
    emit NodeDeleted(node);
    Refresh();
}

void fContents::UndoDelete() {
    const NodeIDs node = deletion_.Undo();
    Refresh();
    if (node != NodeIDs{}) SelectNode(node);
}

void fContents::FocusFirst() {
    ui_->trVwClass->setFocus();
}

void fContents::FocusFilter() {
    ui_->txtFilter->setFocus();
    ui_->txtFilter->selectAll();
}

bool fContents::eventFilter(QObject* watched, QEvent* event) {
    // The keys that the box of a name leaves over come here too.
    if (event->type() != QEvent::KeyPress || IsNameBoxOpen())
        return ChildPane::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Down:
        case Qt::Key_Up:
            return SelectFirst();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            OnDoubleClicked(ui_->trVwClass->currentIndex());
            return true;
        default:
            return false;
    }
}

bool fContents::IsNameBoxOpen() const {
    return ui_->trVwClass->viewport()->findChild<QLineEdit*>() != nullptr;
}

bool fContents::SelectFirst() {
    QTreeView* const tree = ui_->trVwClass;
    if (tree->selectionModel()->hasSelection() || model_->rowCount({}) == 0) return false;
    // It may be the current one already, though nobody sees that: see ConnectTree.
    tree->setCurrentIndex({});
    tree->setCurrentIndex(model_->index(0, 0, {}));
    return true;
}

void fContents::OnExpanded(const QModelIndex& index) {
    ContentsItem* const item = ContentsModel::ItemAt(index);
    if (item == nullptr || isSelfMoving_) return;
    Handle(Reporter(), Procedure::ContentsEvent, [&] {
        pane_.Expand(*item);
        const QScopedValueRollback moving(isSelfMoving_, true);
        ShowSelection();
        emit NodeSelected(pane_.Selection());
    });
}

void fContents::OnSelectionChanged(const QItemSelection& selected) {
    if (selected.isEmpty() || isSelfMoving_) return;
    const ContentsItem* const item = ContentsModel::ItemAt(selected.indexes().constFirst());
    if (item == nullptr) return;
    Handle(Reporter(), Procedure::ContentsEvent, [&] {
        pane_.Click(item);
        emit NodeSelected(pane_.Selection());
    });
}

void fContents::OnDoubleClicked(const QModelIndex& index) {
    Handle(Reporter(), Procedure::ContentsEvent, [&] {
        const ContentsItem* const item = ContentsModel::ItemAt(index);
        if (item == nullptr || item->Kind() == NodeKind::Placeholder) return;
        if (const EditRequest request = pane_.DoubleClick(*item)) emit EditRequested(*request);
    });
}

void fContents::OnContextMenu(const QPoint& position) {
    QTreeView* const tree = ui_->trVwClass;
    const QModelIndex index = tree->indexAt(position);
    if (index.isValid()) tree->setCurrentIndex(index);
    const ContentsItem* const item = ContentsModel::ItemAt(index);
    menuNode_ = item == nullptr ? NodeIDs{} : item->IDs();
    emit MenuRequested(menuNode_, tree->viewport()->mapToGlobal(position));
}

void fContents::OnNameEntered(const NodeIDs& node, const QString& name) {
    Handle(Reporter(), Procedure::ContentsEvent, [&] {
        if (!pane_.Rename(node, FromQt(name))) return;
        const QScopedValueRollback moving(isSelfMoving_, true);
        ShowSelection();
        emit NodeSelected(pane_.Selection());
        emit CatalogueChanged();
    });
}

void fContents::ApplyFilter() {
    Handle(Reporter(), Procedure::ContentsEvent, [&] {
        filterTimer_.stop();
        if (IsYielding(db_.GetHost().events)) return filterTimer_.start();
        const std::string text = FromQt(ui_->txtFilter->text());
        if (text == pane_.Filter()) return;
        const QScopedValueRollback moving(isSelfMoving_, true);
        pane_.SetFilter(text);
        ui_->lblFilter->setVisible(pane_.IsFilterCut());
        if (!text.empty()) OpenLoaded(*ui_->trVwClass, *model_);
        ShowSelection();
    });
}

}  // namespace snippetarium
