#pragma once

#include <cstdint>
#include <string>

#include "engine/session.h"

namespace snippetarium {

// These functions look at files past the engine. On POSIX systems, closing any handle on a file
// drops every lock that the process holds on it, those of the engine included: another program
// could then write into a file that is being written here. So CheckDatabaseFile, IsFileOpen and
// SyncToDisk are for files that this program does not have open; an open one is looked at through
// the engine alone (engine/inspection.h, engine/online_copy.h).

/// Stands in the header of every catalogue file and tells it from any other database. "SNIP".
inline constexpr std::uint32_t kCatalogueApplicationId = 0x534E4950;

/// Looks at a file, from outside and without changing a byte of it, to see whether it can be opened
/// as a catalogue in this mode. Throws EngineError: FileNotFound, CannotOpen (a folder, or no right
/// to read it), UnrecognisedFormat (empty, foreign), Corrupted (shorter than its header says),
/// ReadOnly (to be opened for writing, but marked or mounted read-only).
void CheckDatabaseFile(const std::string& path, AccessMode mode);

/// True when the user may write the file. One with no right to write for anybody is meant to stay
/// as it is, also where the system would let this user write, as it lets an administrator.
bool IsWritableFile(const std::string& path);

/// Removes the side files that a refused opening left beside a file. Where it cannot be made sure
/// that no program has the file open, they stay. For files that had none before.
void RemoveEmptySideFiles(const std::string& path);

/// Where the engine keeps the write-ahead log of a database: beside the file itself, also when the
/// path is a link to it.
std::string LogPath(const std::string& path);

/// True when the database has changes beside the file that are not in it yet, after a crash.
bool HasPendingLog(const std::string& path);

/// True when a crash left a change half made in the file itself: whoever reads it next through the
/// engine undoes that first, which writes into the file.
bool HasPendingJournal(const std::string& path);

/// The file's version (session.h) as its header has it, without what waits beside the file.
std::int32_t VersionInHeader(const std::string& path);

/// True when a program, this one included, has the file open, even when it is not doing anything
/// with it. Where the platform cannot tell, false: the locks of the engine must do then.
bool IsFileOpen(const std::string& path);

/// Gives a file another name, in place of a file that has that name, in one step that cannot be cut
/// in half and that a power cut does not take back. Where that file is a link, the file it leads to
/// is replaced. Throws EngineError; nothing has changed then.
void RenameFile(const std::string& from, const std::string& to);

/// Removes a database file and what the engine keeps beside it, as far as they are there and can be
/// removed. For files that nobody needs.
void RemoveDatabaseFiles(const std::string& path);

/// Makes a file's content, or a folder's list of names, safe from a power cut.
void SyncToDisk(const std::string& path);

}  // namespace snippetarium
