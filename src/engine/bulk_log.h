#pragma once

#include <chrono>

#include "engine/sqlite_handle.h"

namespace snippetarium {

// Bulk writing. Each statement commits by itself, as always, and killing the program loses none of
// them. But what costs more than the writing is done once for many statements:
//
// - What is written is made safe from a power cut at checkpoints only, every few seconds.
// - The log may grow long before it is copied into the file. A page that hundreds of statements
//   change is then copied once, not every few statements.
// - A statement finds its place in the log and locks it against being overwritten, which takes four
//   system calls of its six. While a read of ours is open the place stays ours, so one is kept open
//   over many statements; each moves it on.
//
// Held open for good, the place would keep the log from ever being emptied, so it is let go for
// each checkpoint. Other programs may read the file all the time. One that writes to it (a tool;
// programs of ours keep each other out) makes our place stale: our next write is refused, and runs
// when the place has been let go.

/// The log of one session while that writes in bulk. Does nothing until Begin.
class BulkLog {
  public:
    BulkLog() = default;
    BulkLog(const BulkLog&) = delete;
    BulkLog& operator=(const BulkLog&) = delete;

    /// Throws EngineError. The handle must stay open until End, or until this object goes.
    void Begin(sqlite3* database);
    /// Back to the library's own checkpoints.
    void End();

    /// Call it before a write. That the place cannot be had is no failure: the write will say what
    /// is wrong, if anything is.
    void HoldPlace();
    /// Call it before whatever must not meet an open read: a checkpoint, a script that may change
    /// the schema, and a write that is to be tried again. False when no place was held.
    bool LetGo();
    /// Call it after a write: copies the log into the file where that is due. The write stands, so
    /// nothing is thrown: that a reader is in the way is no failure, and where the file cannot be
    /// written the log goes on growing, and whoever empties it at the end is told
    /// (Session::Checkpoint).
    void CheckpointWhenDue();

  private:
    static int NoteCommit(void* log, sqlite3* database, const char* name, int pages);

    sqlite3* database_ = nullptr;
    StatementHandle place_;
    bool isHeld_ = false;
    int pages_ = 0;          // in the log
    int copiedAtPages_ = 0;  // how many there were when not all of them could be copied
    std::chrono::steady_clock::time_point lastCheckpoint_;
};

}  // namespace snippetarium
