#include "store/trash_place.h"

#include "store/database.h"
#include "store/sql_text.h"

namespace snippetarium {

namespace {

bool Exists(Database& db, std::string_view table, std::string_view column, std::int32_t id) {
    return RecordExists(db, Sql("SELECT ", column, " FROM ", table, " WHERE ", column, " = ", id));
}

std::int32_t FindApplication(Database& db, const std::string& name) {
    return ScalarLong(db,
                      Sql("SELECT min(appID) FROM tblApplication WHERE appName = ", SqlText(name)));
}

/// The application of the entry, or the one that has its name now; 0 for none.
std::int32_t FindItsApplication(Database& db, const TrashEntry& entry) {
    if (Exists(db, "tblApplication", "appID", entry.appID)) return entry.appID;
    return FindApplication(db, entry.appName);
}

TrashPlace PlaceOfClass(Database& db, const TrashEntry& entry) {
    if (Exists(db, "tblApplication", "appID", entry.appID)) return {.appID = entry.appID};
    if (entry.appName.empty()) {
        return {.appID = kUndefinedApplicationID,
                .remark = "It belonged to no application, so it is among those of none now."};
    }
    const std::string gone = "Its application '" + entry.appName + "' has been deleted. ";
    if (const std::int32_t other = FindApplication(db, entry.appName); other != 0)
        return {.appID = other, .remark = gone + "It went into the one that has this name now."};
    return {.appID = entry.appID,
            .isNewApplication = true,
            .remark = gone +
                      "One of this name was made for it; when the application is brought back from "
                      "the trash too, the two become one."};
}

TrashPlace PlaceOfProcedure(Database& db, const TrashEntry& entry) {
    if (Exists(db, "tblClass", "classID", entry.classID)) return {.classID = entry.classID};
    const std::string gone = "Its class '" + entry.className + "' has been deleted. ";
    const std::int32_t other = ScalarLong(
        db, Sql("SELECT min(classID) FROM tblClass WHERE className = ", SqlText(entry.className),
                " AND appID = ", FindItsApplication(db, entry)));
    if (other != 0) {
        return {.classID = other,
                .remark = gone + "It went into the class that has this name now."};
    }
    return {.classID = kUndefinedClassID,
            .remark = gone +
                      "It is among the procedures without a class now. Had the class been brought "
                      "back from the trash first, it would have gone into it."};
}

}  // namespace

TrashPlace FindTrashPlace(Database& db, const TrashEntry& entry) {
    switch (entry.owner.kind) {
        case OwnerKind::Class:
            return PlaceOfClass(db, entry);
        case OwnerKind::Procedure:
            return PlaceOfProcedure(db, entry);
        case OwnerKind::Application:
            break;
    }
    return {};
}

}  // namespace snippetarium
