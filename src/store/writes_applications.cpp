#include "store/writes_applications.h"

#include "store/database.h"
#include "store/date_links.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string InsertText(const ApplicationFields& fields) {
    InsertLists lists("appName", SqlText255(fields.name));
    lists.AddText("appPath", fields.path);
    lists.AddText("appComment", fields.comment);
    lists.AddText("appVersion", fields.version);
    lists.AddID("keywordID", fields.keywordID);
    return Sql("INSERT INTO tblApplication(", lists.Columns(), ") VALUES(", lists.Values(), ");");
}

std::string UpdateText(std::int32_t appID, const ApplicationFields& fields) {
    const std::string keyword =
        fields.keywordID > 0 ? Sql(", keywordID=", fields.keywordID) : std::string();
    return Sql(
        "UPDATE tblApplication SET appName = ", SqlText255(fields.name),
        ", appComment=", SqlTextOrNull(fields.comment), ", appPath=", SqlTextOrNull(fields.path),
        ", appVersion=", SqlTextOrNull(fields.version), keyword, " WHERE appID = ", appID, ";");
}

}  // namespace

std::int32_t AddApplication(Database& db, const ApplicationFields& fields) {
    return Guarded(db.Reporter(), Procedure::AddApplication, [&] {
        ExecuteSQL(db, InsertText(fields));
        const std::int32_t appID = MaxIDValue(db, "appID", "tblApplication");
        ReplaceGivenDateLinks(db, {OwnerKind::Application, appID}, fields.dates);
        return appID;
    });
}

bool UpdateApplication(Database& db, std::int32_t appID, const ApplicationFields& fields) {
    return Guarded(db.Reporter(), Procedure::UpdateApplication, [&] {
        if (ExecuteSQL(db, UpdateText(appID, fields)) == 0) return false;
        ReplaceGivenDateLinks(db, {OwnerKind::Application, appID}, fields.dates);
        return true;
    });
}

bool RenameApplication(Database& db, std::int32_t appID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RenameApplication, [&] {
        return ExecuteSQL(db, Sql("UPDATE tblApplication SET appName = ", SqlText255(name),
                                  " WHERE appID = ", appID, ";")) > 0;
    });
}

}  // namespace snippetarium
