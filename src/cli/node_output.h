#pragma once

#include <string>
#include <string_view>

#include "cli/json.h"
#include "support/node_key.h"

namespace snippetarium {

class CommandContext;
class Database;

/// A node as a member of a document: its key, kind and name.
Json NodeDocument(Database& db, const NodeIDs& node);

/// Tells what a command has done with a node that is there: "Added: a12f34  Grid", or with --json
/// the node's document.
void ReportNode(CommandContext& context, Database& db, std::string_view done, const NodeIDs& node);

}  // namespace snippetarium
