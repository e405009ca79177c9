#include "engine/read_snapshot.h"

#include <sqlite3.h>

#include "engine/sqlite_handle.h"

namespace snippetarium {

ReadSnapshot::ReadSnapshot(sqlite3* database) : database_(database) {
    RunStatements(database_, "BEGIN");
    try {
        // The moment is that of the first read.
        ScalarText(database_, "SELECT count(*) FROM sqlite_schema");
    } catch (...) {
        sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

ReadSnapshot::~ReadSnapshot() {
    // Nothing was written, so nothing can be lost where this fails.
    sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace snippetarium
