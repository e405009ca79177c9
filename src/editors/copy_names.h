#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace snippetarium {

class Database;

// What a copy is to be called: the name of the original, or where the new parent has that already,
// the first of "Grid (2)", "Grid (3)" that it does not have. Each throws.

/// In an application.
std::string NameForClassCopy(Database& db, std::string_view name, std::int32_t appID);
/// In a class.
std::string NameForCodeCopy(Database& db, std::string_view name, std::int32_t classID);

}  // namespace snippetarium
