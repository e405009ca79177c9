#pragma once

#include <cstdint>
#include <string>

#include "support/node_key.h"

namespace snippetarium {

class Database;

// What the main window's status bar says. Empty texts on a failure, which is reported.

/// Where the node is: "Paint > Grid > Draw"; empty for none.
std::string PathText(Database& db, const NodeIDs& node);

/// "12 applications, 340 classes, 10,000 procedures". Counts the tables, so it is asked for after
/// changes only.
std::string CountsText(Database& db);

}  // namespace snippetarium
