#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/trash.h"
#include "store/trash_place.h"

namespace snippetarium {

/// Something of an entry whose name was given to another one, beside which it comes back.
struct NewName {
    Owner owner;  ///< by its ID in the entry
    /// What it comes back into; 0 for an application.
    std::int32_t parentID = 0;
    std::string oldName;
    std::string name;  ///< "Draw (2)"
};

/// The names that cannot come back as they were. Needs the tables of store/trash_ids.h. Only what
/// goes into something that is there can meet another of its name; what was beside one before may
/// be again.
std::vector<NewName> FindNewNames(Database& db, const TrashEntry& entry, const TrashPlace& place);

/// Renames the rows in the trash.
std::string RenamingScript(const TrashEntry& entry, const std::vector<NewName>& names);

/// The same for the user.
std::vector<std::string> RenamingRemarks(const std::vector<NewName>& names);

}  // namespace snippetarium
