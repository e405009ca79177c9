#include "store/backup.h"

#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <set>
#include <thread>

#include "engine/engine_error.h"
#include "engine/inspection.h"
#include "engine/whole_database.h"
#include "store/compact.h"
#include "store/daily_backup.h"
#include "store/reads_applications.h"
#include "tests/child_process.h"
#include "tests/killed_child.h"
#include "tests/store/catalogue_fixture.h"

namespace snippetarium::test {
namespace {

using namespace std::chrono_literals;

TEST(BackupName, IsWrittenAndRead) {
    const struct {
        std::string_view file;
        std::optional<BackupName> expected;
    } cases[] = {
        {"QRT_SN 2026-11-21 06-16-02 daily.mde",
         BackupName{"2026-11-21 06-16-02", BackupReason::Daily}},
        {"QRT_SN 2026-11-21 06-16-02 user.mde",
         BackupName{"2026-11-21 06-16-02", BackupReason::User}},
        {"QRT_SN 2026-11-21 06-16-02 restore.mde",
         BackupName{"2026-11-21 06-16-02", BackupReason::Restore}},
        {"QRT_SN 2026-11-21 06-16-02.mde", std::nullopt},
        {"QRT_SN 2026-11-21 06-16-02 my own.mde", std::nullopt},
        {"QRT_SN 2026-11-21 06-16-02 daily.mde.part", std::nullopt},
        {"QRT_SN 2026-11-21 06-16-0x daily.mde", std::nullopt},
        {"QRT_SN 2026-11-21 06-16-02 dailyx.mde", std::nullopt},
        {"QRT_SN daily.mde", std::nullopt},
        {"QRT_SN .mde", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(ParseBackupFileName(test.file), test.expected) << test.file;
        if (test.expected) {
            EXPECT_EQ(BackupFileName(*test.expected), test.file);
        }
    }
}

class BackupTest : public OpenCatalogueFixture {
  protected:
    std::string BackupFolder() const { return folder_.File("backups"); }
    std::set<std::string> BackupFiles() const {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(BackupFolder()))
            names.insert(entry.path().filename().string());
        return names;
    }
    /// Everything below the folder, each file with its size.
    std::set<std::string> AllFiles() const {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path()))
            files.insert(entry.path().string());
        return files;
    }
};

TEST_F(BackupTest, IsACatalogueOfTheMomentWhenItWasMade) {
    ExecuteSQL(db_, "UPDATE tblApplication SET appName = 'before'");
    const std::string path = WriteBackup(db_, BackupReason::Import);
    ExecuteSQL(db_, "UPDATE tblApplication SET appName = 'after'");
    const std::vector<Backup> backups = ListBackups(folder_.Path());
    ASSERT_EQ(backups.size(), 1U);
    EXPECT_EQ(backups.front().path, path);
    EXPECT_EQ(backups.front().name.reason, BackupReason::Import);
    EXPECT_EQ(backups.front().size, std::filesystem::file_size(path));

    TemporaryFolder other;
    std::filesystem::copy_file(path, other.File(kCatalogueFileName));
    Database restored(host_.host, CatalogueProviders(), other.Path());
    OpenCatalogue(restored);
    EXPECT_EQ(AppNameByID(restored, 1), "before");
}

TEST_F(BackupTest, OfTheSameSecondHasATimeOfItsOwn) {
    std::vector<std::string> made;
    for (const BackupReason reason :
         {BackupReason::User, BackupReason::User, BackupReason::Compaction}) {
        made.insert(made.begin(), WriteBackup(db_, reason));
    }
    std::vector<std::string> listed;
    for (const Backup& backup : ListBackups(folder_.Path()))
        listed.push_back(backup.path);
    EXPECT_EQ(listed, made) << "the newest first";
    std::sort(made.rbegin(), made.rend());
    EXPECT_EQ(listed, made) << "and by name alone too";
}

TEST_F(BackupTest, TenNewestStayAndWhatTheUserNamedToo) {
    WriteBackup(db_, BackupReason::User);
    WriteBytes(BackupFolder() + "/QRT_SN 2001-01-01 00-00-00 my first.mde", "mine");
    WriteBytes(BackupFolder() + "/QRT_SN 2001-01-01 00-00-00 user.mde", "old");
    std::string last;
    for (int day = 0; day < 12; ++day) {
        host_.clock.Advance(24h);
        last = WriteBackup(db_, day % 2 == 0 ? BackupReason::Daily : BackupReason::User);
    }
    const std::vector<Backup> backups = ListBackups(folder_.Path());
    ASSERT_EQ(backups.size(), 10U);
    EXPECT_EQ(backups.front().path, last);
    EXPECT_TRUE(backups.back().name.time.starts_with("2024-05-20")) << backups.back().name.time;
    EXPECT_EQ(BackupFiles().size(), 11U);
    EXPECT_TRUE(BackupFiles().contains("QRT_SN 2001-01-01 00-00-00 my first.mde"));
}

TEST_F(BackupTest, OnceADay) {
    WriteBackup(db_, BackupReason::User);
    EXPECT_NE(BackUpOncePerDay(db_), "") << "one of another kind does not count";
    EXPECT_EQ(BackUpOncePerDay(db_), "");
    host_.clock.Advance(23h);
    EXPECT_NE(BackUpOncePerDay(db_), "");
    EXPECT_EQ(BackUpOncePerDay(db_), "");
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 3U);

    db_.Close();
    db_.SetMode(AccessMode::Read);
    OpenCatalogue(db_);
    host_.clock.Advance(24h);
    EXPECT_EQ(BackUpOncePerDay(db_), "") << "nothing can have changed";
    EXPECT_EQ(ListBackups(folder_.Path()).size(), 3U);
}

TEST_F(BackupTest, OnceADayIsMadeWhileTheProgramGoesOn) {
    const auto finish = [](DailyBackup& backup) {
        while (backup.Step())
            std::this_thread::sleep_for(1ms);
    };
    DailyBackup backup(db_);
    EXPECT_TRUE(backup.Step());
    ExecuteSQL(db_, "UPDATE tblApplication SET appName = 'written meanwhile'");
    finish(backup);
    ASSERT_EQ(ListBackups(folder_.Path()).size(), 1U);
    EXPECT_EQ(ListBackups(folder_.Path()).front().name.reason, BackupReason::Daily);
    EXPECT_FALSE(DailyBackup(db_).Step()) << "there is one of today";

    host_.clock.Advance(24h);
    { EXPECT_TRUE(DailyBackup(db_).Step()); }
    EXPECT_EQ(BackupFiles().size(), ListBackups(folder_.Path()).size()) << "whole or given up";

    host_.clock.Advance(24h);
    std::filesystem::remove_all(BackupFolder());
    WriteBytes(BackupFolder(), "a file in the way");
    DailyBackup failing(db_);
    finish(failing);
    EXPECT_NE(TakeBox().text.find(BackupFolder()), std::string::npos);
}

TEST_F(BackupTest, ThatFailsIsReportedAndLeavesNoHalfFile) {
    WriteBytes(BackupFolder(), "a file in the way");
    EXPECT_EQ(BackUpOncePerDay(db_), "");
    const ShownBox box = TakeBox();
    EXPECT_NE(box.text.find("QRT Error Code: 10792"), std::string::npos) << box.text;
    EXPECT_NE(box.text.find(BackupFolder()), std::string::npos) << box.text;
    EXPECT_EQ(ReadBytes(BackupFolder()), "a file in the way");
}

TEST_F(BackupTest, OnAFullDiskLeavesNoHalfFile) {
    db_.Close();
    const ChildProcess other([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1 << 16, 1 << 16};
        setrlimit(RLIMIT_FSIZE, &limit);
        Database db(host_.host, CatalogueProviders(), folder_.Path());
        try {
            WriteBackup(db, BackupReason::User);
        } catch (const EngineError& error) {
            if (!error.Description().empty() && BackupFiles().empty()) return;
        }
        _exit(1);
    });
}

TEST_F(BackupTest, CleansUpAfterAProgramThatWasKilledWhileItMadeOne) {
    db_.Close();
    RunUntilItDies([&] {
        OpenCatalogue(db_);
        DieBehind(1 << 16);
        WriteBackup(db_, BackupReason::User);
    });
    ASSERT_EQ(BackupFiles().size(), 2U) << "the half one, and the lock on it";
    const std::string half = BackupFolder() + "/" + *BackupFiles().begin();
    EXPECT_TRUE(half.ends_with(".mde.part"));
    EXPECT_TRUE(ListBackups(folder_.Path()).empty()) << "a half one is none";

    OpenCatalogue(db_);
    host_.clock.Advance(1s);
    {
        const ChildProcess makingIt([&] {
            static const auto lock = FileLock::TryAcquire(half + ".lock");
            if (!lock) _exit(1);
        });
        WriteBackup(db_, BackupReason::User);
        EXPECT_EQ(BackupFiles().size(), 3U) << "another program is just making it";
    }
    host_.clock.Advance(1s);
    WriteBackup(db_, BackupReason::User);
    EXPECT_FALSE(BackupFiles().contains(std::filesystem::path(half).filename()));
    EXPECT_EQ(BackupFiles().size(), 2U);
}

TEST_F(BackupTest, LeavesAloneWhatThisProgramIsMakingBesides) {
    WriteBackup(db_, BackupReason::User);
    const std::string other = BackupFolder() + "/QRT_SN 2026-11-21 06-16-02 daily.mde";
    const std::string source = *BackupFiles().begin();
    WriteWholeDatabase(other, [&](const std::string& path) {
        std::filesystem::copy_file(BackupFolder() + "/" + source, path);
        RemoveOldBackups(folder_.Path());
        EXPECT_TRUE(std::filesystem::exists(path));
        EXPECT_THROW(WriteWholeDatabase(other, [](const std::string&) {}), EngineError);
    });
    EXPECT_EQ(BackupFiles(),
              (std::set<std::string>{source, std::filesystem::path(other).filename()}));
}

TEST_F(BackupTest, IsMadeBeforeACompaction) {
    ExecuteSQL(db_, "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee')");
    RunCompaction(db_);
    TakeBox();
    const std::vector<Backup> backups = ListBackups(folder_.Path());
    ASSERT_EQ(backups.size(), 1U);
    EXPECT_EQ(backups.front().name.reason, BackupReason::Compaction);
    EXPECT_EQ(Inspection(backups.front().path).ReadNumber("SELECT count(*) FROM tblAuthor"), 1);
}

TEST_F(BackupTest, ThatFailsLetsNoCompactionBegin) {
    WriteBytes(BackupFolder(), "a file in the way");
    const std::set<std::string> before = AllFiles();
    RunCompaction(db_);
    const ShownBox box = TakeBox();
    EXPECT_NE(box.text.find("QRT Error Code: 11152"), std::string::npos) << box.text;
    EXPECT_NE(box.text.find("was not compacted, because the backup"), std::string::npos)
        << box.text;
    EXPECT_TRUE(db_.GetConnection().IsOpen());
    EXPECT_EQ(AppNameByID(db_, 1), "Application Undefined");
    EXPECT_EQ(AllFiles(), before);
}

}  // namespace
}  // namespace snippetarium::test
