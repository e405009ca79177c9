#pragma once

#include <string>

#include "navigator/node.h"

namespace snippetarium {

class Database;

// The nodes of the contents tree as a command line names them, by their keys.

/// The IDs in a key. Throws UsageError for a text that is no key.
NodeIDs ReadNodeKey(const std::string& key);

/// Throws Error where the catalogue has no such node. One whose IDs are there but belong elsewhere
/// is no such node; the message then has the right key.
void RequireNode(Database& db, const NodeIDs& node);

}  // namespace snippetarium
