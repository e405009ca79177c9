#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "store/trash.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;
class NodeDeletion;

namespace Ui {
class fTrash;
}

/// What was deleted in the last days, to be brought back or removed for good.
class fTrash final : public QDialog {
    Q_OBJECT

  public:
    /// `deletion` forgets what can no longer be undone.
    fTrash(Database& db, NodeDeletion& deletion, QWidget* parent);
    ~fTrash() override;

  signals:
    void BroughtBack(const NodeIDs& node);

  private:
    void List();
    void Restore();
    void Empty();
    /// The last one where there is no such row.
    void SelectRow(int row);
    void EnableButtons();
    void OpenHelpPage();

    Database& db_;
    NodeDeletion& deletion_;
    std::unique_ptr<Ui::fTrash> ui_;
    std::vector<TrashEntry> entries_;
};

}  // namespace snippetarium
