#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace snippetarium {

class Database;

// Quick search looks through all names at every keystroke. It reads them from tblNameBlock, which
// holds them packed, 1,024 IDs to a block, in a fortieth of the pages of the tables themselves.
// Triggers make a block when its last ID has been given, and remove it when a name in it changes;
// a block that is not there is read from its table, which is right but slower.

/// How many IDs a block of packed names is for.
inline constexpr std::int32_t kIDsInNameBlock = 1024;

/// Makes blocks that are missing, so many at most, but for the newest of each level, which is not
/// full yet. Returns whether others are left. Throws EngineError.
bool PackNames(Database& db, std::size_t mostBlocks = std::numeric_limits<std::size_t>::max());

}  // namespace snippetarium
