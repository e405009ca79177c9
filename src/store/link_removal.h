#pragma once

#include <string_view>

#include "store/owner.h"

namespace snippetarium {

class Database;

/// Rows that owners share through a link table.
struct SharedRows {
    /// The table of the rows and the column of their IDs, which the link table has too.
    std::string_view table;
    std::string_view idColumn;
    std::string_view linkTable;
};

/// Removes the links of some owners of one kind, and of the rows that they were linked to those
/// that nothing uses any more. `ownerIDs` is what stands between the brackets of IN: IDs with
/// commas between them, or a SELECT.
///
/// The candidates wait in tblIDsToDelete. It is empty afterwards, also of what a removal that
/// failed has left there. Throws what ExecuteSQL throws inside a guard.
void RemoveLinks(Database& db, const SharedRows& shared, OwnerKind kind, std::string_view ownerIDs);

}  // namespace snippetarium
