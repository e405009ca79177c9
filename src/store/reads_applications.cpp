#include "store/reads_applications.h"

#include "store/named_query.h"

namespace snippetarium {

std::int32_t AppIDUsingAppName(Database& db, std::string_view appName) {
    return ReadLong(db, Procedure::qryAppIDUsingAppName, {Parameter::Text255("appName", appName)});
}

bool IsAppNameTaken(Database& db, std::string_view appName) {
    return ReadExists(db, Procedure::qryAppIDUsingAppName,
                      {Parameter::Text255("appName", appName)});
}

Recordset ApplicationRSByID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryApplicationRSByID, {Parameter::Long("appID", appID)});
}

Recordset AppNameRS(Database& db) {
    return ReadRecordset(db, Procedure::qryAppNameRS, {});
}

Recordset AppRSContainClass(Database& db) {
    return ReadRecordset(db, Procedure::qryAppRSContainClass, {});
}

std::string AppNameByAppPath(Database& db, std::string_view appPath) {
    return ReadText(db, Procedure::qryAppNameByAppPath, {Parameter::LongText("appPath", appPath)});
}

std::string AppNameByID(Database& db, std::int32_t appID) {
    return ReadText(db, Procedure::qryAppNameByID, {Parameter::Long("appID", appID)});
}

std::string AppPathByID(Database& db, std::int32_t appID) {
    return ReadText(db, Procedure::qryAppPathByID, {Parameter::Long("appID", appID)});
}

Recordset AppWithClassCount(Database& db) {
    return ReadRecordset(db, Procedure::qryAppWithClassCount, {});
}

Recordset UnAppWithCount(Database& db) {
    return ReadRecordset(db, Procedure::qryUnAppWithCount, {});
}

std::int32_t CountCodeByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryCountCodeByAppID, {Parameter::Long("appID", appID)});
}

Recordset AppCommentRSByID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryAppCommentRSByID, {Parameter::Long("appID", appID)});
}

}  // namespace snippetarium
