#pragma once

namespace snippetarium {

class Database;

/// Compacts the catalogue's file, which must be closed, and tells the user how it went: done, or
/// refused because another program has the file open. The pointer is an hourglass meanwhile.
/// Returns whether it was done.
bool CompactCatalogue(Database& db);

/// Backs the catalogue up, closes it, compacts it and opens it again, whatever became of the
/// compaction. Where the backup fails, that is reported and nothing else is done. Ends the program
/// when opening found the database provider missing. Returns whether the file was compacted.
bool RunCompaction(Database& db);

}  // namespace snippetarium
