#include "engine/compaction.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <thread>

#include "engine/database_file.h"
#include "tests/child_process.h"
#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

class CompactionTest : public testing::Test {
  protected:
    CompactionTest() {
        Connection& connection = catalogue_.connection;
        const std::string text(3000, 'x');
        for (int i = 0; i < 300; ++i) {
            connection.ExecuteAction("INSERT INTO tblCode (codeName, code) VALUES ('filler', '" +
                                     text + "')");
        }
        connection.ExecuteAction("DELETE FROM tblCode WHERE codeName = 'filler' AND codeID < 290");
        connection.Close();
    }
    std::string Source() const { return catalogue_.Path(); }
    std::string Target() const { return catalogue_.folder.File("Q1R1T_SN1.mde"); }
    std::string Copied() { return ReadBytes(Source()); }

    void Compact(const OnProgress& onProgress = nullptr) {
        Compaction compaction(ConnectionStringOf(Source()));
        compaction.WriteCopy(ConnectionStringOf(Target()), onProgress);
        compaction.ReplaceWithCopy();
    }
    /// The catalogue opens, and holds what it held.
    void ExpectWhole() {
        catalogue_.connection.Open();
        EXPECT_EQ(catalogue_.Scalar("SELECT count(*) FROM tblCode"), "17");
        EXPECT_EQ(catalogue_.Scalar("SELECT max(codeID) FROM tblCode"), "303");
        EXPECT_EQ(catalogue_.Scalar("qryAllCodes"), "1");
        catalogue_.connection.Close();
    }
    TestCatalogue catalogue_;
};

TEST_F(CompactionTest, ClosesTheGapsAndLosesNothing) {
    const auto before = std::filesystem::file_size(Source());
    double last = 0.0;
    Compact([&](double share) {
        EXPECT_GE(share, last);
        last = share;
    });
    EXPECT_EQ(last, 1.0);
    EXPECT_LT(std::filesystem::file_size(Source()), before / 4);
    EXPECT_FALSE(std::filesystem::exists(Target()));
    ExpectWhole();
}

TEST_F(CompactionTest, NeverGivesAnIdTwice) {
    catalogue_.connection.Open();
    catalogue_.connection.ExecuteAction("DELETE FROM tblCode WHERE codeID > 3");
    catalogue_.connection.Close();
    Compact();
    catalogue_.connection.Open();
    catalogue_.connection.ExecuteAction("INSERT INTO tblCode (codeName) VALUES ('new')");
    EXPECT_EQ(catalogue_.Scalar("SELECT max(codeID) FROM tblCode"), "304");
}

TEST_F(CompactionTest, IsRefusedWhileAnotherProgramHasTheFileOpenAndIdle) {
    const std::string before = Copied();
    const std::function<void()> others[] = {
        [&] { open(Source().c_str(), 0); },
        [&] { OpenDatabase(Source(), OpenFlag::Read).release(); },
        [&] {
            ScalarText(OpenDatabase(Source(), OpenFlag::ReadWrite).release(),
                       "SELECT count(*) FROM tblCode");
        },
    };
    for (const auto& other : others) {
        const ChildProcess child(other);
        EXPECT_EQ(ErrorNumberOf([&] { Compact(); }), 3356);
        EXPECT_TRUE(Copied() == before);
        EXPECT_FALSE(std::filesystem::exists(Target()));
    }
    Compact();
    ExpectWhole();
}

TEST_F(CompactionTest, KeepsOthersOutUntilItIsDone) {
    Compaction compaction(ConnectionStringOf(Source()));
    compaction.WriteCopy(ConnectionStringOf(Target()), nullptr);
    bool wasRefused = false;
    {
        ChildProcess other([&] {
            Connection connection(CatalogueProviders());
            connection.SetConnectionString(ConnectionStringOf(Source()));
            wasRefused = ErrorNumberOf([&] { connection.Open(); }) == 3050;
            if (!wasRefused) _exit(1);  // the parent then sees that the child failed
        });
    }
    compaction.ReplaceWithCopy();
    ExpectWhole();
}

TEST_F(CompactionTest, KilledBetweenAnyTwoStepsLeavesAWholeCatalogue) {
    for (int steps = 1; steps <= 3; ++steps) {
        ChildProcess killed([&] {
            auto* compaction = new Compaction(ConnectionStringOf(Source()));
            if (steps > 1) compaction->WriteCopy(ConnectionStringOf(Target()), nullptr);
            if (steps > 2) compaction->ReplaceWithCopy();
        });
        killed.Kill();
        ExpectWhole();
        std::filesystem::remove(Target());
    }
}

TEST_F(CompactionTest, LeavesTheSourceWhenTheCopyCannotBeWritten) {
    WriteBytes(Target(), "in the way");
    EXPECT_NE(ErrorNumberOf([&] { Compact(); }), 0);
    ExpectWhole();
    EXPECT_NE(ErrorNumberOf([&] {
                  Compaction(ConnectionStringOf(Source()))
                      .WriteCopy(ConnectionStringOf(catalogue_.folder.File("no/folder.mde")),
                                 nullptr);
              }),
              0);
    ExpectWhole();
}

TEST_F(CompactionTest, GivesUpWhereTheReportThrowsAndCanBeginAnew) {
    catalogue_.connection.Open();
    catalogue_.connection.RunScript(
        "INSERT INTO tblDate WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE "
        "i < 60000) SELECT i, NULL FROM n");
    catalogue_.connection.Close();
    Compaction compaction(ConnectionStringOf(Source()));
    for (const double last : {0.0, 1.0}) {
        const auto report = [&](double share) {
            if (share >= last) throw std::runtime_error("The window is gone.");
        };
        EXPECT_THROW(compaction.WriteCopy(ConnectionStringOf(Target()), report),
                     std::runtime_error);
        EXPECT_FALSE(std::filesystem::exists(Target())) << last;
    }
    compaction.WriteCopy(ConnectionStringOf(Target()), nullptr);
    compaction.ReplaceWithCopy();
    ExpectWhole();
}

TEST_F(CompactionTest, RefusesADamagedSourceAndLeavesIt) {
    std::string bytes = Copied();
    bytes.replace(bytes.size() - 8 * 4096, 8 * 4096, std::string(8 * 4096, '\xEE'));
    WriteBytes(Source(), bytes);
    EXPECT_NE(ErrorNumberOf([&] { Compact(); }), 0);
    EXPECT_EQ(ReadBytes(Source()).size(), bytes.size());
    EXPECT_FALSE(std::filesystem::exists(Target()));
}

TEST(DatabaseFile, KnowsWhetherAnybodyHasItOpen) {
    TestCatalogue catalogue;
    EXPECT_TRUE(IsFileOpen(catalogue.Path()));
    catalogue.connection.Close();
    EXPECT_FALSE(IsFileOpen(catalogue.Path()));
}

TEST(DatabaseFile, CanBeAskedAboutWhileItIsBeingOpened) {
    const TemporaryFolder folder;
    const std::string path = folder.File("QRT_SN.mde");
    WriteBytes(path, "x");
    std::atomic<bool> isOver = false;
    std::thread opener([&] {
        while (!isOver)
            ReadBytes(path);
    });
    // The system tells whoever asks of each opening by a signal, which must not end this program.
    bool wasOpen = false;
    bool wasClosed = false;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    while (std::chrono::steady_clock::now() < end) {
        (IsFileOpen(path) ? wasOpen : wasClosed) = true;
    }
    isOver = true;
    opener.join();
    EXPECT_TRUE(wasOpen && wasClosed);
}

}  // namespace
}  // namespace snippetarium::test
