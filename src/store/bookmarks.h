#pragma once

#include <string_view>

namespace snippetarium {

class Database;

/// Bookmarks the class or procedure of a contents-tree key (support/node_key.h). True when that
/// added a bookmark; false where there is one already, for a key that names neither, and on a
/// failure.
///
/// A class of which a procedure is bookmarked counts as bookmarked itself. The other way round it
/// does not.
bool AddBookmark(Database& db, std::string_view nodeKey);

/// Removes the bookmark of the class or procedure of a contents-tree key; of a class, not those of
/// its procedures. True when there was one.
bool DeleteBookmark(Database& db, std::string_view nodeKey);

}  // namespace snippetarium
