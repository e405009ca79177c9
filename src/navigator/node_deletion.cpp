#include "navigator/node_deletion.h"

#include <algorithm>
#include <utility>

#include "navigator/node.h"
#include "navigator/node_content.h"
#include "store/database.h"
#include "store/owner_place.h"
#include "store/trash.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

/// The newest entry of the trash; a default one where it is empty.
TrashEntry NewestEntry(Database& db) {
    const std::vector<TrashEntry> entries = ListTrash(db);
    return entries.empty() ? TrashEntry() : entries.front();
}

}  // namespace

bool NodeDeletion::Delete(const NodeIDs& node) {
    return Guarded(db_.Reporter(), Procedure::DeleteNode, [&] {
        const std::string name = NameOfNode(db_, node);
        if (node == NodeIDs{} || name.empty()) return false;
        const StandardAnswer answer =
            AskYesNo(db_.GetHost().messages, DeletionQuestion(node, name, ContentOf(db_, node)),
                     kQuestionTitle);
        if (answer != StandardAnswer::Yes) return false;
        const std::int32_t newestBefore = NewestEntry(db_).trashID;
        DeleteNode(db_, node);
        const TrashEntry kept = NewestEntry(db_);
        if (kept.trashID > newestBefore) undoable_.push_back({kept.trashID, name});
        return true;
    });
}

std::string NodeDeletion::UndoName() const {
    return undoable_.empty() ? std::string() : undoable_.back().name;
}

NodeIDs NodeDeletion::Undo() {
    return Guarded(db_.Reporter(), Procedure::UndoDelete, [&] {
        if (undoable_.empty()) return NodeIDs();
        const Deleted last = undoable_.back();
        const TrashReturn back = RestoreFromTrash(db_, last.trashID);
        Forget(last.trashID);
        std::string remarks;
        for (const std::string& remark : back.remarks)
            remarks += (remarks.empty() ? "" : "\r\n\r\n") + remark;
        if (!remarks.empty()) ShowInformation(db_.GetHost().messages, remarks, kInformationTitle);
        return PlaceOf(db_, back.owner);
    });
}

void NodeDeletion::Forget(std::int32_t trashID) {
    std::erase_if(undoable_, [&](const Deleted& deleted) { return deleted.trashID == trashID; });
}

}  // namespace snippetarium
