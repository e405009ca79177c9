#include "navigator/node.h"

#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"

namespace snippetarium {

NodeKind KindOf(const NodeIDs& node) {
    if (node.codeID != 0) return NodeKind::Procedure;
    return node.classID != 0 ? NodeKind::Class : NodeKind::Application;
}

std::string_view KindName(NodeKind kind) {
    switch (kind) {
        case NodeKind::Procedure:
            return "procedure";
        case NodeKind::Class:
            return "class";
        default:
            return "application";
    }
}

std::string KeyOf(const NodeIDs& node) {
    if (node == NodeIDs{}) return {};
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return ProcedureNodeKey(node);
        case NodeKind::Class:
            return ClassNodeKey(node.appID, node.classID);
        default:
            return ApplicationNodeKey(node.appID);
    }
}

Owner OwnerOf(const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return {OwnerKind::Procedure, node.codeID};
        case NodeKind::Class:
            return {OwnerKind::Class, node.classID};
        default:
            return {OwnerKind::Application, node.appID};
    }
}

std::string NameOfNode(Database& db, const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return CodeNameByID(db, node.codeID);
        case NodeKind::Class:
            return ClassNameByID(db, node.classID);
        default:
            return AppNameByID(db, node.appID);
    }
}

NodeIDs ParentOf(const NodeIDs& node) {
    switch (KindOf(node)) {
        case NodeKind::Procedure:
            return {.appID = node.appID, .classID = node.classID};
        case NodeKind::Class:
            return {.appID = node.appID};
        default:
            return {};
    }
}

bool IsWithin(const NodeIDs& node, const NodeIDs& top) {
    return node.appID == top.appID && (top.classID == 0 || node.classID == top.classID) &&
           (top.codeID == 0 || node.codeID == top.codeID);
}

}  // namespace snippetarium
