#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

class Database;

// Writes of languages. A name counts by its first 50 characters.

/// Renames the language, or adds it where the ID is 0. Returns its ID; 0 where there is no such
/// language, and on a failure.
std::int32_t SaveLanguage(Database& db, std::string_view language, std::int32_t languageID);

/// Deletes the language unless a class or a procedure uses it. False where one does, and on a
/// failure; true also where there is no such language.
bool DeleteLanguage(Database& db, std::string_view language);

/// The Status flag of a language; false where there is no such language.
bool LanguageStatus(Database& db, std::string_view language);

}  // namespace snippetarium
