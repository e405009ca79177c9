#include "engine/open_for_reading.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#include "engine/database_file.h"

namespace snippetarium {

namespace {

/// Reading a file in write-ahead mode takes two side files, which only a handle that may write can
/// clear away again. So a file that may be written is opened for writing and then kept from it. One
/// that may not be written, as on a read-only medium, needs no side files as long as nobody else
/// changes it; whoever does has a log beside it.
OpenFlag ChooseFlag(const std::string& path) {
    if (IsWritableFile(path)) return OpenFlag::ReadWrite;
    std::error_code cannotTell;
    const bool isChanging = std::filesystem::exists(LogPath(path), cannotTell);
    return isChanging ? OpenFlag::Read : OpenFlag::ReadUnchanging;
}

}  // namespace

DatabaseHandle OpenForReading(const std::string& path) {
    DatabaseHandle database = OpenDatabase(path, ChooseFlag(path));
    KeepLogOnClose(database.get(), HasPendingLog(path));
    RunStatements(database.get(), "PRAGMA query_only = ON");
    return database;
}

void KeepLogOnClose(sqlite3* database, bool keepsLog) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, keepsLog ? 1 : 0,
                      static_cast<int*>(nullptr));
}

}  // namespace snippetarium
