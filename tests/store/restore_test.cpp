#include "store/restore.h"

#include <filesystem>
#include <functional>
#include <set>

#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/inspection.h"
#include "engine/integrity.h"
#include "store/backup.h"
#include "store/catalogue_exchange.h"
#include "store/check.h"
#include "store/compact.h"
#include "store/job_progress.h"
#include "store/reads_applications.h"
#include "tests/child_process.h"
#include "tests/killed_child.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/filled_catalogue.h"

namespace snippetarium::test {
namespace {

constexpr std::size_t kPageSize = 4096;

int ErrorNumberOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    }
    return 0;
}

/// A filled catalogue named "new" with a backup from when it was named "old".
/// Makes a file one of a program so many versions later.
std::string VersionScript(int later) {
    return "PRAGMA user_version = " + std::to_string(kCatalogueVersion + later);
}

class RestoreTest : public OpenCatalogueFixture {
  protected:
    RestoreTest() {
        db_.GetConnection().RunScript(FillScript(300));
        NameIt("old");
        backup_ = WriteBackup(db_, BackupReason::User);
        NameIt("new");
        host_.clock.Advance(std::chrono::minutes(1));
        db_.Close();
    }
    void NameIt(const std::string& name) {
        ExecuteSQL(db_, "UPDATE tblApplication SET appName = '" + name + "' WHERE appID = 1");
    }
    std::string NameNow() {
        OpenCatalogue(db_);
        const std::string name = AppNameByID(db_, 1);
        db_.Close();
        return name;
    }
    static std::string NameIn(const std::string& path) {
        return Inspection(path)
            .Read("SELECT appName FROM tblApplication WHERE appID = 1")[std::size_t{0}]
            .Text();
    }
    std::set<std::string> FilesInFolder() const {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path()))
            files.insert(entry.path().string());
        return files;
    }
    void Damage(const std::string& path) const {
        std::string bytes = ReadBytes(path);
        bytes.replace(bytes.size() / 2 / kPageSize * kPageSize, kPageSize,
                      std::string(kPageSize, '\xEE'));
        WriteBytes(path, bytes);
    }
    /// Lets a program die with changes in the log: the name becomes "logged".
    void LeaveALog() {
        RunUntilItDies([&] {
            OpenCatalogue(db_);
            NameIt("logged");
            DieHere();
        });
        ASSERT_TRUE(HasPendingLog(CataloguePath()));
    }
    std::string backup_;
};

TEST_F(RestoreTest, PutsTheBackupInPlaceAndKeepsWhatWasThere) {
    const std::string kept = RestoreCatalogue(host_.host, folder_.Path(), backup_);
    EXPECT_EQ(NameNow(), "old");
    EXPECT_EQ(NameIn(kept), "new");
    const std::vector<Backup> backups = ListBackups(folder_.Path());
    ASSERT_EQ(backups.size(), 2U);
    EXPECT_EQ(backups.front().path, kept);
    EXPECT_EQ(backups.front().name.reason, BackupReason::Restore);
    RestoreCatalogue(host_.host, folder_.Path(), kept);
    EXPECT_EQ(NameNow(), "new") << "and back again";
}

TEST_F(RestoreTest, TakesInTheLogOfWhatItKeeps) {
    LeaveALog();
    const std::string kept = RestoreCatalogue(host_.host, folder_.Path(), backup_);
    EXPECT_EQ(NameIn(kept), "logged");
    EXPECT_EQ(NameNow(), "old");
}

TEST_F(RestoreTest, SetsADamagedCatalogueAsideWithItsLog) {
    LeaveALog();
    Damage(CataloguePath());
    const std::string damaged = ReadBytes(CataloguePath());
    const std::string log = ReadBytes(CataloguePath() + "-wal");
    const std::string kept = RestoreCatalogue(host_.host, folder_.Path(), backup_);
    EXPECT_EQ(kept, folder_.File("QRT_SN damaged 2024-05-17 12-01-00.mde"));
    EXPECT_TRUE(ReadBytes(kept) == damaged);
    EXPECT_TRUE(ReadBytes(kept + "-wal") == log);
    EXPECT_FALSE(HasPendingLog(CataloguePath()));
    EXPECT_EQ(NameNow(), "old");
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
}

TEST_F(RestoreTest, NeedsNoCatalogueAndLetsAnOrphanedLogDoNoHarm) {
    LeaveALog();
    std::filesystem::remove(CataloguePath());
    EXPECT_EQ(RestoreCatalogue(host_.host, folder_.Path(), backup_), "");
    EXPECT_FALSE(HasPendingLog(CataloguePath()));
    EXPECT_EQ(NameNow(), "old");
}

TEST_F(RestoreTest, TakesACatalogueWithALogAsABackup) {
    LeaveALog();
    TemporaryFolder other;
    for (const std::string suffix : {"", "-wal"}) {
        std::filesystem::copy_file(CataloguePath() + suffix, other.File("their.mde") + suffix);
    }
    RestoreCatalogue(host_.host, folder_.Path(), other.File("their.mde"));
    EXPECT_EQ(NameNow(), "logged");
    EXPECT_TRUE(HasPendingLog(other.File("their.mde"))) << "theirs stays as it was";
}

TEST_F(RestoreTest, RefusesABadBackupAndChangesNothing) {
    const std::string bad = folder_.File("bad.mde");
    const std::string good = ReadBytes(backup_);
    const struct {
        std::string what;
        std::function<void()> make;
        int error;
    } cases[] = {
        {"nothing", [] {}, 3024},
        {"no database", [&] { WriteBytes(bad, "no database"); }, 3343},
        {"an empty file", [&] { WriteBytes(bad, ""); }, 3343},
        {"half of it", [&] { WriteBytes(bad, good.substr(0, good.size() / 2)); }, 3049},
        {"a damaged one",
         [&] {
             WriteBytes(bad, good);
             Damage(bad);
         },
         3049},
        {"another program's",
         [&] {
             WriteBytes(bad, good);
             RunStatements(OpenDatabase(bad, OpenFlag::ReadWrite).get(),
                           "PRAGMA application_id = 7");
         },
         3343},
        {"a newer program's",
         [&] {
             WriteBytes(bad, good);
             RunStatements(OpenDatabase(bad, OpenFlag::ReadWrite).get(), VersionScript(1));
         },
         3343},
        {"one with a wrong index",
         [&] {
             WriteBytes(bad, good);
             RunStatements(OpenDatabase(bad, OpenFlag::ReadWrite).get(),
                           "PRAGMA writable_schema = ON; "
                           "UPDATE sqlite_schema SET sql = replace(sql, 'appName', 'appPath') "
                           "WHERE name = 'ixAppName'");
         },
         3049},
        {"the catalogue itself", [&] { std::filesystem::create_hard_link(CataloguePath(), bad); },
         5},
    };
    const std::string before = ReadBytes(CataloguePath());
    for (const auto& test : cases) {
        std::filesystem::remove(bad);
        test.make();
        const std::set<std::string> files = FilesInFolder();
        EXPECT_EQ(ErrorNumberOf([&] { RestoreCatalogue(host_.host, folder_.Path(), bad); }),
                  test.error)
            << test.what;
        EXPECT_TRUE(ReadBytes(CataloguePath()) == before) << test.what;
        EXPECT_EQ(FilesInFolder(), files) << test.what;
    }
    EXPECT_EQ(NameNow(), "new");
}

TEST_F(RestoreTest, IsRefusedWhileAnotherProgramHasTheCatalogueOpen) {
    const std::string before = ReadBytes(CataloguePath());
    const std::function<void()> others[] = {
        [&] { OpenDatabase(CataloguePath(), OpenFlag::Read).release(); },
        [&] {
            db_.SetMode(AccessMode::Read);
            OpenCatalogue(db_);
        },
        [&] { static const auto lock = FileLock::TryAcquire(folder_.File(kWriterLockFileName)); },
    };
    for (const auto& other : others) {
        const ChildProcess child(other);
        EXPECT_EQ(ErrorNumberOf([&] { RestoreCatalogue(host_.host, folder_.Path(), backup_); }),
                  3356);
        EXPECT_EQ(ErrorNumberOf([&] { SalvageCatalogue(host_.host, folder_.Path()); }), 3356);
        EXPECT_TRUE(ReadBytes(CataloguePath()) == before);
        EXPECT_EQ(ListBackups(folder_.Path()).size(), 1U);
    }
}

TEST_F(RestoreTest, KilledBetweenAnyTwoStepsLeavesAWholeCatalogue) {
    // Out of reach of the rotation.
    std::filesystem::rename(backup_, folder_.File("kept.mde"));
    backup_ = folder_.File("kept.mde");
    const auto dieAfter = [&](int steps) {
        RunUntilItDies([&] {
            const JobProgress poll(host_.host, "", JobProgress::Cancelling::Impossible);
            CatalogueExchange exchange(host_.host, folder_.Path());
            if (steps > 0) std::filesystem::copy_file(backup_, exchange.NewPath());
            if (steps > 1) exchange.KeepOld(poll);
            if (steps > 2) exchange.PutNewInPlace();
            DieHere();
        });
    };
    for (const bool hasLog : {false, true}) {
        for (int steps = 0; steps <= 3; ++steps) {
            if (hasLog) LeaveALog();
            dieAfter(steps);
            EXPECT_EQ(NameNow(), steps == 3 ? "old" : hasLog ? "logged" : "new") << steps;
            EXPECT_TRUE(CheckCatalogue(db_).IsSound());
            EXPECT_EQ(NameIn(RestoreCatalogue(host_.host, folder_.Path(), backup_)),
                      steps == 3 ? "old"
                      : hasLog   ? "logged"
                                 : "new")
                << "and the next attempt goes through";
            OpenCatalogue(db_);
            NameIt("new");
            db_.Close();
        }
    }
}

/// The catalogue's file is in another folder, and a link leads to it.
class LinkedCatalogueTest : public RestoreTest {
  protected:
    LinkedCatalogueTest() {
        std::filesystem::create_directory(folder_.File("disk"));
        std::filesystem::rename(CataloguePath(), itself_);
        std::filesystem::create_symlink("disk/mine.mde", CataloguePath());
    }
    std::set<std::string> FilesOnDisk() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.File("disk")))
            names.insert(entry.path().filename().string());
        return names;
    }
    /// The link leads to the file still, and beside neither is anything of the engine's.
    void ExpectNothingElse(const std::set<std::string>& onDisk) const {
        EXPECT_TRUE(std::filesystem::is_symlink(CataloguePath()));
        EXPECT_EQ(FilesOnDisk(), onDisk);
        for (const std::string suffix : {"-wal", "-shm", "-journal"})
            EXPECT_FALSE(std::filesystem::exists(CataloguePath() + suffix)) << suffix;
    }

    std::string itself_ = folder_.File("disk/mine.mde");
};

TEST_F(LinkedCatalogueTest, IsRestoredAndCompactedWhereItIs) {
    LeaveALog();
    EXPECT_TRUE(std::filesystem::exists(itself_ + "-wal"));
    EXPECT_EQ(NameIn(RestoreCatalogue(host_.host, folder_.Path(), backup_)), "logged");
    ExpectNothingElse({"mine.mde"});
    EXPECT_EQ(NameNow(), "old");

    OpenCatalogue(db_);
    EXPECT_TRUE(RunCompaction(db_));
    TakeBox();
    EXPECT_FALSE(db_.IsReadOnly());
    db_.Close();
    ExpectNothingElse({"mine.mde"});
    EXPECT_EQ(NameNow(), "old");

    // The disk was away, and came back empty.
    std::filesystem::remove(itself_);
    EXPECT_EQ(RestoreCatalogue(host_.host, folder_.Path(), backup_), "");
    ExpectNothingElse({"mine.mde"});
    EXPECT_EQ(NameNow(), "old");
}

TEST_F(LinkedCatalogueTest, IsDamagedAndSetAsideWithItsLogWhereItIs) {
    LeaveALog();
    std::string bytes = ReadBytes(itself_);
    bytes.replace(0, kPageSize, std::string(kPageSize, 'x'));
    WriteBytes(itself_, bytes);
    const std::string aside = RestoreCatalogue(host_.host, folder_.Path(), backup_);
    const std::string name = std::filesystem::path(aside).filename();
    EXPECT_EQ(aside, folder_.File("disk/" + name));
    ExpectNothingElse({"mine.mde", name, name + "-wal"});
    EXPECT_EQ(NameNow(), "old");
}

TEST_F(LinkedCatalogueTest, HasOneWriterByWhateverLinkItIsOpened) {
    const std::string other = folder_.File("other");
    std::filesystem::create_directory(other);
    std::filesystem::create_symlink("../disk/mine.mde", other + "/QRT_SN.mde");
    OpenCatalogue(db_);
    EXPECT_EQ(FilesOnDisk().count("mine.lock"), 1U);
    Database second(host_.host, CatalogueProviders(), other);
    OpenCatalogue(second);
    EXPECT_TRUE(second.IsReadOnly());
    TakeBox();
    second.Close();
    EXPECT_EQ(ErrorNumberOf([&] { RestoreCatalogue(host_.host, other, backup_); }), 3356);
}

TEST_F(RestoreTest, RecoveryPutsWhatCanBeReadInPlaceAndKeepsTheDamagedFile) {
    const auto page =
        static_cast<std::size_t>(Inspection(CataloguePath())
                                     .ReadNumber("SELECT pageno FROM dbstat WHERE name = 'tblCode' "
                                                 "AND pagetype = 'leaf' LIMIT 1 OFFSET 5"));
    std::string damaged = ReadBytes(CataloguePath());
    damaged.replace((page - 1) * kPageSize, kPageSize, std::string(kPageSize, '\xEE'));
    WriteBytes(CataloguePath(), damaged);
    const SalvageResult result = SalvageCatalogue(host_.host, folder_.Path());
    EXPECT_FALSE(result.report.IsComplete());
    EXPECT_TRUE(ReadBytes(result.keptPath) == damaged);
    OpenCatalogue(db_);
    EXPECT_EQ(AppNameByID(db_, 1), "new");
    EXPECT_GT(ScalarLong(db_, "SELECT count(*) FROM tblCode"), 200);
    for (const CheckFinding& finding : CheckCatalogue(db_).findings) {
        EXPECT_NE(finding.kind, FindingKind::DamagedFile);
        EXPECT_NE(finding.kind, FindingKind::MissingSchemaObject);
        EXPECT_NE(finding.kind, FindingKind::ChangedStatistics);
    }
}

TEST_F(RestoreTest, RecoversAFileWhoseEndIsMissing) {
    const std::string damaged = ReadBytes(CataloguePath());
    WriteBytes(CataloguePath(), damaged.substr(0, damaged.size() - 5 * kPageSize + 100));
    const SalvageResult result = SalvageCatalogue(host_.host, folder_.Path());
    EXPECT_FALSE(result.report.IsComplete());
    EXPECT_EQ(ReadBytes(result.keptPath).size(), damaged.size() - 5 * kPageSize + 100);
    OpenCatalogue(db_);
    EXPECT_EQ(AppNameByID(db_, 1), "new");
    EXPECT_GT(ScalarLong(db_, "SELECT count(*) FROM tblCode"), 50);
    EXPECT_TRUE(FindIntegrityProblems(CataloguePath(), nullptr).empty());
}

TEST_F(RestoreTest, RecoveryThatIsRefusedOrCancelledChangesNothing) {
    RunStatements(OpenDatabase(CataloguePath(), OpenFlag::ReadWrite).get(), VersionScript(1));
    const std::string newer = ReadBytes(CataloguePath());
    EXPECT_EQ(ErrorNumberOf([&] { SalvageCatalogue(host_.host, folder_.Path()); }), 3343);
    EXPECT_TRUE(ReadBytes(CataloguePath()) == newer);

    RunStatements(OpenDatabase(CataloguePath(), OpenFlag::ReadWrite).get(), VersionScript(0));
    const std::string before = ReadBytes(CataloguePath());
    const std::set<std::string> files = FilesInFolder();
    const int yields = host_.events.yields;
    host_.events.At(yields + 1, [&] {
        host_.clock.Advance(std::chrono::seconds(1));
        host_.PressCancelAt(yields + 3);
    });
    EXPECT_EQ(ErrorNumberOf([&] { SalvageCatalogue(host_.host, folder_.Path()); }), 3059);
    EXPECT_TRUE(ReadBytes(CataloguePath()) == before);
    EXPECT_EQ(FilesInFolder(), files);
}

TEST_F(RestoreTest, WorksThroughALinkAndLeavesIt) {
    TemporaryFolder other;
    std::filesystem::rename(CataloguePath(), other.File("real.mde"));
    std::filesystem::create_symlink(other.File("real.mde"), CataloguePath());
    RestoreCatalogue(host_.host, folder_.Path(), backup_);
    EXPECT_TRUE(std::filesystem::is_symlink(CataloguePath()));
    EXPECT_EQ(NameIn(other.File("real.mde")), "old");
    EXPECT_EQ(NameNow(), "old");
}

}  // namespace
}  // namespace snippetarium::test
