#pragma once

#include <cstdint>
#include <string>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of what is kept beside the columns so that export can write the files that were imported.
// Both are guarded and yield a closed recordset, or an empty text, on a failure.

/// What was cut off the texts of a class and its procedures because their columns take no more: a
/// row for each text, with `ownerTableID` and `ownerID` (store/owner.h), the column's name in
/// `part`, and the rest in `text`.
Recordset OverlongTextsOfClass(Database& db, std::int32_t classID);

/// The form, serialised (support/source_form.h), of the file that a class was imported from. Empty
/// for a class that was made by hand.
std::string SourceFormOfClass(Database& db, std::int32_t classID);

}  // namespace snippetarium
