#pragma once

#include <string>
#include <string_view>

#include "store/owner.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

// What the IDs of a node of the contents tree say. All 0 is no node.

/// How the tree calls the application and the class that take in what belongs nowhere.
inline constexpr std::string_view kUndefinedApplicationText = "Application Undefined";
inline constexpr std::string_view kUndefinedClassText = "Class/Module Undefined";

/// By the deepest ID; never Placeholder.
NodeKind KindOf(const NodeIDs& node);
/// "application", "class" or "procedure".
std::string_view KindName(NodeKind kind);
/// "a12f34" for {12, 34, 0}; empty for no node.
std::string KeyOf(const NodeIDs& node);
Owner OwnerOf(const NodeIDs& node);
/// The name in the catalogue; empty where the node is gone.
std::string NameOfNode(Database& db, const NodeIDs& node);

/// The node one level up; all 0 above an application.
NodeIDs ParentOf(const NodeIDs& node);
/// Whether `node` is `top` or below it.
bool IsWithin(const NodeIDs& node, const NodeIDs& top);

}  // namespace snippetarium
