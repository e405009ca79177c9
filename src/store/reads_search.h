#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// The stored searches. Every row is a topic: application, class and procedure, with 0 and 'N/A'
// where a level has none.
// Each operation runs the named query of its name; store/named_query.h says how.

/// Procedures and classes whose comment matches the pattern.
Recordset CodeClassAppRSByComment(Database& db, std::string_view comment);
/// The same for a language of pages.
Recordset CodeClassAppRSByCommentForASP(Database& db, std::string_view comment,
                                        std::int32_t languageID);
/// The same for a script language.
Recordset CodeClassAppRSByCommentForScript(Database& db, std::string_view comment,
                                           std::int32_t languageID);
/// The same for any other language.
Recordset CodeClassAppRSByCommentForOthers(Database& db, std::string_view comment,
                                           std::int32_t languageID);
/// Procedures with that text in their name.
Recordset CodeClassAppRSByName(Database& db, std::string_view name);
Recordset CodeClassAppRSByNameLanguage(Database& db, std::string_view name,
                                       std::int32_t languageID);
/// Procedures of that name that carry the search word.
Recordset CodeClassAppRSWithSearchWordCodeName(Database& db, std::string_view name,
                                               std::string_view searchWord);

}  // namespace snippetarium
