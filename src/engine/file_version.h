#pragma once

#include <cstdint>
#include <limits>
#include <string>

namespace snippetarium {

/// The versions of a file that its opener can work with; a file's version is the number that its
/// header keeps for the program (SQLite's user_version).
struct FileVersions {
    std::int32_t oldest = std::numeric_limits<std::int32_t>::min();
    std::int32_t newest = std::numeric_limits<std::int32_t>::max();
};

/// Throws EngineError (UnrecognisedFormat) for a version that is not among the known ones; the text
/// names the file and says what to do.
void RequireKnownVersion(const std::string& path, std::int32_t version, const FileVersions& known);

}  // namespace snippetarium
