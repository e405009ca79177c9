#include "engine/bulk_log.h"

#include <sqlite3.h>

namespace snippetarium {

namespace {

/// At most this much of an import depends on the power.
constexpr std::chrono::seconds kCheckpointInterval{3};
/// 64 MB: a longer log saves hardly any copying more.
constexpr int kLongLogPages = 16'384;
/// The length at which the library copies the log by itself, outside of bulk writing.
constexpr int kUsualLogPages = 1'000;

}  // namespace

int BulkLog::NoteCommit(void* log, sqlite3* /*database*/, const char* /*name*/, int pages) {
    static_cast<BulkLog*>(log)->pages_ = pages;
    return SQLITE_OK;
}

void BulkLog::Begin(sqlite3* database) {
    place_ = PrepareStatement(database, "SELECT 1 FROM sqlite_schema");
    database_ = database;
    pages_ = copiedAtPages_ = 0;
    lastCheckpoint_ = std::chrono::steady_clock::now();
    sqlite3_wal_hook(database_, NoteCommit, this);  // in place of the library's own, which copies
}

void BulkLog::End() {
    if (database_ == nullptr) return;
    LetGo();
    place_.reset();
    sqlite3_wal_autocheckpoint(database_, kUsualLogPages);
    database_ = nullptr;
}

void BulkLog::HoldPlace() {
    if (database_ == nullptr || isHeld_) return;
    isHeld_ = sqlite3_step(place_.get()) == SQLITE_ROW;
    if (!isHeld_) sqlite3_reset(place_.get());
}

bool BulkLog::LetGo() {
    if (!isHeld_) return false;
    sqlite3_reset(place_.get());
    isHeld_ = false;
    return true;
}

void BulkLog::CheckpointWhenDue() {
    if (database_ == nullptr) return;
    const bool isLong = pages_ - copiedAtPages_ >= kLongLogPages;
    const auto now = std::chrono::steady_clock::now();
    if (!isLong && now - lastCheckpoint_ < kCheckpointInterval) return;
    LetGo();
    int pages = 0;
    int copied = 0;
    const int result =
        sqlite3_wal_checkpoint_v2(database_, nullptr, SQLITE_CHECKPOINT_PASSIVE, &pages, &copied);
    // What is copied is overwritten from the log's start. Where that is not possible the log goes
    // on growing, and is not tried again with every statement.
    const bool isCopied = result == SQLITE_OK && copied == pages;
    if (isCopied) pages_ = 0;
    copiedAtPages_ = pages_;
    lastCheckpoint_ = now;
}

}  // namespace snippetarium
