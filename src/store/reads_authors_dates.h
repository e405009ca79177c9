#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of authors and dates and of their links to owners (1 application, 2 class, 3 procedure).
// Each operation runs the named query of its name; store/named_query.h says how.

Recordset AuthorsRSByOwner(Database& db, std::int32_t ownerID, std::int32_t ownerTableID);
Recordset AuthorRSByID(Database& db, std::int32_t authorID);
/// The authors of that first and last name.
Recordset AuthorRSByName(Database& db, std::string_view fName, std::string_view lName);
Recordset AuthorRSByFullName(Database& db, std::string_view fName, std::string_view mName,
                             std::string_view lName);
/// The author whose three name parts are these.
std::int32_t AuthorIDByName(Database& db, std::string_view fName, std::string_view mName,
                            std::string_view lName);
/// The owners of an author.
Recordset AuthorsLinkRSByAuthorID(Database& db, std::int32_t authorID);
/// Not 0 when the owner is linked to the author.
std::int32_t AuthorIDFromAuthorLink(Database& db, std::int32_t ownerID, std::int32_t authorID,
                                    std::int32_t ownerTableID);
Recordset DateRSByOwner(Database& db, std::int32_t ownerID, std::int32_t ownerTableID);

}  // namespace snippetarium
