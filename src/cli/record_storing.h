#pragma once

#include "editors/application_record.h"
#include "editors/class_record.h"
#include "editors/code_record.h"
#include "editors/owner_details.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

// Stores a record with its authors, dates and keywords, new or edited. Everything is checked before
// anything is written: a record that may not be stored throws RefusedError, the user has been told
// why, and the catalogue is as it was. Returns the node.

NodeIDs StoreRecord(Database& db, const ApplicationRecord& record, const DetailChanges& details);
NodeIDs StoreRecord(Database& db, const ClassRecord& record, const DetailChanges& details);
NodeIDs StoreRecord(Database& db, const CodeRecord& record, const DetailChanges& details);

/// The authors, dates and keywords alone. Application 1 and class 1 have none.
void StoreDetails(Database& db, const NodeIDs& node, const DetailChanges& details);

}  // namespace snippetarium
