#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

class Database;

/// Copies a class with its procedures into an application under this name: texts, comments, path,
/// languages, authors, dates, the form of the source file, and what was cut off long texts. Keyword
/// strings get rows of their own, linked to the same search words. Bookmarks stay with the
/// original. A copy of the undefined class is a class like any other, so its procedures get
/// markers.
///
/// Returns the copy's classID; 0 where that can be no name or the application has a class of that
/// name already, which the user is told, and on a failure, also for a class or an application that
/// does not exist. An appID of 0 is the undefined application's.
///
/// What fails half-way is deleted again. Where that fails too, or the program ends before, the
/// class is in the contents tree, with all of its procedures or none, and can be deleted there; at
/// most one keyword string that nobody has is left.
std::int32_t CopyClass(Database& db, std::int32_t classID, std::int32_t appID,
                       std::string_view name);

}  // namespace snippetarium
