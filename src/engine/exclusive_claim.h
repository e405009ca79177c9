#pragma once

#include <string>

#include "engine/sqlite_handle.h"

namespace snippetarium {

/// Claims a catalogue file that this program has closed: as long as the handle lives, no other
/// program gets at the file. The file has no log then, and another file may take its name. Throws
/// EngineError: OpenElsewhere when another program has the file open, also one that only opened it
/// and does nothing; and what opening it as a catalogue throws. The file's content stays.
DatabaseHandle ClaimDatabase(const std::string& path);

}  // namespace snippetarium
