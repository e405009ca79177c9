#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "store/owner.h"

namespace snippetarium {

class Database;

// The trash. What a user deletes, an application, a class or a procedure with all that hangs from
// it, is copied into side tables before the deletion's first statement and can be brought back
// whole for 30 days. Each of the operations here happens whole or not at all, also when the program
// is killed.
//
// IDs of the tree come back as they were: no other row is ever given them. Words, authors, dates
// and languages are found again by what they say. A row that is there already, because a deletion
// was cut short, is not brought back a second time, but gets back what it lost.

inline constexpr std::chrono::days kTrashKeptFor{30};

/// One deletion.
struct TrashEntry {
    std::int32_t trashID = 0;
    /// Local time: "2026-11-21 06:16:02".
    std::string deletedOn;
    /// What was deleted, by its ID of then. Application 1 and class 1 were not deleted but emptied.
    Owner owner;
    std::string name;
    /// Where it was; for an application and a class, they themselves are among these.
    std::int32_t appID = 0;
    std::string appName;
    std::int32_t classID = 0;
    std::string className;
    /// How many came into the trash.
    std::int32_t classCount = 0;
    std::int32_t codeCount = 0;
};

/// The last day on which the entry is kept: "2026-12-21".
std::string KeptUntil(const TrashEntry& entry);

/// Copies an owner into the trash, before it is deleted. Removes what has been kept long enough.
/// Returns the new entry's trashID; 0 where there is no such owner, and on a failure, which is
/// reported: inside another guard it is thrown, so that nothing is deleted that is not kept.
std::int32_t KeepInTrash(Database& db, const Owner& owner);

/// The entries, the newest first; none on a failure.
std::vector<TrashEntry> ListTrash(Database& db);

/// What became of an entry that was brought back.
struct TrashReturn {
    /// Its ID now; 0 when nothing was brought back.
    Owner owner;
    std::string name;
    /// Where it is now; the application of an application is itself.
    std::string appName;
    std::string className;
    /// What the user should know, each a sentence or two: that it went elsewhere because what it
    /// was in is gone, or bears a new name because its own was taken.
    std::vector<std::string> remarks;
};

/// Brings an entry back and removes it from the trash. A procedure's marker goes back to its place
/// in the text of its class; where that cannot be found any more, to the text's end.
///
/// Where the class of a procedure is gone, one of its name takes the procedure in, else class 1;
/// where the application of a class is gone, one of its name, else one made anew under its ID and
/// name, which becomes whole when it is brought back itself. A name that was given to another
/// meanwhile comes back as "name (2)".
///
/// A failure is reported, also that there is no such entry; nothing has changed then.
TrashReturn RestoreFromTrash(Database& db, std::int32_t trashID);

/// Removes, for good, the entries that are as old as this or older. Returns how many. A failure is
/// reported.
std::int64_t EmptyTrash(Database& db, std::chrono::days age = std::chrono::days{0});

/// Removes the entries that have been kept long enough on this day. Done at each opening for
/// writing and before each deletion. A failure is reported and spoils nothing else.
void PurgeTrash(Database& db, std::chrono::system_clock::time_point today);

}  // namespace snippetarium
