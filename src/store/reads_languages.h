#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of languages.
// Each operation runs the named query of its name; store/named_query.h says how.

/// Every language.
Recordset Language(Database& db);
std::int32_t LanguageID(Database& db, std::string_view language);
std::string LanguageByID(Database& db, std::int32_t languageID);
std::string LanguageByClassID(Database& db, std::int32_t classID);
std::string LanguageByCodeID(Database& db, std::int32_t codeID);
std::int32_t LanguageIDByClassID(Database& db, std::int32_t classID);
std::int32_t LanguageIDByCodeID(Database& db, std::int32_t codeID);
/// The languages that occur in an application.
Recordset LanguageRSByAppID(Database& db, std::int32_t appID);
Recordset StatusRSByLanguage(Database& db, std::string_view language);
/// The classes and procedures that use a language.
Recordset ClassIDCodeIDRSByLanguage(Database& db, std::string_view language);

}  // namespace snippetarium
