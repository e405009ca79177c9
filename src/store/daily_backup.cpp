#include "store/daily_backup.h"

#include <utility>

#include "store/backup.h"
#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

bool DailyBackup::Begin() {
    if (!IsDailyBackupDue(db_)) return false;
    const std::string path = NewBackupPath(db_.GetHost(), db_.ProgramFolder(), BackupReason::Daily);
    copy_ = std::make_unique<BackgroundCopy>(db_.FilePath(), path);
    return true;
}

bool DailyBackup::Step() {
    return Guarded(db_.Reporter(), Procedure::BackUpOncePerDay, [&] {
        if (!copy_) return Begin();
        if (!copy_->IsFinished(std::chrono::milliseconds(0))) return true;
        const std::unique_ptr<BackgroundCopy> copy = std::move(copy_);
        copy->Check();
        RemoveOldBackups(db_.ProgramFolder());
        return false;
    });
}

}  // namespace snippetarium
