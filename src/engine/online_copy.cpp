#include "engine/online_copy.h"

#include <sqlite3.h>

#include "engine/engine_error.h"
#include "engine/open_for_reading.h"
#include "engine/read_snapshot.h"
#include "engine/sqlite_handle.h"
#include "engine/whole_database.h"

namespace snippetarium {

namespace {

/// A megabyte: some milliseconds between two reports.
constexpr int kPagesInAStep = 256;

struct FinishBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using BackupHandle = std::unique_ptr<sqlite3_backup, FinishBackup>;

void CopyPages(sqlite3* source, sqlite3* target, const OnProgress& onProgress) {
    const BackupHandle backup(sqlite3_backup_init(target, "main", source, "main"));
    if (!backup) ThrowEngineError(target, sqlite3_errcode(target));
    for (;;) {
        const int result = sqlite3_backup_step(backup.get(), kPagesInAStep);
        const int pages = sqlite3_backup_pagecount(backup.get());
        const int left = sqlite3_backup_remaining(backup.get());
        if (result != SQLITE_OK && result != SQLITE_DONE) ThrowEngineError(nullptr, result);
        if (onProgress) onProgress(pages == 0 ? 1.0 : 1.0 - static_cast<double>(left) / pages);
        if (result == SQLITE_DONE) return;
    }
}

void WriteCopy(sqlite3* source, const std::string& path, const OnProgress& onProgress) {
    const ReadSnapshot snapshot(source);
    const DatabaseHandle copy = OpenDatabase(path, OpenFlag::Create);
    // Until it is finished nobody needs the copy, so it needs no protection either.
    RunStatements(copy.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
    CopyPages(source, copy.get(), onProgress);
    // The source's first page came along, and it may ask for a log: a copy is one file.
    if (ScalarText(copy.get(), "PRAGMA journal_mode = DELETE") != "delete") {
        throw EngineError(EngineErrorCode::DiskError,
                          "The copy '" + path + "' could not be finished.");
    }
}

}  // namespace

void CopyDatabase(const std::string& sourcePath, const std::string& targetPath,
                  const OnProgress& onProgress) {
    const DatabaseHandle source = OpenForReading(sourcePath);
    CopyDatabase(source.get(), targetPath, onProgress);
}

void CopyDatabase(sqlite3* source, const std::string& targetPath, const OnProgress& onProgress) {
    WriteWholeDatabase(targetPath,
                       [&](const std::string& path) { WriteCopy(source, path, onProgress); });
}

}  // namespace snippetarium
