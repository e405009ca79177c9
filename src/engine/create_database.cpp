#include "engine/create_database.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

void CreateDatabase(const std::string& path, std::string_view script) {
    std::error_code error;
    if (std::filesystem::exists(path, error)) {
        throw EngineError(EngineErrorCode::CannotOpen,
                          "There is a file '" + path + "' already; it was left as it is.");
    }
    try {
        const DatabaseHandle database = OpenDatabase(path, OpenFlag::Create);
        RunStatements(
            database.get(),
            "PRAGMA page_size = 4096; PRAGMA encoding = 'UTF-8'; PRAGMA application_id = " +
                std::to_string(kCatalogueApplicationId));
        RunStatements(database.get(), "BEGIN; " + std::string(script) + "; COMMIT");
    } catch (...) {
        std::filesystem::remove(path, error);
        throw;
    }
    SyncToDisk(path);
}

}  // namespace snippetarium
