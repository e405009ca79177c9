#pragma once

#include <functional>
#include <string>

namespace snippetarium {

/// Reads a finished database file back and makes it safe on the disk. Throws EngineError:
/// UnrecognisedFormat when it is no catalogue, Corrupted when it is damaged.
void MakeSureOf(const std::string& path);

/// Makes a database file that is there whole or not at all. `write` makes it under the name that it
/// is given, beside the target, and closes it; then the file is read back, made safe, and gets its
/// own name. When anything throws, nothing is left. Nothing may exist at the target, and nobody may
/// be making it: else CannotOpen.
void WriteWholeDatabase(const std::string& targetPath,
                        const std::function<void(const std::string& path)>& write);

/// Ends the name under which an unfinished file stands. While somebody makes it, there is a lock
/// with another suffix behind that (support/file_lock.h).
inline constexpr const char* kUnfinishedSuffix = ".part";
inline constexpr const char* kUnfinishedLockSuffix = ".lock";

/// Removes an unfinished file that a program left when it was killed, with its lock. One that is
/// being made, by this program or another, stays.
void RemoveIfAbandoned(const std::string& unfinishedPath);

}  // namespace snippetarium
