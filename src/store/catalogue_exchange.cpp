#include "store/catalogue_exchange.h"

#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/exclusive_claim.h"
#include "engine/integrity.h"
#include "engine/online_copy.h"
#include "store/backup.h"
#include "store/catalogue_file.h"
#include "store/database.h"
#include "support/file_errors.h"
#include "support/local_time.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNewFileName = "QRT_SN new.mde";

[[noreturn]] void ThrowOpenElsewhere(const std::string& path) {
    throw EngineError(EngineErrorCode::OpenElsewhere,
                      "The catalogue '" + path +
                          "' is open in another program. Close that program and try again.");
}

FileLock ClaimWriting(const std::string& programFolder, const std::string& catalogue) {
    std::optional<FileLock> lock = FileLock::TryAcquire(WriterLockPath(programFolder));
    if (!lock || IsFileOpen(catalogue)) ThrowOpenElsewhere(catalogue);
    return std::move(*lock);
}

void MoveIfThere(const std::string& from, const std::string& to) {
    std::error_code error;
    std::filesystem::rename(from, to, error);
    if (error && error != std::errc::no_such_file_or_directory) {
        throw FileError(FileAction::Write, to, error.value());
    }
}

/// A second name for the file keeps the first one leading to it until the new file takes it over.
/// Where the disk knows no second names, the file is moved.
void NameAside(const std::string& path, const std::string& aside) {
    std::error_code error;
    std::filesystem::create_hard_link(path, aside, error);
    if (error) MoveIfThere(path, aside);
}

}  // namespace

CatalogueExchange::CatalogueExchange(const Host& host, const std::string& programFolder)
    : host_(host),
      programFolder_(programFolder),
      oldPath_(CatalogueFile(programFolder)),
      newPath_(
          (std::filesystem::path(oldPath_).parent_path() / std::string(kNewFileName)).string()),
      writing_(ClaimWriting(programFolder, oldPath_)) {
    RemoveDatabaseFiles(newPath_);  // what a program that was killed may have left
}

CatalogueExchange::~CatalogueExchange() {
    RemoveDatabaseFiles(newPath_);
}

std::string CatalogueExchange::KeepOld(const CancelPoll& poll) {
    return IsOldSound(poll) ? BackUpOld() : MoveOldAside();
}

std::string CatalogueExchange::SetOldAside(const CancelPoll& poll) {
    // A sound file takes its log in first, so that it is whole under either name at any moment. A
    // damaged one is left as it is, and for a moment its log alone has the other name already.
    if (HasPendingLog(oldPath_) && IsOldSound(poll)) claim_ = ClaimDatabase(oldPath_);
    return MoveOldAside();
}

bool CatalogueExchange::IsOldSound(const CancelPoll& poll) const {
    try {
        CheckDatabaseFile(oldPath_, AccessMode::Read);
        return FindIntegrityProblems(oldPath_, &poll).empty();
    } catch (const EngineError& error) {
        if (error.Code() == EngineErrorCode::Cancelled) throw;
        return false;  // whatever it is, it cannot be opened, and so not be backed up
    }
}

std::string CatalogueExchange::BackUpOld() {
    claim_ = ClaimDatabase(oldPath_);
    std::string backup = NewBackupPath(host_, programFolder_, BackupReason::Restore);
    CopyDatabase(claim_.get(), backup, nullptr);
    return backup;
}

std::string CatalogueExchange::UnusedAsidePath() const {
    const std::filesystem::path folder = std::filesystem::path(oldPath_).parent_path();
    std::error_code error;
    for (auto moment = host_.clock.Now();; moment += std::chrono::seconds(1)) {
        const std::string time = LocalTimeText(moment, "%Y-%m-%d %H-%M-%S");
        const std::filesystem::path path = folder / ("QRT_SN damaged " + time + ".mde");
        if (!std::filesystem::exists(path, error)) return path.string();
    }
}

std::string CatalogueExchange::MoveOldAside() const {
    const std::string aside = UnusedAsidePath();
    std::error_code error;
    const bool isThere = std::filesystem::exists(oldPath_, error);
    if (isThere) NameAside(oldPath_, aside);
    try {
        MoveIfThere(oldPath_ + "-wal", aside + "-wal");
        MoveIfThere(oldPath_ + "-journal", aside + "-journal");
    } catch (...) {
        std::filesystem::rename(aside, oldPath_, error);  // a second name merely stays
        throw;
    }
    std::filesystem::remove(oldPath_ + "-shm", error);  // only says what is in the log
    return isThere ? aside : std::string();
}

void CatalogueExchange::PutNewInPlace() {
    std::error_code error;
    if (std::filesystem::exists(oldPath_ + "-wal", error)) {
        throw EngineError(EngineErrorCode::OpenElsewhere,
                          "A program is writing into the catalogue '" + oldPath_ +
                              "'. Close that program and try again.");
    }
    std::filesystem::remove(oldPath_ + "-shm", error);  // a killed program's; it is of no log now
    RenameFile(newPath_, oldPath_);
    claim_.reset();
}

}  // namespace snippetarium
