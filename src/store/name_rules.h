#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

class Database;

// May a name be given? Names are unique in their parent: those of applications in the catalogue,
// those of classes in their application, those of procedures in their class. Letter case does not
// count. Whoever adds or renames asks here first; the writes themselves write what they are given.
//
// Each function returns whether the name may be used, and where it may not has told the user why:
// it is empty or blank, has more than 255 characters, or is taken; the parent or the record itself
// has been deleted in the meantime; or the record is one of the two that take in what has no
// parent, which keep their names. False on a failure too.
//
// A record that keeps its name, or changes only its letter case, may do so whoever else has that
// name: an import puts classes of one name and different paths into one application. A record that
// moves to another parent is there a new one.

bool MayAddApplication(Database& db, std::string_view name);
/// An appID of 0 is the undefined application's, as in the write that follows.
bool MayAddClass(Database& db, std::string_view name, std::int32_t appID);
/// A classID of 0 is the undefined class's, as in the write that follows.
bool MayAddCode(Database& db, std::string_view name, std::int32_t classID);

bool MayRenameApplication(Database& db, std::int32_t appID, std::string_view name);
bool MayRenameClass(Database& db, std::int32_t classID, std::string_view name);
bool MayRenameCode(Database& db, std::int32_t codeID, std::string_view name);

}  // namespace snippetarium
