#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

namespace snippetarium {

class Database;

/// The ID of the next row of a table whose IDs the program assigns: the largest one plus one.
/// Throws Error where that would be more than `last`.
std::int32_t NewID(Database& db, std::string_view column, std::string_view table,
                   std::int32_t last = std::numeric_limits<std::int32_t>::max());

}  // namespace snippetarium
