#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

class Database;

// The editor of languages. Each operation returns whether it was done; where it may not be, the
// user has been told why and nothing is written.

/// A language's name is one line of at most 50 characters that no other language has; neither
/// letter case nor blanks around it count, and such blanks are not stored.
bool AddLanguage(Database& db, std::string_view name);
bool RenameLanguage(Database& db, std::int32_t languageID, std::string_view name);

/// Refused while a class or a procedure has the language.
bool RemoveLanguage(Database& db, std::string_view name);

}  // namespace snippetarium
