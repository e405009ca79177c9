#pragma once

#include <cstdint>
#include <string_view>

namespace snippetarium {

class Database;

/// Copies a procedure into a class under this name: code, comment, language, authors, dates, and
/// what was cut off long texts; a keyword string gets a row of its own, linked to the same search
/// words. The copy gets a marker at the end of the class's text. Bookmarks stay with the original.
/// A classID of 0 is the undefined class's.
///
/// Returns the copy's codeID; 0 where it may not have the name (store/name_rules.h), which the user
/// is told, and on a failure, also for a procedure that does not exist. What fails half-way is
/// deleted again.
std::int32_t CopyCode(Database& db, std::int32_t codeID, std::int32_t classID,
                      std::string_view name);

}  // namespace snippetarium
