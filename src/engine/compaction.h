#pragma once

#include <string>

#include "engine/on_progress.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

/// Compacts a database file that this program has closed.
///
/// It writes a copy without gaps and then lets the copy take the file's name, in one step that
/// cannot be cut in half: whatever kills the program, the name leads to a whole catalogue, the old
/// or the new one. From construction to the end, no other program gets at the file, so no change
/// made by one can fall between the copy and the exchange.
///
///     Compaction compaction(source);
///     compaction.WriteCopy(target, onProgress);
///     compaction.ReplaceWithCopy();
class Compaction {
  public:
    /// Claims the file, given by a connection string. Throws EngineError: OpenElsewhere when
    /// another program has it open, also one that only opened it and does nothing; and what opening
    /// it as a catalogue throws. The file is then as it was.
    explicit Compaction(const std::string& sourceConnectionString);

    /// Writes the copy and makes it safe on the disk. Nothing may exist at the target. On a failure
    /// (DiskFull, Corrupted ...) the copy is removed and the source is untouched.
    void WriteCopy(const std::string& targetConnectionString, const OnProgress& onProgress);

    /// Lets the copy take the source's place.
    void ReplaceWithCopy();

  private:
    std::string sourcePath_;
    std::string targetPath_;
    DatabaseHandle source_;
};

}  // namespace snippetarium
