#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string_view>

#include "forms/child_pane.h"
#include "navigator/contents_pane.h"
#include "navigator/node_deletion.h"

class QItemSelection;
class QModelIndex;

namespace snippetarium {

class ContentsModel;
class Database;
class ErrorReporter;

namespace Ui {
class fContents;
}

/// The contents pane: the tree of applications, classes and procedures, with a line above it that
/// filters by name.
class fContents final : public ChildPane {
    Q_OBJECT

  public:
    fContents(Database& db, QWidget* parent);
    ~fContents() override;

    /// Fills the tree from scratch; `loadIndex` as in ContentsLoading.
    void Load(const std::function<void()>& loadIndex);
    /// After the catalogue was changed.
    void Refresh();

    /// The current selection; all 0 for none.
    const NodeIDs& Selection() const { return pane_.Selection(); }
    /// The node whose pop-up menu was opened last; all 0 beside all nodes.
    const NodeIDs& MenuNode() const { return menuNode_; }
    /// Selects a node, loading what is above it. False where it cannot be shown.
    bool SelectNode(const NodeIDs& node);
    /// The same for a topic: "f56".
    bool SelectTopic(std::string_view topicKey);

    void StartRename();
    /// Deletes the selected node, asking first; the tree shows what is left.
    void DeleteSelected();
    void UndoDelete();
    NodeDeletion& Deletion() { return deletion_; }

    void FocusFirst() override;
    void FocusFilter();

  signals:
    /// Another node is selected, or the selected one has changed.
    void NodeSelected(const NodeIDs& node);
    void NodeDeleted(const NodeIDs& node);
    /// The catalogue holds more, less or other names than before.
    void CatalogueChanged();
    void EditRequested(const EditTarget& target);
    /// A right click on a node, or beside all (all 0).
    void MenuRequested(const NodeIDs& node, const QPoint& globalPosition);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ConnectTree();
    /// While a name is edited in place.
    bool IsNameBoxOpen() const;
    /// The first arrow key in a tree without a selection. False where there is one.
    bool SelectFirst();
    void OnExpanded(const QModelIndex& index);
    void OnSelectionChanged(const QItemSelection& selected);
    /// Enter does the same.
    void OnDoubleClicked(const QModelIndex& index);
    void OnContextMenu(const QPoint& position);
    void OnNameEntered(const NodeIDs& node, const QString& name);
    void ApplyFilter();
    void ShowSelection();
    bool SelectBy(const std::function<const ContentsItem*()>& select);
    ErrorReporter& Reporter();

    Database& db_;
    ContentsPane pane_;
    NodeDeletion deletion_;
    std::unique_ptr<Ui::fContents> ui_;
    ContentsModel* model_ = nullptr;
    QTimer filterTimer_;
    NodeIDs menuNode_;
    /// While the program, not the user, selects and expands.
    bool isSelfMoving_ = false;
};

}  // namespace snippetarium
