#include "engine/compaction.h"

#include <sqlite3.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>

#include "engine/connection_string.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/exclusive_claim.h"
#include "engine/whole_database.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr int kStepsBetweenReports = 100'000;

/// Reports how far the copy has grown towards the size that the source has without its gaps. The
/// library, which asks for it, is C code, through which nothing may be thrown: what the report
/// throws ends the statement and is kept until then.
class ProgressReport {
  public:
    ProgressReport(sqlite3* source, const std::string& target, const OnProgress& report)
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

    void ThrowWhatWasKept() const {
        if (failure_) std::rethrow_exception(failure_);
    }

  private:
    static int OnSteps(void* self) {
        auto& report = *static_cast<ProgressReport*>(self);
        try {
            report.Report();
        } catch (...) {
            report.failure_ = std::current_exception();
            return 1;
        }
        return 0;
    }
    void Report() const {
        std::error_code error;
        const std::uintmax_t size = std::filesystem::file_size(target_, error);
        if (!error) report_(std::min(1.0, static_cast<double>(size) / expectedBytes_));
    }

    sqlite3* source_;
    const std::string& target_;
    const OnProgress& report_;
    double expectedBytes_ = 1.0;
    std::exception_ptr failure_;
};

void ExecuteWithText(sqlite3* database, std::string_view sql, const std::string& text) {
    const StatementHandle statement = PrepareStatement(database, sql);
    sqlite3_bind_text64(statement.get(), 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    const int result = sqlite3_step(statement.get());
    if (result != SQLITE_DONE) ThrowEngineError(database, result);
}

void VacuumInto(sqlite3* source, const std::string& target, const OnProgress& onProgress) {
    const ProgressReport progress(source, target, onProgress);
    try {
        ExecuteWithText(source, "VACUUM INTO ?1", target);
    } catch (const EngineError&) {
        progress.ThrowWhatWasKept();
        throw;
    }
}

}  // namespace

Compaction::Compaction(const std::string& sourceConnectionString)
    : sourcePath_(ToPlatformPath(ParseConnectionString(sourceConnectionString).dataSource)),
      source_(ClaimDatabase(sourcePath_)) {}

void Compaction::WriteCopy(const std::string& targetConnectionString,
                           const OnProgress& onProgress) {
    targetPath_ = ToPlatformPath(ParseConnectionString(targetConnectionString).dataSource);
    std::error_code error;
    if (std::filesystem::exists(targetPath_, error)) {
        throw EngineError(EngineErrorCode::CannotOpen,
                          "There is a file '" + targetPath_ + "' already; it was left as it is.");
    }
    try {
        VacuumInto(source_.get(), targetPath_, onProgress);
        MakeSureOf(targetPath_);
        if (onProgress) onProgress(1.0);
    } catch (...) {
        RemoveDatabaseFiles(targetPath_);
        throw;
    }
}

void Compaction::ReplaceWithCopy() {
    RenameFile(targetPath_, sourcePath_);
    source_.reset();
}

}  // namespace snippetarium
