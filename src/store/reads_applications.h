#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of applications.
// Each operation runs the named query of its name; store/named_query.h says how.

/// The application of that name.
std::int32_t AppIDUsingAppName(Database& db, std::string_view appName);
/// True when an application has that name.
bool IsAppNameTaken(Database& db, std::string_view appName);
/// All columns of one application.
Recordset ApplicationRSByID(Database& db, std::int32_t appID);
/// ID and name of every application.
Recordset AppNameRS(Database& db);
/// The applications that hold at least one class.
Recordset AppRSContainClass(Database& db);
/// The name of the application that was imported from a path.
std::string AppNameByAppPath(Database& db, std::string_view appPath);
std::string AppNameByID(Database& db, std::int32_t appID);
std::string AppPathByID(Database& db, std::int32_t appID);
/// The applications with `classCount`, without the undefined one.
Recordset AppWithClassCount(Database& db);
/// What the undefined application holds, as rows with `countChild`.
Recordset UnAppWithCount(Database& db);
/// The number of procedures in an application.
std::int32_t CountCodeByAppID(Database& db, std::int32_t appID);
Recordset AppCommentRSByID(Database& db, std::int32_t appID);

}  // namespace snippetarium
