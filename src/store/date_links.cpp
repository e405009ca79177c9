#include "store/date_links.h"

#include <optional>

#include "store/database.h"
#include "store/link_removal.h"
#include "store/new_id.h"
#include "store/sql_text.h"
#include "support/arrays.h"
#include "support/date_text.h"
#include "support/guard.h"

namespace snippetarium {

void ReplaceDateLinks(Database& db, const Owner& owner, std::span<const std::string> dates) {
    Guarded(db.Reporter(), Procedure::ReplaceDateLinks, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tbl_date_link WHERE ownerID = ", owner.id,
                           " AND ownerTableID = ", owner.kind));
        for (const std::string& text : dates) {
            const std::optional<DateTime> date = ParseDateText(text);
            if (!date) continue;
            const std::int32_t dateID = FindOrAddDate(db, *date);
            ExecuteSQL(db, Sql("INSERT INTO tbl_date_link VALUES(", owner.id, ", ", dateID, ", ",
                               owner.kind, ")"));
        }
    });
}

void ReplaceGivenDateLinks(Database& db, const Owner& owner, std::span<const std::string> dates) {
    if (!IsEmptyStringArray(dates)) ReplaceDateLinks(db, owner, dates);
}

std::int32_t FindOrAddDate(Database& db, const DateTime& date) {
    return Guarded(db.Reporter(), Procedure::FindOrAddDate, [&] {
        const std::string literal = SqlDate(date);
        const std::int32_t found =
            ScalarLong(db, Sql("SELECT dateID FROM tblDate WHERE dDate = ", literal, ";"));
        if (found != 0) return found;
        const std::int32_t newID = NewID(db, "dateID", "tblDate");
        ExecuteSQL(db, Sql("INSERT INTO tblDate VALUES(", newID, ", ", literal, ")"));
        return newID;
    });
}

bool RemoveDateLinks(Database& db, OwnerKind kind, std::string_view ownerIDs) {
    static constexpr SharedRows kDates{"tblDate", "dateID", "tbl_date_link"};
    return GuardedStage(db.Reporter(), Procedure::RemoveDateLinks, [&] {
        RemoveLinks(db, kDates, kind, ownerIDs);
        return true;
    });
}

}  // namespace snippetarium
