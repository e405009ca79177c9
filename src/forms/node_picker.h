#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "navigator/contents_pane.h"

class QLabel;
class QLineEdit;
class QModelIndex;
class QTreeView;

namespace snippetarium {

class ContentsModel;
class Database;

/// The controls of a dialog in which a node of the catalogue is chosen: a tree, an entry that
/// filters it by name, and a label for when more names fit than are shown. Owned by the tree.
class NodePicker final : public QObject {
    Q_OBJECT

  public:
    struct Controls {
        QLineEdit* filter;
        QTreeView* tree;
        QLabel* more;
    };

    NodePicker(Database& db, const Controls& controls);
    ~NodePicker() override;

    /// All 0 for none.
    const NodeIDs& Selection() const { return pane_.Selection(); }

  signals:
    void SelectionChanged();
    void DoubleClicked();

  private:
    void OnExpanded(const QModelIndex& index);
    void OnCurrentChanged(const QModelIndex& index);
    void ApplyFilter();

    Controls controls_;
    ContentsPane pane_;
    std::unique_ptr<ContentsModel> model_;
    QTimer filterTimer_;
};

}  // namespace snippetarium
