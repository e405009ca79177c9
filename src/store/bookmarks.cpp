#include "store/bookmarks.h"

#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"
#include "support/node_key.h"

namespace snippetarium {

namespace {

bool AddClassBookmark(Database& db, const NodeIDs& ids) {
    // It finds the bookmarks of the class's procedures as well.
    if (RecordExists(db, Sql("SELECT classID FROM tblFavorite WHERE classID = ", ids.classID))) {
        return false;
    }
    ExecuteSQL(db, Sql("INSERT INTO tblFavorite(appID, classID) VALUES(", ids.appID, ", ",
                       ids.classID, ")"));
    return true;
}

bool AddProcedureBookmark(Database& db, const NodeIDs& ids) {
    if (RecordExists(db, Sql("SELECT codeID FROM tblFavorite WHERE codeID = ", ids.codeID))) {
        return false;
    }
    ExecuteSQL(db, Sql("INSERT INTO tblFavorite VALUES(", ids.appID, ", ", ids.classID, ", ",
                       ids.codeID, ")"));
    return true;
}

}  // namespace

bool AddBookmark(Database& db, std::string_view nodeKey) {
    return Guarded(db.Reporter(), Procedure::AddBookmark, [&] {
        const NodeKind kind = KindOfNodeKey(nodeKey);
        const NodeIDs ids = ParseNodeKey(nodeKey);
        if (ids.appID == 0 || ids.classID == 0) return false;
        if (kind == NodeKind::Class) return AddClassBookmark(db, ids);
        return kind == NodeKind::Procedure && ids.codeID != 0 && AddProcedureBookmark(db, ids);
    });
}

bool DeleteBookmark(Database& db, std::string_view nodeKey) {
    return Guarded(db.Reporter(), Procedure::DeleteBookmark, [&] {
        const NodeKind kind = KindOfNodeKey(nodeKey);
        const NodeIDs ids = ParseNodeKey(nodeKey);
        if (kind != NodeKind::Class && kind != NodeKind::Procedure) return false;
        const std::string procedure =
            kind == NodeKind::Class ? std::string("IS NULL") : Sql("= ", ids.codeID);
        return ExecuteSQL(db, Sql("DELETE FROM tblFavorite WHERE appID = ", ids.appID,
                                  " AND classID = ", ids.classID, " AND codeID ", procedure)) > 0;
    });
}

}  // namespace snippetarium
