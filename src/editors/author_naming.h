#pragma once

#include <cstdint>
#include <vector>

#include "store/author_links.h"

namespace snippetarium {

class Database;

/// An author whom the catalogue has, and in how many places.
struct KnownAuthor {
    std::int32_t authorID = 0;
    AuthorName name = {};
    std::int32_t ownerCount = 0;
};

/// By last name; none on a failure.
std::vector<KnownAuthor> KnownAuthors(Database& db);

/// Gives an author another name, which then shows under every owner. Where there is another author
/// of that name already, the two become one: all owners get that author, and the old one goes.
/// Returns the ID that has the name now. Throws.
std::int32_t RenameAuthor(Database& db, std::int32_t authorID, const AuthorName& name);

}  // namespace snippetarium
