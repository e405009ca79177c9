#include "store/owner_place.h"

#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_procedures.h"

namespace snippetarium {

namespace {

NodeIDs PlaceOfApplication(Database& db, std::int32_t appID) {
    return ApplicationRSByID(db, appID).EndOfFile() ? NodeIDs() : NodeIDs{.appID = appID};
}

NodeIDs PlaceOfClass(Database& db, std::int32_t classID) {
    const std::int32_t appID = AppIDByClassID(db, classID);
    return appID == 0 ? NodeIDs() : NodeIDs{.appID = appID, .classID = classID};
}

NodeIDs PlaceOfProcedure(Database& db, std::int32_t codeID) {
    const Recordset row = AppIDClassIDRSByCodeID(db, codeID);
    if (row.EndOfFile()) return {};
    return {.appID = row["appID"].Long(), .classID = row["classID"].Long(), .codeID = codeID};
}

}  // namespace

NodeIDs PlaceOf(Database& db, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return PlaceOfApplication(db, owner.id);
        case OwnerKind::Class:
            return PlaceOfClass(db, owner.id);
        case OwnerKind::Procedure:
            break;
    }
    return PlaceOfProcedure(db, owner.id);
}

}  // namespace snippetarium
