#include "store/link_removal.h"

#include "store/database.h"
#include "store/sql_text.h"

namespace snippetarium {

void RemoveLinks(Database& db, const SharedRows& shared, OwnerKind kind,
                 std::string_view ownerIDs) {
    const auto& [table, idColumn, linkTable] = shared;
    const std::string links =
        Sql(linkTable, " WHERE ownerID IN (", ownerIDs, ") AND ownerTableID=", kind);
    ExecuteSQL(db, Sql("INSERT INTO tblIDsToDelete SELECT ", idColumn, " AS ID FROM ", links));
    ExecuteSQL(db, Sql("DELETE FROM ", links));
    ExecuteSQL(db, Sql("DELETE FROM tblIDsToDelete WHERE ID IN (SELECT ", idColumn, " FROM ",
                       linkTable, ")"));
    ExecuteSQL(db, Sql("DELETE FROM ", table, " WHERE ", idColumn, " IN (SELECT ", idColumn,
                       " FROM tblIDsToDelete)"));
    ExecuteSQL(db, "DELETE FROM tblIDsToDelete");
}

}  // namespace snippetarium
