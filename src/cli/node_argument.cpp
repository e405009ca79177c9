#include "cli/node_argument.h"

#include "cli/commands.h"
#include "cli/usage_error.h"
#include "store/database.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/error.h"

namespace snippetarium {

namespace {

/// The IDs under which the catalogue has the node; all 0 where it does not have it at all.
NodeIDs WhereItIs(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return ProcedureNode(db, node.codeID);
        case NodeKind::Class:
            return ClassNode(db, node.classID);
        default:
            return ApplicationRSByID(db, node.appID).EndOfFile() ? NodeIDs{} : node;
    }
}

}  // namespace

NodeIDs ReadNodeKey(const std::string& key) {
    const NodeIDs node = ParseNodeKey(key);
    if (KeyOf(node) == key && node.appID != 0) return node;
    throw UsageError("'" + key +
                     "' is no key of a node. Keys look like a12 (an application), a12f34 (a "
                     "class) and a12f34c56 (a procedure).");
}

void RequireNode(Database& db, const NodeIDs& node) {
    const NodeIDs found = WhereItIs(db, node);
    if (found == node) return;
    const std::string hint =
        found == NodeIDs{} ? "'" + std::string(kProgramName) + " tree' prints the keys it has."
                           : "The key of this " + std::string(KindName(KindOf(node))) + " is '" +
                                 KeyOf(found) + "'.";
    throw Error(error_number::kInvalidCall, "The catalogue has no '" + KeyOf(node) + "'. " + hint);
}

NodeIDs ClassNode(Database& db, std::int32_t classID) {
    const std::int32_t appID = AppIDByClassID(db, classID);
    return appID == 0 ? NodeIDs{} : NodeIDs{.appID = appID, .classID = classID};
}

NodeIDs ProcedureNode(Database& db, std::int32_t codeID) {
    const Recordset row = AppIDClassIDRSByCodeID(db, codeID);
    if (row.EndOfFile()) return {};
    return {.appID = row["appID"].Long(), .classID = row["classID"].Long(), .codeID = codeID};
}

}  // namespace snippetarium
