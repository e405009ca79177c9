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

}  // namespace snippetarium
