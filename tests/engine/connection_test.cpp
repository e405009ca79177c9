#include "engine/connection.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "engine/connection_string.h"
#include "engine/sqlite_handle.h"
#include "tests/child_process.h"
#include "tests/engine/test_catalogue.h"

namespace snippetarium::test {
namespace {

TEST(ConnectionString, IsTakenApart) {
    const struct {
        std::string_view text;
        std::string_view provider;
        std::string_view dataSource;
    } cases[] = {
        {"Provider=P;Data Source=/a/b", "P", "/a/b"},
        {" data source = /a ; PROVIDER = P ;", "P", "/a"},
        {"Provider=P;Data Source=/odd;folder=x/QRT_SN.mde", "P", "/odd;folder=x/QRT_SN.mde"},
        {"Provider=P;Data Source=C:\\", "P", "C:\\"},
    };
    for (const auto& test : cases) {
        const ConnectionStringParts parts = ParseConnectionString(test.text);
        EXPECT_EQ(parts.provider, test.provider) << test.text;
        EXPECT_EQ(parts.dataSource, test.dataSource) << test.text;
    }
}

TEST(ConnectionString, IsRefusedWhereAPartIsMissingUnknownOrTwice) {
    for (const std::string_view text :
         {"", "Provider=P", "Data Source=/a", "Provider=;Data Source=/a",
          "User=x;Provider=P;Data Source=/a", "Provider=P;Provider=Q;Data Source=/a"}) {
        EXPECT_EQ(ErrorNumberOf([&] { ParseConnectionString(text); }), 3061) << text;
    }
}

int ErrorNumberOfOpening(const std::string& path, AccessMode mode = AccessMode::ReadWrite) {
    Connection connection(CatalogueProviders());
    connection.SetConnectionString(ConnectionStringOf(path));
    connection.SetMode(mode);
    const int number = ErrorNumberOf([&] { connection.Open(); });
    EXPECT_EQ(connection.IsOpen(), number == 0);
    return number;
}

TEST(Connection, NeedsItsProvider) {
    const TestCatalogue catalogue;
    Connection connection{ProviderRegistry()};
    connection.SetConnectionString(ConnectionStringOf(catalogue.Path()));
    EXPECT_EQ(ErrorNumberOf([&] { connection.Open(); }), 3706);
}

TEST(Connection, IsOpenedOnceAndUsedOnlyWhileOpen) {
    TestCatalogue catalogue;
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.Open(); }), 3705);
    catalogue.connection.Close();
    catalogue.connection.Close();
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.Execute("SELECT 1"); }), 3704);
    Command command;
    EXPECT_EQ(ErrorNumberOf([&] { command.Execute(); }), 3704);
}

TEST(Connection, AtRestIsOneFile) {
    TestCatalogue catalogue;
    catalogue.connection.ExecuteAction("DELETE FROM tblCode WHERE codeID = 1");
    catalogue.connection.Close();
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(catalogue.folder.Path())) {
        EXPECT_EQ(entry.path().filename(), "QRT_SN.mde");
        ++files;
    }
    EXPECT_EQ(files, 1U);
}

/// Bytes of a good catalogue, for damaging.
std::string GoodBytes() {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    return ReadBytes(catalogue.Path());
}

std::string WithBytes(std::string bytes, std::size_t at, std::string_view replacement) {
    return bytes.replace(at, replacement.size(), replacement);
}

TEST(Connection, RefusesABadFileAndLeavesItByteForByte) {
    const std::string good = GoodBytes();
    const struct {
        std::string_view name;
        std::string bytes;
        int number;
    } cases[] = {
        {"empty", "", 3343},
        {"shorter than a header", good.substr(0, 60), 3343},
        {"a text", std::string(5000, 'x'), 3343},
        {"half of it missing", good.substr(0, good.size() / 2), 3049},
        {"its last byte missing", good.substr(0, good.size() - 1), 3049},
        {"another program's database", WithBytes(good, 68, "ABCD"), 3343},
        {"no such page size", WithBytes(good, 16, "\x03\x03"), 3343},
        {"a destroyed list of tables", WithBytes(good, 100, std::string(200, '\xEE')), 3049},
    };
    const TemporaryFolder folder;
    for (const auto& test : cases) {
        const std::string path = folder.File("QRT_SN.mde");
        WriteBytes(path, test.bytes);
        EXPECT_EQ(ErrorNumberOfOpening(path), test.number) << test.name;
        EXPECT_EQ(ErrorNumberOfOpening(path, AccessMode::Read), test.number) << test.name;
        EXPECT_TRUE(ReadBytes(path) == test.bytes) << test.name;
        EXPECT_FALSE(std::filesystem::exists(path + "-wal")) << test.name;
    }
}

TEST(Connection, RefusesWhatIsNotThereOrNoFile) {
    const TemporaryFolder folder;
    EXPECT_EQ(ErrorNumberOfOpening(folder.File("none.mde")), 3024);
    EXPECT_EQ(ErrorNumberOfOpening(folder.File("no/such/folder.mde")), 3024);
    EXPECT_EQ(ErrorNumberOfOpening(folder.Path()), 3051);
    EXPECT_FALSE(std::filesystem::exists(folder.File("none.mde"))) << "never a silent new file";
}

TEST(Connection, OpensAFileThatIsMarkedReadOnlyForReadingOnly) {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    const std::string before = ReadBytes(catalogue.Path());
    ASSERT_EQ(chmod(catalogue.Path().c_str(), 0444), 0);
    EXPECT_EQ(ErrorNumberOfOpening(catalogue.Path()), 3027);

    catalogue.connection.SetMode(AccessMode::Read);
    catalogue.connection.Open();
    EXPECT_EQ(catalogue.Scalar("SELECT codeName FROM tblCode WHERE codeID = 2"), "Fill");
    EXPECT_EQ(ErrorNumberOf([&] { catalogue.connection.ExecuteAction("DELETE FROM tblCode"); }),
              3027);
    catalogue.connection.Close();
    EXPECT_TRUE(ReadBytes(catalogue.Path()) == before);
}

TEST(Connection, RefusesAFileThatAnotherProgramHasLocked) {
    TestCatalogue catalogue;
    catalogue.connection.Close();
    const std::string before = ReadBytes(catalogue.Path());
    const ChildProcess other([&] {
        // Never closed: it lives as long as the child.
        auto* database = OpenDatabase(catalogue.Path(), OpenFlag::ReadWrite).release();
        RunStatements(database, "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    });
    EXPECT_EQ(ErrorNumberOfOpening(catalogue.Path()), 3050);
    EXPECT_TRUE(ReadBytes(catalogue.Path()) == before);
}

TEST(Connection, IsNeverMadeOverSomethingThatIsThere) {
    const TemporaryFolder folder;
    const std::string link = folder.File("link.mde");
    std::filesystem::create_symlink(folder.File("nowhere.mde"), link);
    EXPECT_EQ(ErrorNumberOf([&] { CreateDatabase(link, kTestSchema); }), 3051);
    EXPECT_FALSE(std::filesystem::exists(folder.File("nowhere.mde")));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_NE(ErrorNumberOf([&] { CreateDatabase(folder.File("new.mde"), "CREATE"); }), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.File("new.mde")));
}

TEST(Connection, EmptiesItsLogWhenBulkWritingEndsHoweverItEnds) {
    TestCatalogue catalogue;
    const auto logSize = [&] { return std::filesystem::file_size(catalogue.Path() + "-wal"); };
    const std::string insert = "INSERT INTO tblCode (codeName) VALUES ('bulk')";
    {
        BulkWriting bulk(catalogue.connection);
        catalogue.connection.ExecuteAction(insert);
        EXPECT_GT(logSize(), 0U);
        bulk.Finish();
        EXPECT_EQ(logSize(), 0U);
    }
    {
        const BulkWriting bulk(catalogue.connection);
        catalogue.connection.ExecuteAction(insert);
    }
    EXPECT_EQ(logSize(), 0U);
}

TEST(Connection, GoesOnWritingInBulkWhenAJobWithinAJobEnds) {
    TestCatalogue catalogue;
    const auto logSize = [&] { return std::filesystem::file_size(catalogue.Path() + "-wal"); };
    const auto insert = [&] {
        catalogue.connection.ExecuteAction("INSERT INTO tblCode (codeName) VALUES ('bulk')");
    };
    BulkWriting outer(catalogue.connection);
    insert();
    {
        BulkWriting inner(catalogue.connection);
        insert();
        inner.Finish();
    }
    { const BulkWriting fails(catalogue.connection); }
    EXPECT_EQ(catalogue.connection.GetWriteMode(), WriteMode::Bulk);
    EXPECT_GT(logSize(), 0U) << "nothing was made safe before the outer job's end";
    outer.Finish();
    EXPECT_EQ(catalogue.connection.GetWriteMode(), WriteMode::EachStatement);
    EXPECT_EQ(logSize(), 0U);
}

TEST(Connection, ReadsOnThroughACursorWhateverElseIsRead) {
    constexpr std::string_view kCodes = "SELECT codeID FROM tblCode ORDER BY codeID";
    TestCatalogue catalogue;
    Connection& connection = catalogue.connection;
    const auto row = connection.OpenCursor(kCodes);
    ASSERT_TRUE(row->Next());
    for (int i = 0; i < 1000; ++i) {
        const auto other = connection.OpenCursor("SELECT max(appID) + " + std::to_string(i) +
                                                 " FROM tblApplication");
        ASSERT_TRUE(other->Next());
        ASSERT_EQ(other->Number(0), 3 + i);
    }
    EXPECT_NE(ErrorNumberOf([&] { connection.OpenCursor(kCodes)->Next(); }), 0);
    for (const int codeID : {2, 3}) {
        ASSERT_TRUE(row->Next());
        EXPECT_EQ(row->Number(0), codeID);
    }
    EXPECT_FALSE(row->Next());
}

TEST(Connection, KilledAtAnyMomentKeepsEveryFinishedStatement) {
    for (const WriteMode mode : {WriteMode::EachStatement, WriteMode::Bulk}) {
        TestCatalogue catalogue;
        catalogue.connection.Close();
        ChildProcess writer([&] {
            catalogue.connection.Open();
            catalogue.connection.SetWriteMode(mode);
            for (int i = 0; i < 50; ++i) {
                catalogue.connection.ExecuteAction(
                    "INSERT INTO tblCode (codeName) VALUES ('killed')");
            }
        });
        writer.Kill();
        catalogue.connection.Open();
        EXPECT_EQ(catalogue.Scalar("SELECT count(*) FROM tblCode WHERE codeName = 'killed'"), "50");
    }
}

}  // namespace
}  // namespace snippetarium::test
