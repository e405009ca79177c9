#pragma once

#include <cstdint>
#include <string>

#include "store/trash.h"
#include "store/trash_place.h"

namespace snippetarium {

// Under which IDs the rows of an entry come back is worked out before anything is changed, in
// scratch tables of the connection that no file holds:
//
//     tblBackCode(old, new, isThere)
//
// one row for each row of the entry, likewise tblBackApplication, tblBackClass, tblBackKeyword,
// tblBackSearchWord, tblBackAuthor, tblBackDate and tblBackLanguage. isThere is 1 for a row that is
// in the catalogue already, under the ID `new`. A row whose own ID is free keeps it; the others get
// new ones above all that were ever given.
//
// What an entry goes into is among them too, as a row that is there.

/// Makes and fills the tables.
std::string NumberingScript(const TrashEntry& entry, const TrashPlace& place);
/// Removes them.
std::string ForgetNumberingScript();

/// The ID of the entry's application, class or procedure when it is back.
std::int32_t ReadNewID(Database& db, const TrashEntry& entry);

}  // namespace snippetarium
