#include "engine/bulk_log.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <thread>

#include "tests/child_process.h"
#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

using namespace std::chrono_literals;

/// A catalogue that writes in bulk, and another program's handle on the same file.
class BulkLogTest : public ::testing::Test {
  protected:
    BulkLogTest() { catalogue_.connection.SetWriteMode(WriteMode::Bulk); }

    void Write(std::string_view name) {
        catalogue_.connection.ExecuteAction("INSERT INTO tblCode (codeName) VALUES ('" +
                                            std::string(name) + "')");
    }
    std::string NamesElsewhere() {
        return ScalarText(other_.get(),
                          "SELECT group_concat(codeName, ' ') FROM tblCode WHERE codeID > 3");
    }
    std::uintmax_t LogSize() const {
        return std::filesystem::file_size(catalogue_.Path() + "-wal");
    }

    TestCatalogue catalogue_;
    DatabaseHandle other_ = OpenDatabase(catalogue_.Path(), OpenFlag::ReadWrite);
};

TEST_F(BulkLogTest, ShowsEveryStatementToOtherProgramsAtOnce) {
    Write("a");
    EXPECT_EQ(NamesElsewhere(), "a");
    Write("b");
    EXPECT_EQ(NamesElsewhere(), "a b");
}

TEST_F(BulkLogTest, GoesOnAfterAnotherProgramHasWritten) {
    Write("a");
    RunStatements(other_.get(), "INSERT INTO tblCode (codeName) VALUES ('theirs')");
    Write("b");
    EXPECT_EQ(catalogue_.Scalar("SELECT count(*) FROM tblCode WHERE codeID > 3"), "3");
    RunStatements(other_.get(), "ALTER TABLE tblCode ADD COLUMN theirs");
    Write("c");
    EXPECT_EQ(NamesElsewhere(), "a theirs b c");
}

TEST_F(BulkLogTest, LosesOnlyTheStatementThatFails) {
    Write("a");
    EXPECT_NE(ErrorNumberOf([&] {
                  catalogue_.connection.ExecuteAction(
                      "INSERT INTO tblCode (codeID, codeName) VALUES (5, 'x'), (1, 'twice')");
              }),
              0);
    Write("b");
    EXPECT_EQ(NamesElsewhere(), "a b");
}

TEST_F(BulkLogTest, StandsInTheWayOfNoChangeOfTheSchema) {
    Write("a");
    catalogue_.connection.RunScript("CREATE TABLE tblMore(a); DROP TABLE tblDate;");
    Write("b");
    catalogue_.connection.ExecuteAction("ALTER TABLE tblMore ADD COLUMN b");
    Write("c");
    EXPECT_EQ(NamesElsewhere(), "a b c");
}

TEST_F(BulkLogTest, IsCopiedIntoTheFileWhenItIsLongAndThenUsedAgain) {
    const std::string insert = "INSERT INTO tblCode (codeName, code) VALUES ('long', '" +
                               std::string(4'000'000, 'x') + "')";
    std::uintmax_t longest = 0;
    for (int i = 0; i < 40; ++i) {
        catalogue_.connection.ExecuteAction(insert);
        longest = std::max(longest, LogSize());
    }
    EXPECT_LT(longest, 80'000'000U) << "160 MB were written";
    EXPECT_GT(std::filesystem::file_size(catalogue_.Path()), 120'000'000U);
    Write("b");
    EXPECT_EQ(catalogue_.Scalar("SELECT count(*) FROM tblCode WHERE codeID > 3"), "41");
}

TEST_F(BulkLogTest, GoesOnGrowingWhileAReaderNeedsItsStart) {
    const StatementHandle reading =
        PrepareStatement(other_.get(), "SELECT codeName FROM tblCode ORDER BY codeID");
    Write("a");
    ASSERT_EQ(sqlite3_step(reading.get()), SQLITE_ROW);
    const std::string insert = "INSERT INTO tblCode (codeName, code) VALUES ('long', '" +
                               std::string(4'000'000, 'x') + "')";
    for (int i = 0; i < 20; ++i)
        catalogue_.connection.ExecuteAction(insert);
    EXPECT_GT(LogSize(), 80'000'000U);
    int rows = 1;
    while (sqlite3_step(reading.get()) == SQLITE_ROW)
        ++rows;
    EXPECT_EQ(rows, 4) << "the reader sees the file as it was when it began";
    catalogue_.connection.SetWriteMode(WriteMode::EachStatement);
    EXPECT_EQ(LogSize(), 0U);
}

TEST_F(BulkLogTest, KeepsWhatIsWrittenWhereTheFileItselfTakesNothing) {
    const auto insert = [&](std::size_t size) {
        catalogue_.connection.ExecuteAction("INSERT INTO tblCode (code) VALUES ('" +
                                            std::string(size, 'x') + "')");
    };
    insert(4'000'000);
    catalogue_.connection.SetWriteMode(WriteMode::EachStatement);
    catalogue_.connection.Close();
    const ChildProcess writer([&] {
        catalogue_.connection.Open();
        catalogue_.connection.SetWriteMode(WriteMode::Bulk);
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{1 << 20, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &limit);
        Write("a");
        insert(100'000);                      // at the end of the file
        std::this_thread::sleep_for(3100ms);  // a copy of the log is due
        Write("b");
        std::string told;
        try {
            catalogue_.connection.SetWriteMode(WriteMode::EachStatement);
        } catch (const EngineError& error) {
            told = error.Description();
        }
        if (told.find("QRT_SN.mde-wal") == std::string::npos || LogSize() == 0) _exit(1);
        limit.rlim_cur = RLIM_INFINITY;
        setrlimit(RLIMIT_FSIZE, &limit);
        catalogue_.connection.Checkpoint();
        if (LogSize() != 0 || NamesElsewhere() != "a b") _exit(1);
    });
}

TEST_F(BulkLogTest, LeavesTheLogToTheLibraryWhenBulkWritingEnds) {
    Write("a");
    catalogue_.connection.SetWriteMode(WriteMode::EachStatement);
    const std::string insert =
        "INSERT INTO tblCode (code) VALUES ('" + std::string(1'000'000, 'x') + "')";
    for (int i = 0; i < 20; ++i)
        catalogue_.connection.ExecuteAction(insert);
    EXPECT_LT(LogSize(), 8'000'000U);
}

}  // namespace
}  // namespace snippetarium::test
