#include "editors/overlong.h"

#include "store/database.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string FromWhere(const Owner& owner, std::string_view part) {
    return Sql(" FROM tblOverlong WHERE ownerID = ", owner.id, " AND ownerTableID = ", owner.kind,
               " AND part = ", SqlText(part));
}

}  // namespace

std::string OverlongRest(Database& db, const Owner& owner, std::string_view part) {
    return Guarded(db.Reporter(), Procedure::OverlongRest, [&] {
        const Recordset row =
            db.GetConnection().Execute(Sql("SELECT text", FromWhere(owner, part)));
        return row.EndOfFile() ? std::string() : row["text"].Text();
    });
}

void ForgetOverlong(Database& db, const Owner& owner, std::string_view part) {
    Guarded(db.Reporter(), Procedure::ForgetOverlong,
            [&] { ExecuteSQL(db, Sql("DELETE", FromWhere(owner, part))); });
}

}  // namespace snippetarium
