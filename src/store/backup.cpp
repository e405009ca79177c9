#include "store/backup.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "engine/background_copy.h"
#include "engine/database_file.h"
#include "engine/whole_database.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "support/disk_file_system.h"
#include "support/guard.h"
#include "support/local_time.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kBackupFolder = "backups";
constexpr std::size_t kKeptBackups = 10;
constexpr std::chrono::milliseconds kBetweenReports{10};
constexpr const char* kTimeFormat = "%Y-%m-%d %H-%M-%S";
constexpr std::string_view kTimePattern = "0000-00-00 00-00-00";  // a 0 is any digit
constexpr std::string_view kPrefix = "QRT_SN ";
constexpr std::string_view kSuffix = ".mde";

struct ReasonWord {
    BackupReason reason;
    std::string_view word;
};

// clang-format off
constexpr std::array kReasonWords = {
    ReasonWord{BackupReason::Migration,  "migration"},
    ReasonWord{BackupReason::Compaction, "compaction"},
    ReasonWord{BackupReason::Import,     "import"},
    ReasonWord{BackupReason::Daily,      "daily"},
    ReasonWord{BackupReason::Restore,    "restore"},
    ReasonWord{BackupReason::User,       "user"},
};
// clang-format on

std::string FolderOf(const std::string& programFolder) {
    return ToPlatformPath(JoinPath(programFolder, kBackupFolder));
}

bool IsTime(std::string_view text) {
    return std::equal(text.begin(), text.end(), kTimePattern.begin(), kTimePattern.end(),
                      [](char character, char pattern) {
                          const bool isDigit = character >= '0' && character <= '9';
                          return pattern == '0' ? isDigit : character == pattern;
                      });
}

bool IsTimeTaken(const std::vector<Backup>& backups, const std::string& time) {
    return std::any_of(backups.begin(), backups.end(),
                       [&](const Backup& backup) { return backup.name.time == time; });
}

/// What a copy was when the program that made it was killed.
void RemoveUnfinished(const std::string& folder) {
    const std::string suffix = std::string(kSuffix) + kUnfinishedSuffix;
    const std::string lockSuffix = suffix + kUnfinishedLockSuffix;
    for (const std::string& file : DiskFileSystem().ListFolder(folder).files) {
        if (!file.starts_with(kPrefix)) continue;
        std::string path = ToPlatformPath(JoinPath(folder, file));
        if (file.ends_with(lockSuffix))
            path.resize(path.size() - std::string_view(kUnfinishedLockSuffix).size());
        if (path.ends_with(suffix)) RemoveIfAbandoned(path);
    }
}

}  // namespace

std::string BackupFileName(const BackupName& name) {
    const auto* word =
        std::find_if(kReasonWords.begin(), kReasonWords.end(),
                     [&](const ReasonWord& row) { return row.reason == name.reason; });
    return std::string(kPrefix) + name.time + " " + std::string(word->word) + std::string(kSuffix);
}

std::optional<BackupName> ParseBackupFileName(std::string_view fileName) {
    if (!fileName.starts_with(kPrefix) || !fileName.ends_with(kSuffix)) return std::nullopt;
    fileName.remove_prefix(kPrefix.size());
    const std::string_view time = fileName.substr(0, kTimePattern.size());
    if (!IsTime(time)) return std::nullopt;
    for (const ReasonWord& row : kReasonWords) {
        BackupName name{std::string(time), row.reason};
        if (BackupFileName(name).substr(kPrefix.size()) == fileName) return name;
    }
    return std::nullopt;
}

std::vector<Backup> ListBackups(const std::string& programFolder) {
    const std::string folder = FolderOf(programFolder);
    const DiskFileSystem disk;
    std::vector<Backup> backups;
    if (!disk.FolderExists(folder)) return backups;
    for (const std::string& file : disk.ListFolder(folder).files) {
        const std::optional<BackupName> name = ParseBackupFileName(file);
        if (!name) continue;
        const std::string path = ToPlatformPath(JoinPath(folder, file));
        backups.push_back({path, *name, disk.FileSize(path)});
    }
    std::sort(backups.begin(), backups.end(), [](const Backup& a, const Backup& b) {
        return a.name.time != b.name.time ? a.name.time > b.name.time : a.path > b.path;
    });
    return backups;
}

std::string NewBackupPath(const Host& host, const std::string& programFolder, BackupReason reason) {
    const std::string folder = FolderOf(programFolder);
    DiskFileSystem().MakeFolders(folder);
    const std::vector<Backup> backups = ListBackups(programFolder);
    // Of two in one second, the later one is given the next second.
    std::chrono::system_clock::time_point moment = host.clock.Now();
    while (IsTimeTaken(backups, LocalTimeText(moment, kTimeFormat)))
        moment += std::chrono::seconds(1);
    const BackupName name{LocalTimeText(moment, kTimeFormat), reason};
    return ToPlatformPath(JoinPath(folder, BackupFileName(name)));
}

void RemoveOldBackups(const std::string& programFolder) {
    RemoveUnfinished(FolderOf(programFolder));
    const std::vector<Backup> backups = ListBackups(programFolder);
    for (std::size_t i = kKeptBackups; i < backups.size(); ++i)
        RemoveDatabaseFiles(backups[i].path);
}

std::string WriteBackup(Database& db, BackupReason reason) {
    std::string path = NewBackupPath(db.GetHost(), db.ProgramFolder(), reason);
    JobProgress progress(db.GetHost(), "Snippetarium is backing up the catalogue, please wait...",
                         JobProgress::Cancelling::Impossible);
    BackgroundCopy copy(db.FilePath(), path);
    while (!copy.IsFinished(kBetweenReports))
        progress.Show(copy.Share());
    copy.Check();
    RemoveOldBackups(db.ProgramFolder());
    return path;
}

bool IsDailyBackupDue(const Database& db) {
    if (db.IsReadOnly()) return false;
    const std::string today = LocalTimeText(db.GetHost().clock.Now(), "%Y-%m-%d");
    return std::ranges::none_of(ListBackups(db.ProgramFolder()), [&](const Backup& backup) {
        return backup.name.reason == BackupReason::Daily && backup.name.time.starts_with(today);
    });
}

std::string BackUpOncePerDay(Database& db) {
    return Guarded(db.Reporter(), Procedure::BackUpOncePerDay, [&] {
        return IsDailyBackupDue(db) ? WriteBackup(db, BackupReason::Daily) : std::string();
    });
}

}  // namespace snippetarium
