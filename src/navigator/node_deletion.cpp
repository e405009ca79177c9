#include "navigator/node_deletion.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "navigator/node.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "store/trash.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/text.h"

namespace snippetarium {

namespace {

bool IsPermanent(const NodeIDs& node) {
    if (node.codeID != 0) return false;
    return node.classID == 0 ? node.appID == kUndefinedApplicationID
                             : node.classID == kUndefinedClassID;
}

/// "3 classes and 20 procedures"
std::string ContentText(Database& db, const NodeIDs& node) {
    if (node.classID != 0) {
        const std::size_t count = CodeIDCodeNameByClassID(db, node.classID).RowCount();
        return Counted(count, "procedure", "procedures");
    }
    const std::size_t classes = ClassIDNameRSByAppID(db, node.appID).RowCount();
    const std::int32_t procedures = CountCodeByAppID(db, node.appID);
    return Counted(classes, "class", "classes") + " and " +
           Counted(static_cast<std::size_t>(procedures), "procedure", "procedures");
}

std::string Question(Database& db, const NodeIDs& node, const std::string& name) {
    const std::string what = std::string(KindName(KindOf(node))) + " '" + name + "'";
    if (IsPermanent(node)) {
        return "Delete all that is in the " + what + ", " + ContentText(db, node) +
               "? It stays itself, empty.";
    }
    if (node.codeID != 0) return "Delete the " + what + "?";
    return "Delete the " + what + " with its " + ContentText(db, node) + "?";
}

void DeleteThe(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return DeleteCode(db, node.codeID);
        case NodeKind::Class:
            return DeleteClass(db, node.classID);
        default:
            return DeleteApplication(db, node.appID);
    }
}

/// The newest entry of the trash; a default one where it is empty.
TrashEntry NewestEntry(Database& db) {
    const std::vector<TrashEntry> entries = ListTrash(db);
    return entries.empty() ? TrashEntry() : entries.front();
}

/// Where an owner stands in the tree.
NodeIDs NodeOf(Database& db, const Owner& owner) {
    if (owner.id == 0) return {};
    switch (owner.kind) {
        case OwnerKind::Application:
            return {.appID = owner.id};
        case OwnerKind::Class:
            return {.appID = AppIDByClassID(db, owner.id), .classID = owner.id};
        case OwnerKind::Procedure:
            break;
    }
    const Recordset row = AppIDClassIDRSByCodeID(db, owner.id);
    if (row.EndOfFile()) return {};
    return {row["appID"].Long(), row["classID"].Long(), owner.id};
}

}  // namespace

bool NodeDeletion::Delete(const NodeIDs& node) {
    return Guarded(db_.Reporter(), Procedure::DeleteNode, [&] {
        const std::string name = NameOfNode(db_, node);
        if (node == NodeIDs{} || name.empty()) return false;
        const StandardAnswer answer =
            AskYesNo(db_.GetHost().messages, Question(db_, node, name), kQuestionTitle);
        if (answer != StandardAnswer::Yes) return false;
        const std::int32_t newestBefore = NewestEntry(db_).trashID;
        DeleteThe(db_, node);
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
        return NodeOf(db_, back.owner);
    });
}

void NodeDeletion::Forget(std::int32_t trashID) {
    std::erase_if(undoable_, [&](const Deleted& deleted) { return deleted.trashID == trashID; });
}

}  // namespace snippetarium
