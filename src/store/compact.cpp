#include "store/compact.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "engine/compaction.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "store/backup.h"
#include "store/catalogue_file.h"
#include "store/database.h"
#include "store/text_index.h"
#include "support/busy_pointer.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kDone =
    "The database has been successfully compacted (and repaired if there were any errors).";
constexpr std::string_view kOpenElsewhere =
    "Snippetarium has detected that the database is currently opened by another application.  "
    "Please close the database before compacting the database.";

class CompactionProgress {
  public:
    explicit CompactionProgress(const Host& host) : host_(host) {
        host_.progress.Open("Snippetarium is compacting the database, please wait...");
    }
    ~CompactionProgress() { host_.progress.Close(); }
    CompactionProgress(const CompactionProgress&) = delete;
    CompactionProgress& operator=(const CompactionProgress&) = delete;

    void Show(double share) const {
        host_.progress.SetTotal(share * 100.0);
        host_.events.Yield();
    }

  private:
    const Host& host_;
};

// The paths of a compaction are joined with a slash, the one for opening with a backslash: both
// lead to the same file, and both texts have always been these.
std::string ConnectionStringFor(const std::string& path) {
    return "Provider=" + std::string(kCatalogueProvider) + ";Data Source=" + path;
}

/// Where the catalogue is a link to another disk, the copy could not take its name from here.
std::string TargetFolder(const Database& db) {
    std::error_code error;
    if (!std::filesystem::is_symlink(db.FilePath(), error)) return db.ProgramFolder();
    return std::filesystem::path(CatalogueFile(db.ProgramFolder())).parent_path().string();
}

void Compact(Database& db) {
    const BusyPointer pointer(db.GetHost().events);
    const std::string sourcePath = db.ProgramFolder() + "/" + std::string(kCatalogueFileName);
    const std::string targetPath = TargetFolder(db) + "/" + std::string(kCompactionFileName);
    // A copy that an earlier attempt left when the program was killed is worth nothing.
    RemoveDatabaseFiles(targetPath);

    Compaction compaction(ConnectionStringFor(sourcePath));
    {
        const CompactionProgress progress(db.GetHost());
        compaction.WriteCopy(ConnectionStringFor(targetPath),
                             [&](double share) { progress.Show(share); });
    }
    compaction.ReplaceWithCopy();
}

/// Whoever compacts trusts that nothing can be lost by it; so without a backup it is not begun.
void BackUpBefore(Database& db) {
    try {
        WriteBackup(db, BackupReason::Compaction);
    } catch (const Error& error) {
        throw Error(
            error.Number(),
            "The database was not compacted, because the backup that is made before failed: " +
                error.Description());
    }
}

}  // namespace

bool CompactCatalogue(Database& db) {
    return GuardedStage(db.Reporter(), Procedure::CompactCatalogue, [&] {
        try {
            Compact(db);
        } catch (const EngineError& error) {
            if (error.Code() != EngineErrorCode::OpenElsewhere) throw;
            ShowInformation(db.GetHost().messages, kOpenElsewhere, kInformationTitle);
            return false;
        }
        ShowInformation(db.GetHost().messages, kDone, kInformationTitle);
        return true;
    });
}

bool RunCompaction(Database& db) {
    const bool isDone = Guarded(db.Reporter(), Procedure::RunCompaction, [&] {
        BackUpBefore(db);
        if (db.GetConnection().IsOpen()) CompleteTextIndex(db);
        // Kept meanwhile, so that this program can go on writing afterwards.
        std::optional<FileLock> writing = db.TakeWriting();
        CloseCatalogue(db);
        const bool isCompacted = CompactCatalogue(db);
        db.PutWriting(std::move(writing));
        OpenCatalogue(db);
        return isCompacted;
    });
    if (db.IsShuttingDown()) db.EndProgram();
    return isDone;
}

}  // namespace snippetarium
