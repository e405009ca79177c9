#include "engine/exclusive_claim.h"

#include <sqlite3.h>

#include "engine/database_file.h"
#include "engine/engine_error.h"

namespace snippetarium {

namespace {

[[noreturn]] void ThrowOpenElsewhere(const std::string& path) {
    throw EngineError(EngineErrorCode::OpenElsewhere,
                      "The catalogue '" + path + "' is open in another program.");
}

}  // namespace

DatabaseHandle ClaimDatabase(const std::string& path) {
    CheckDatabaseFile(path, AccessMode::ReadWrite);
    // The engine's locks show only who is reading or writing just now, not who has the file open.
    if (IsFileOpen(path)) ThrowOpenElsewhere(path);
    DatabaseHandle database = OpenDatabase(path, OpenFlag::ReadWrite);
    sqlite3_busy_timeout(database.get(), 0);
    try {
        // In this order: the lock is taken with the first read and then kept. Leaving write-ahead
        // mode removes the log, so that none of the old file's can ever meet the new one.
        RunStatements(database.get(), "PRAGMA locking_mode = EXCLUSIVE");
        if (ScalarText(database.get(), "PRAGMA journal_mode = DELETE") != "delete") {
            ThrowOpenElsewhere(path);
        }
        RunStatements(database.get(), "BEGIN EXCLUSIVE; COMMIT");
    } catch (const EngineError& error) {
        if (error.Code() == EngineErrorCode::CannotLock) ThrowOpenElsewhere(path);
        throw;
    }
    return database;
}

}  // namespace snippetarium
