#include "engine/create_database.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

namespace {

/// Takes the name in one step, so that a file which another program makes meanwhile is never filled
/// or removed here.
void MakeEmptyFile(const std::string& path) {
    constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (file >= 0) {
        close(file);
        return;
    }
    if (errno == EEXIST) {
        throw EngineError(EngineErrorCode::CannotOpen,
                          "There is a file '" + path + "' already; it was left as it is.");
    }
    throw EngineError(EngineErrorCode::CannotOpen,
                      "The file '" + path + "' cannot be made: " + std::strerror(errno) +
                          ". Check that its folder exists and that you may write there.");
}

}  // namespace

void CreateDatabase(const std::string& path, std::string_view script) {
    MakeEmptyFile(path);
    try {
        const DatabaseHandle database = OpenDatabase(path, OpenFlag::Create);
        RunStatements(
            database.get(),
            "PRAGMA page_size = 4096; PRAGMA encoding = 'UTF-8'; PRAGMA application_id = " +
                std::to_string(kCatalogueApplicationId));
        RunStatements(database.get(), "BEGIN; " + std::string(script) + "; COMMIT");
    } catch (...) {
        std::error_code ignored;  // the failure being reported says it all
        std::filesystem::remove(path, ignored);
        throw;
    }
    SyncToDisk(path);
}

}  // namespace snippetarium
