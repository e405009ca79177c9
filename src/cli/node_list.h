#pragma once

#include "support/node_key.h"

namespace snippetarium {

class CommandContext;
class Database;

/// A command that lists something of all nodes, or with a KEY of one, and changes it there.
struct NodeList {
    void (*listAll)(CommandContext&);
    void (*listOf)(CommandContext&, Database&, const NodeIDs&);
    /// Does what the options say, before the node's list is printed.
    void (*change)(const CommandContext&, Database&, const NodeIDs&);
};

/// Runs it. `changes`: whether the options ask for a change, which needs the KEY.
void RunNodeList(CommandContext& context, const NodeList& list, bool changes);

}  // namespace snippetarium
