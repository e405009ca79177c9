#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/host.h"

namespace snippetarium {

class Database;

// Backups are whole copies of the catalogue in the folder "backups" beside it. The ten newest are
// kept. A name tells when and why a backup was made, in local time:
//
//     QRT_SN 2026-11-21 06-16-02 daily.mde
//
// A backup is a catalogue like any other. One that is to be kept for ever is moved to another
// folder or given another name.

/// Why a backup is made: before a risk, once a day, or because the user wants it.
enum class BackupReason : std::uint8_t { Migration, Compaction, Import, Daily, Restore, User };

/// What a backup's name says.
struct BackupName {
    std::string time;  ///< "2026-11-21 06-16-02"
    BackupReason reason = BackupReason::User;

    bool operator==(const BackupName&) const = default;
};

std::string BackupFileName(const BackupName& name);
/// Nothing for a file that is no backup, or one that the user has named.
std::optional<BackupName> ParseBackupFileName(std::string_view fileName);

struct Backup {
    std::string path;
    BackupName name;
    std::uint64_t size = 0;
};

/// The backups of a program folder, the newest first. Throws Error when the folder cannot be read.
std::vector<Backup> ListBackups(const std::string& programFolder);

/// Whether there is no backup of the day yet; never for a catalogue that is open for reading only.
bool IsDailyBackupDue(const Database& db);

/// Makes the first backup of the day. Returns its path, empty when none is due, and on a failure.
/// See DailyBackup for one that nobody has to wait for.
std::string BackUpOncePerDay(Database& db);

/// Makes a backup of the catalogue, which may be open or closed, and returns its path. It throws:
/// work before which it is made must not go on without it. A failure leaves no half file.
std::string WriteBackup(Database& db, BackupReason reason);

/// A path for a new backup of this moment, whose folder is there; no other backup has its time.
std::string NewBackupPath(const Host& host, const std::string& programFolder, BackupReason reason);
/// Removes all but the ten newest backups, and what programs that were killed left unfinished. What
/// cannot be removed waits for the next time: the new backup is good all the same.
void RemoveOldBackups(const std::string& programFolder);

}  // namespace snippetarium
