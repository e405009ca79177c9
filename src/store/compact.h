#pragma once

namespace snippetarium {

class Database;

/// Compacts the catalogue's file, which must be closed, and tells the user how it went: done, or
/// refused because another program has the file open. The pointer is an hourglass meanwhile.
void CompactCatalogue(Database& db);

/// Closes the catalogue, compacts it and opens it again, whatever became of the compaction. Ends
/// the program when opening found the database provider missing.
void RunCompaction(Database& db);

}  // namespace snippetarium
