#include "editors/application_record.h"

#include "editors/field_rules.h"
#include "editors/overlong.h"
#include "store/database.h"
#include "store/name_rules.h"
#include "store/owner.h"
#include "store/reads_applications.h"
#include "store/writes_applications.h"
#include "support/guard.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

bool MayHaveName(Database& db, const ApplicationRecord& record) {
    if (record.appID == 0) return IsOneLine(db, record.name) && MayAddApplication(db, record.name);
    if (record.name == AppNameByID(db, record.appID)) return true;
    return IsOneLine(db, record.name) && MayRenameApplication(db, record.appID, record.name);
}

}  // namespace

std::optional<ApplicationRecord> LoadApplicationRecord(Database& db, std::int32_t appID) {
    return Guarded(db.Reporter(), Procedure::LoadApplicationRecord,
                   [&]() -> std::optional<ApplicationRecord> {
                       const Recordset row = ApplicationRSByID(db, appID);
                       if (row.EndOfFile()) return std::nullopt;
                       return ApplicationRecord{
                           .appID = appID,
                           .name = row["appName"].Text(),
                           .path = row["appPath"].Text(),
                           .version = row["appVersion"].Text(),
                           .comment = row["appComment"].Text(),
                       };
                   });
}

bool CheckApplicationRecord(Database& db, const ApplicationRecord& record) {
    return Guarded(db.Reporter(), Procedure::CheckApplicationRecord, [&] {
        return MayEditNode(db, {.appID = record.appID}) && MayHaveName(db, record) &&
               FitsLongText(db, "comment", record.comment);
    });
}

bool StoreApplicationRecord(Database& db, ApplicationRecord& record) {
    return Guarded(db.Reporter(), Procedure::SaveApplicationRecord, [&] {
        const ApplicationFields fields{
            .name = record.name,
            .path = ToCataloguePath(record.path),
            .comment = record.comment,
            .version = record.version,
        };
        if (record.appID == 0) {
            record.appID = AddApplication(db, fields);
            return true;
        }
        const auto before = LoadApplicationRecord(db, record.appID);
        if (!before || !UpdateApplication(db, record.appID, fields)) return false;
        if (record.comment != before->comment)
            ForgetOverlong(db, {OwnerKind::Application, record.appID}, "appComment");
        return true;
    });
}

std::int32_t SaveApplicationRecord(Database& db, const ApplicationRecord& record) {
    ApplicationRecord stored = record;
    return StoreApplicationRecord(db, stored) ? stored.appID : 0;
}

}  // namespace snippetarium
