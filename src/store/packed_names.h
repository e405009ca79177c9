#pragma once

#include <cstdint>

namespace snippetarium {

class Database;

// Quick search looks through all names at every keystroke. It reads them from tblNameBlock, which
// holds them packed, 1,024 IDs to a block, in a fortieth of the pages of the tables themselves.
// Triggers make a block when its last ID has been given, and remove it when a name in it changes;
// a block that is not there is read from its table, which is right but slower.

/// How many IDs a block of packed names is for.
inline constexpr std::int32_t kIDsInNameBlock = 1024;

/// Makes the blocks that are missing, but for the newest of each level, which is not full yet.
/// Throws EngineError.
void PackNames(Database& db);

}  // namespace snippetarium
