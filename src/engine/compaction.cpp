#include "engine/compaction.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "engine/connection_string.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr int kStepsBetweenReports = 100'000;

/// Reports how far the copy has grown towards the size that the source has without its gaps.
class ProgressReport {
  public:
    ProgressReport(sqlite3* source, const std::string& target, const Compaction::OnProgress& report)
        : source_(source), target_(target), report_(report) {
        const double pages = std::stod(ScalarText(source, "PRAGMA page_count"));
        const double freePages = std::stod(ScalarText(source, "PRAGMA freelist_count"));
        const double pageSize = std::stod(ScalarText(source, "PRAGMA page_size"));
        expectedBytes_ = std::max(1.0, (pages - freePages) * pageSize);
        if (report_) sqlite3_progress_handler(source_, kStepsBetweenReports, OnSteps, this);
    }
    ~ProgressReport() { sqlite3_progress_handler(source_, 0, nullptr, nullptr); }
    ProgressReport(const ProgressReport&) = delete;
    ProgressReport& operator=(const ProgressReport&) = delete;

  private:
    static int OnSteps(void* self) {
        const auto& report = *static_cast<const ProgressReport*>(self);
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(report.target_, error);
        if (!error)
            report.report_(std::min(1.0, static_cast<double>(size) / report.expectedBytes_));
        return 0;
    }

    sqlite3* source_;
    const std::string& target_;
    const Compaction::OnProgress& report_;
    double expectedBytes_ = 1.0;
};

void ExecuteWithText(sqlite3* database, std::string_view sql, const std::string& text) {
    const StatementHandle statement = PrepareStatement(database, sql);
    sqlite3_bind_text64(statement.get(), 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_DONE) ThrowEngineError(database, result);
}

[[noreturn]] void ThrowOpenElsewhere(const std::string& path) {
    throw EngineError(EngineErrorCode::OpenElsewhere,
                      "The catalogue '" + path + "' is open in another program.");
}

}  // namespace

Compaction::Compaction(const std::string& sourceConnectionString)
    : sourcePath_(ToPlatformPath(ParseConnectionString(sourceConnectionString).dataSource)) {
    CheckDatabaseFile(sourcePath_, AccessMode::ReadWrite);
    // The engine's locks show only who is reading or writing just now, not who has the file open.
    if (IsFileOpen(sourcePath_)) ThrowOpenElsewhere(sourcePath_);
    source_ = OpenDatabase(sourcePath_, OpenFlag::ReadWrite);
    sqlite3_busy_timeout(source_.get(), 0);
    try {
        // In this order: the lock is taken with the first read and then kept. Leaving write-ahead
        // mode removes the log, so that none of the old file's can ever meet the new one.
        RunStatements(source_.get(), "PRAGMA locking_mode = EXCLUSIVE");
        if (ScalarText(source_.get(), "PRAGMA journal_mode = DELETE") != "delete") {
            ThrowOpenElsewhere(sourcePath_);
        }
        RunStatements(source_.get(), "BEGIN EXCLUSIVE; COMMIT");
    } catch (const EngineError& error) {
        if (error.Code() == EngineErrorCode::CannotLock) ThrowOpenElsewhere(sourcePath_);
        throw;
    }
}

void Compaction::WriteCopy(const std::string& targetConnectionString,
                           const OnProgress& onProgress) {
    targetPath_ = ToPlatformPath(ParseConnectionString(targetConnectionString).dataSource);
    std::error_code error;
    if (std::filesystem::exists(targetPath_, error)) {
        throw EngineError(EngineErrorCode::CannotOpen,
                          "There is a file '" + targetPath_ + "' already; it was left as it is.");
    }
    try {
        {
            const ProgressReport progress(source_.get(), targetPath_, onProgress);
            ExecuteWithText(source_.get(), "VACUUM INTO ?1", targetPath_);
        }
        // A copy counts once it has been read back: nothing may take the original's place unseen.
        const DatabaseHandle copy = OpenDatabase(targetPath_, OpenFlag::Read);
        if (const std::string found = ScalarText(copy.get(), "PRAGMA quick_check(1)");
            found != "ok") {
            throw EngineError(
                EngineErrorCode::Corrupted,
                "The compacted copy is damaged (" + found + "). The catalogue was left as it was.");
        }
        SyncToDisk(targetPath_);
    } catch (...) {
        std::error_code ignored;  // the copy is worthless; one that stays is removed the next time
        std::filesystem::remove(targetPath_, ignored);
        throw;
    }
    if (onProgress) onProgress(1.0);
}

void Compaction::ReplaceWithCopy() {
    std::error_code error;
    std::filesystem::rename(targetPath_, sourcePath_, error);
    if (error) {
        throw EngineError(EngineErrorCode::DiskError,
                          "The compacted copy could not take the place of '" + sourcePath_ +
                              "': " + error.message() + ". The catalogue was left as it was.");
    }
    const std::string folder = std::filesystem::path(sourcePath_).parent_path().string();
    SyncToDisk(folder.empty() ? "." : folder);
    source_.reset();
}

}  // namespace snippetarium
