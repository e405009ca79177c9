#include "engine/whole_database.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"
#include "support/file_lock.h"

namespace snippetarium {

namespace {

void ReadBack(const std::string& path) {
    const DatabaseHandle database = OpenDatabase(path, OpenFlag::Read);
    if (ScalarText(database.get(), "PRAGMA application_id") !=
        std::to_string(kCatalogueApplicationId)) {
        throw EngineError(EngineErrorCode::UnrecognisedFormat,
                          "The file '" + path + "' is a database of another program.");
    }
    const std::string found = ScalarText(database.get(), "PRAGMA quick_check(1)");
    if (found == "ok") return;
    throw EngineError(EngineErrorCode::Corrupted,
                      "The copy of the catalogue is damaged (" + found +
                          "), most likely because the catalogue is. Nothing was changed. Check the "
                          "catalogue, then restore a backup or recover what can be read.");
}

FileLock ClaimMaking(const std::string& lockPath, const std::string& targetPath) {
    try {
        std::optional<FileLock> lock = FileLock::TryAcquire(lockPath);
        if (lock) return std::move(*lock);
    } catch (const Error& error) {
        throw EngineError(
            EngineErrorCode::CannotOpen,
            "The file '" + targetPath + "' cannot be written: " + error.Description());
    }
    throw EngineError(EngineErrorCode::CannotOpen,
                      "The file '" + targetPath + "' is just being made. Try again later.");
}

}  // namespace

void MakeSureOf(const std::string& path) {
    ReadBack(path);
    SyncToDisk(path);
}

void RemoveIfAbandoned(const std::string& unfinishedPath) {
    // The file itself is not opened to find out: closing it again would drop the locks that a copy
    // in this program holds on it.
    const std::optional<FileLock> making =
        FileLock::TryAcquire(unfinishedPath + kUnfinishedLockSuffix);
    if (making) RemoveDatabaseFiles(unfinishedPath);
}

void WriteWholeDatabase(const std::string& targetPath,
                        const std::function<void(const std::string& path)>& write) {
    std::error_code error;
    if (std::filesystem::exists(targetPath, error)) {
        throw EngineError(EngineErrorCode::CannotOpen,
                          "There is a file '" + targetPath + "' already; it was left as it is.");
    }
    const std::string unfinished = targetPath + kUnfinishedSuffix;
    const FileLock making = ClaimMaking(unfinished + kUnfinishedLockSuffix, targetPath);
    RemoveDatabaseFiles(unfinished);  // what a program that was killed may have left
    try {
        write(unfinished);
        MakeSureOf(unfinished);
        RenameFile(unfinished, targetPath);
    } catch (...) {
        RemoveDatabaseFiles(unfinished);
        throw;
    }
}

}  // namespace snippetarium
