#include "navigator/node_content.h"

#include <cstdint>

#include "navigator/node.h"
#include "store/deletion.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"
#include "support/text.h"

namespace snippetarium {

namespace {

std::size_t CountClasses(Database& db, std::int32_t appID) {
    std::size_t count = 0;
    for (Recordset row = ClassIDNameRSByAppID(db, appID); !row.EndOfFile(); row.MoveNext())
        count += row["classID"].Long() != kUndefinedClassID ? 1 : 0;
    return count;
}

/// "3 classes and 20 procedures".
std::string TextOf(const NodeIDs& node, const NodeContent& content) {
    const std::string procedures = Counted(content.procedures, "procedure", "procedures");
    if (KindOf(node) == NodeKind::Class) return procedures;
    return Counted(content.classes, "class", "classes") + " and " + procedures;
}

}  // namespace

bool IsPermanent(const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Application:
            return node.appID == kUndefinedApplicationID;
        case NodeKind::Class:
            return node.classID == kUndefinedClassID;
        default:
            return false;
    }
}

NodeContent ContentOf(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Application:
            return {.classes = CountClasses(db, node.appID),
                    .procedures = static_cast<std::size_t>(CountCodeByAppID(db, node.appID))};
        case NodeKind::Class:
            return {.procedures = CodeIDCodeNameByClassID(db, node.classID).RowCount()};
        default:
            return {};
    }
}

std::string DeletionQuestion(const NodeIDs& node, std::string_view name,
                             const NodeContent& content) {
    const std::string what = std::string(KindName(KindOf(node))) + " '" + std::string(name) + "'";
    if (IsPermanent(node)) {
        return "Delete all that is in the " + what + ", " + TextOf(node, content) +
               "? It stays itself, empty.";
    }
    if (KindOf(node) == NodeKind::Procedure) return "Delete the " + what + "?";
    return "Delete the " + what + " with its " + TextOf(node, content) + "?";
}

void DeleteNode(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return DeleteCode(db, node.codeID);
        case NodeKind::Class:
            return DeleteClass(db, node.classID);
        default:
            return DeleteApplication(db, node.appID);
    }
}

}  // namespace snippetarium
