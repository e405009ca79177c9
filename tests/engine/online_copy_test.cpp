#include "engine/online_copy.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "engine/background_copy.h"
#include "engine/database_file.h"
#include "tests/engine/test_catalogue.h"
#include "tests/killed_child.h"

namespace snippetarium::test {
namespace {

/// A catalogue of some megabytes, open for writing, with its last changes still in the log.
class OnlineCopyTest : public testing::Test {
  protected:
    OnlineCopyTest() {
        Insert(800);
        catalogue_.connection.Checkpoint();
        Insert(1);
    }
    void Insert(int count) {
        catalogue_.connection.RunScript(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(count) +
            ") INSERT INTO tblCode (codeName, code) SELECT 'filler', hex(zeroblob(2000)) FROM n");
    }
    std::string Target() const { return catalogue_.folder.File("copy.mde"); }
    void Copy(const OnProgress& onProgress = nullptr) {
        CopyDatabase(catalogue_.Path(), Target(), onProgress);
    }
    std::size_t FilesInFolder() const {
        const std::filesystem::directory_iterator files(catalogue_.folder.Path());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }
    void ExpectCopyOfRows(const std::string& count) const {
        Connection copy(CatalogueProviders());
        copy.SetConnectionString(ConnectionStringOf(Target()));
        copy.SetMode(AccessMode::Read);
        copy.Open();
        EXPECT_EQ(copy.Execute("SELECT count(*) FROM tblCode")[std::size_t{0}].Text(), count);
        EXPECT_EQ(copy.Execute("qryAllCodes").RowCount(), std::stoul(count));
    }
    TestCatalogue catalogue_;
};

TEST_F(OnlineCopyTest, TakesWhatIsStillInTheLogAndIsOneFile) {
    ASSERT_TRUE(HasPendingLog(catalogue_.Path()));
    const std::size_t before = FilesInFolder();
    double last = 0.0;
    int reports = 0;
    Copy([&](double share) {
        EXPECT_GE(share, last);
        last = share;
        ++reports;
    });
    EXPECT_EQ(last, 1.0);
    EXPECT_GT(reports, 3);
    EXPECT_EQ(FilesInFolder(), before + 1);
    ExpectCopyOfRows("804");
    EXPECT_EQ(FilesInFolder(), before + 1) << "reading a copy makes no files beside it";
}

TEST_F(OnlineCopyTest, IsOfTheMomentWhenItBegan) {
    bool isFirst = true;
    Copy([&](double) {
        if (isFirst) catalogue_.connection.ExecuteAction("DELETE FROM tblCode WHERE codeID > 10");
        isFirst = false;
        Insert(2);
    });
    ExpectCopyOfRows("804");
}

TEST_F(OnlineCopyTest, LeavesThisProgramItsLocks) {
    Copy();
    const ChildProcess other([&] {
        const DatabaseHandle database = OpenDatabase(catalogue_.Path(), OpenFlag::ReadWrite);
        if (ErrorNumberOf([&] { ScalarText(database.get(), "PRAGMA journal_mode = DELETE"); }) !=
            3050) {
            _exit(1);
        }
    });
}

TEST_F(OnlineCopyTest, LeavesNothingWhenItFails) {
    const std::size_t before = FilesInFolder();
    EXPECT_THROW(Copy([](double) { throw std::logic_error("enough"); }), std::logic_error);
    EXPECT_EQ(FilesInFolder(), before);

    EXPECT_EQ(ErrorNumberOf([&] {
                  CopyDatabase(catalogue_.Path(), catalogue_.folder.File("no/copy.mde"), nullptr);
              }),
              3051);
    EXPECT_EQ(FilesInFolder(), before);

    WriteBytes(Target(), "somebody's");
    EXPECT_EQ(ErrorNumberOf([&] { Copy(); }), 3051);
    EXPECT_EQ(ReadBytes(Target()), "somebody's");
}

TEST_F(OnlineCopyTest, LeavesNothingWhenTheDiskTakesNoMore) {
    const std::size_t before = FilesInFolder();
    const ChildProcess other([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1 << 20, 1 << 20};
        setrlimit(RLIMIT_FSIZE, &limit);
        const int error = ErrorNumberOf([&] { Copy(); });
        if ((error != 3043 && error != 3183) || FilesInFolder() != before) _exit(1);
    });
}

TEST_F(OnlineCopyTest, InTheBackgroundIsWholeOrNotThere) {
    using namespace std::chrono_literals;
    {
        BackgroundCopy copy(catalogue_.Path(), Target());
        while (!copy.IsFinished(1ms))
            EXPECT_LE(copy.Share(), 1.0);
        copy.Check();
        EXPECT_EQ(copy.Share(), 1.0);
        ExpectCopyOfRows("804");
    }
    BackgroundCopy second(catalogue_.Path(), Target());
    EXPECT_EQ(ErrorNumberOf([&] { second.Check(); }), 3051) << "the first one is in its place";

    std::filesystem::remove(Target());
    Insert(20'000);
    const std::size_t before = FilesInFolder();
    { const BackgroundCopy dropped(catalogue_.Path(), Target()); }
    EXPECT_EQ(FilesInFolder(), before) << "given up";
}

TEST_F(OnlineCopyTest, IsNotMadeOfADamagedFile) {
    catalogue_.connection.Close();
    std::string bytes = ReadBytes(catalogue_.Path());
    bytes.replace(bytes.size() / 2, 4 * 4096, std::string(4 * 4096, '\xEE'));
    WriteBytes(catalogue_.Path(), bytes);
    EXPECT_EQ(ErrorNumberOf([&] { Copy(); }), 3049);
    EXPECT_FALSE(std::filesystem::exists(Target()));
    EXPECT_FALSE(std::filesystem::exists(Target() + ".part"));
    EXPECT_TRUE(ReadBytes(catalogue_.Path()) == bytes);
}

TEST_F(OnlineCopyTest, IsNotThereUntilItIsWhole) {
    for (const double share : {0.0, 0.5, 1.0}) {
        RunUntilItDies([&] {
            Copy([&](double done) {
                if (done >= share) DieHere();
            });
        });
        EXPECT_FALSE(std::filesystem::exists(Target()));
    }
    Copy();
    ExpectCopyOfRows("804");
    EXPECT_FALSE(std::filesystem::exists(Target() + ".part"));
}

}  // namespace
}  // namespace snippetarium::test
