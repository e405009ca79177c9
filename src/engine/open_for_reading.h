#pragma once

#include <string>

#include "engine/sqlite_handle.h"

namespace snippetarium {

/// Opens a database file for reading: nothing can be written through the handle, and what a crash
/// left in the file's log is read but stays there. Only a change that a crash left half made in the
/// file itself is undone with the first read. Nothing has been read yet when it returns. Throws
/// EngineError.
DatabaseHandle OpenForReading(const std::string& path);

/// Closing the last handle on a file takes its log into the file. This decides whether a handle
/// does so.
void KeepLogOnClose(sqlite3* database, bool keepsLog);

}  // namespace snippetarium
