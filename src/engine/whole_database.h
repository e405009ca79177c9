#pragma once

#include <functional>
#include <string>

namespace snippetarium {

/// Reads a finished database file back and makes it safe on the disk. Throws EngineError:
/// UnrecognisedFormat when it is no catalogue, Corrupted when it is damaged.
void MakeSureOf(const std::string& path);

/// Makes a database file that is there whole or not at all. `write` makes it under the name that it
/// is given, beside the target, and closes it; then the file is read back, made safe, and gets its
/// own name. When anything throws, nothing is left. Nothing may exist at the target: else
/// CannotOpen.
void WriteWholeDatabase(const std::string& targetPath,
                        const std::function<void(const std::string& path)>& write);

/// Ends the name under which an unfinished file stands.
inline constexpr const char* kUnfinishedSuffix = ".part";

}  // namespace snippetarium
