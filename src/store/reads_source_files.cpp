#include "store/reads_source_files.h"

#include <string_view>

#include "store/database.h"
#include "store/owner.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

Recordset Read(Database& db, std::string_view sql) {
    db.SetCurrentStatement(sql);
    return db.GetConnection().Execute(db.CurrentStatement());
}

}  // namespace

Recordset OverlongTextsOfClass(Database& db, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::OverlongTextsOfClass, [&] {
        return Read(
            db, Sql("SELECT ownerTableID, ownerID, part, text FROM tblOverlong "
                    "WHERE (ownerTableID = ",
                    OwnerKind::Class, " AND ownerID = ", classID,
                    ") OR (ownerTableID = ", OwnerKind::Procedure,
                    " AND ownerID IN (SELECT codeID FROM tblCode WHERE classID = ", classID, "))"));
    });
}

std::string SourceFormOfClass(Database& db, std::int32_t classID) {
    return Guarded(db.Reporter(), Procedure::SourceFormOfClass, [&] {
        const Recordset row =
            Read(db, Sql("SELECT form FROM tblSourceForm WHERE classID = ", classID));
        return row.EndOfFile() ? std::string() : row["form"].Text();
    });
}

}  // namespace snippetarium
