#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "export/markers.h"

namespace snippetarium {

class Database;

// What keeps the text of a class and its procedures in step. Export puts a procedure back where its
// marker stands (export/markers.h) and leaves out one that has no marker, so whoever adds, renames
// or moves a procedure calls here once its row is written.
//
// A marker bears the stored name, so names are cut to 255 characters here too. Where, against the
// rule, two procedures of a class have the same name, they share their marker, and it stays for the
// one when the other is renamed or leaves.
//
// What a column does not take of a long text counts as a part of it, and markers are found there
// too (store/class_text.h). A class's text that does not change is not written. Without the class
// or procedure nothing happens.

/// The family of a class's markers and the names of its procedures. A class that does not exist has
/// none.
MarkedProcedures MarkedProceduresOf(Database& db, std::int32_t classID);

/// Puts a marker of the procedure at the end of its class's text, unless one is there. The
/// undefined class (1) is no source file and gets none.
void AddMarker(Database& db, std::int32_t codeID);

/// After a procedure of the class has been renamed: lets its marker bear the new name. A procedure
/// that has no marker gets none.
void RenameMarker(Database& db, std::int32_t classID, std::string_view oldName,
                  std::string_view newName);

/// Takes the markers of a procedure, whose row is still there, out of its class's text.
void TakeMarkerOut(Database& db, std::int32_t codeID);

/// Where a procedure was, and what it was called.
struct FormerPlace {
    std::int32_t classID = 0;
    std::string codeName = {};
};

/// After a procedure has been written anew, perhaps under another name, perhaps in another class:
/// lets its marker follow. In another class it stands at the end.
void MoveMarker(Database& db, std::int32_t codeID, const FormerPlace& before);

}  // namespace snippetarium
