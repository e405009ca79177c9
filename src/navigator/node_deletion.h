#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/node_key.h"

namespace snippetarium {

class Database;

/// Deletes nodes with all that is in them, through the trash, and takes deletions of this run back.
class NodeDeletion {
  public:
    explicit NodeDeletion(Database& db) : db_(db) {}

    /// Asks first, with what will go; shows its progress. True when the node was deleted. What
    /// could not be kept in the trash is not deleted.
    bool Delete(const NodeIDs& node);

    bool CanUndo() const { return !undoable_.empty(); }
    /// The name of what Undo would bring back; empty where there is nothing.
    std::string UndoName() const;
    /// Brings the last deletion back; the user is told what he should know of it. Returns the node
    /// as it is now, all 0 where nothing came back.
    NodeIDs Undo();
    /// After the trash was emptied, or an entry brought back from its own window.
    void Forget(std::int32_t trashID);

  private:
    struct Deleted {
        std::int32_t trashID = 0;
        std::string name;
    };

    Database& db_;
    std::vector<Deleted> undoable_;
};

}  // namespace snippetarium
