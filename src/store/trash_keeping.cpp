#include "store/class_markers.h"
#include "store/class_text.h"
#include "store/database.h"
#include "store/sql_text.h"
#include "store/trash_entry.h"
#include "store/trash_script.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

// Everything here goes past ExecuteSQL: the statement that ran last, which the error message shows,
// is to be one of the deletion's.

constexpr std::string_view kNewestEntry = "(SELECT max(trashID) FROM tblTrash)";

bool Exists(Database& db, const Owner& owner) {
    const auto& [kind, id] = owner;
    return !db.GetConnection()
                .Execute(Sql("SELECT appID FROM tblApplication WHERE ", kind, " = 1 AND appID = ",
                             id, " UNION ALL SELECT classID FROM tblClass WHERE ", kind,
                             " = 2 AND classID = ", id,
                             " UNION ALL SELECT codeID FROM tblCode "
                             "WHERE ",
                             kind, " = 3 AND codeID = ", id))
                .EndOfFile();
}

bool HasMarkerInItsClass(Database& db, const Owner& owner) {
    if (owner.kind != OwnerKind::Procedure) return false;
    const Recordset row = db.GetConnection().Execute(
        Sql("SELECT codeName, classID FROM tblCode WHERE codeID = ", owner.id));
    if (row.EndOfFile()) return false;
    const std::int32_t classID = row["classID"].Long();
    return HasMarker(ReadClassText(db, classID).text, MarkedProceduresOf(db, classID),
                     row["codeName"].Text());
}

}  // namespace

std::int32_t KeepInTrash(Database& db, const Owner& owner) {
    return Guarded(db.Reporter(), Procedure::KeepInTrash, [&] {
        const auto now = db.GetHost().clock.Now();
        PurgeTrash(db, now);
        if (!Exists(db, owner)) return 0;
        db.GetConnection().RunScript(
            TrashScript("keep.sql", {{"kind", Sql(owner.kind)},
                                     {"owner", Sql(owner.id)},
                                     {"deletedOn", SqlText(TrashTimeText(now))},
                                     {"hasMarker", HasMarkerInItsClass(db, owner) ? "1" : "0"},
                                     {"limit", std::to_string(kLongTextLimit)},
                                     {"entry", std::string(kNewestEntry)}}));
        const Recordset newest = db.GetConnection().Execute("SELECT max(trashID) FROM tblTrash");
        return newest[std::size_t{0}].Long();
    });
}

}  // namespace snippetarium
