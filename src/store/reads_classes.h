#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of classes: modules, forms and pages among them.
// Each operation runs the named query of its name; store/named_query.h says how.

std::string ClassNameByID(Database& db, std::int32_t classID);
/// A class's declarations text, comment and language.
Recordset ClassDICommentLanIDByID(Database& db, std::int32_t classID);
/// The class of that name and path in an application; no path and an empty one are the same.
std::int32_t ClassIDByClassNameClassPathAppID(Database& db, std::string_view className,
                                              std::string_view classPath, std::int32_t appID);
/// True when a class of the application has that name.
bool IsClassNameTaken(Database& db, std::string_view className, std::int32_t appID);
std::int32_t AppIDByClassID(Database& db, std::int32_t classID);
std::int32_t ClassIDByAppNameClassName(Database& db, std::string_view appName,
                                       std::string_view className);
std::string ClassPathInAppByClassID(Database& db, std::int32_t classID);
/// A class with the names of its language and its application.
Recordset ClassLanguageAppByClassID(Database& db, std::int32_t classID);
/// A class without its long texts.
Recordset MiniClassRSByClassID(Database& db, std::int32_t classID);
/// The classes of an application, all columns.
Recordset ClassRSByAppID(Database& db, std::int32_t appID);
Recordset ClassIDNameRSByAppID(Database& db, std::int32_t appID);
/// The classes of an application with `codeCount`.
Recordset ClassWithCodeCountByAppID(Database& db, std::int32_t appID);
/// A class's declarations text.
std::string ClassDIByClassID(Database& db, std::int32_t classID);
Recordset ClassCommentRSByID(Database& db, std::int32_t classID);

}  // namespace snippetarium
