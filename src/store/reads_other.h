#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of bookmarks, noise words and the window layout.
// Each operation runs the named query of its name; store/named_query.h says how.

/// The bookmarks with their names.
Recordset Favorite(Database& db);
Recordset CommonWordRS(Database& db);
Recordset CommonWordRSByWord(Database& db, std::string_view commonWord);
/// The one row of the window layout.
Recordset WindowSizeRS(Database& db);

}  // namespace snippetarium
