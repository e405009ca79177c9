#pragma once

#include "store/owner.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

/// Where an application, a class or a procedure stands in the contents tree now: its own ID and
/// those of what holds it. All 0 where there is none of that ID.
NodeIDs PlaceOf(Database& db, const Owner& owner);

}  // namespace snippetarium
