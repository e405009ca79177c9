#pragma once

#include <string_view>

#include "support/node_key.h"

namespace snippetarium {

class Database;

/// Gives an application, a class or a procedure of the contents tree another name; the marker of a
/// procedure gets it too. True when the node has the name now. Where the name may not be given, the
/// user has been told why and nothing is written. False on a failure too.
bool RenameNode(Database& db, const NodeIDs& node, std::string_view name);

}  // namespace snippetarium
