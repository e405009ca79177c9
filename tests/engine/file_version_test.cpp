#include <gtest/gtest.h>

#include <filesystem>

#include "engine/database_file.h"
#include "tests/engine/test_catalogue.h"
#include "tests/killed_child.h"

namespace snippetarium::test {
namespace {

void SetVersion(const std::string& path, int version) {
    RunStatements(OpenDatabase(path, OpenFlag::ReadWrite).get(),
                  "PRAGMA user_version = " + std::to_string(version));
}

class FileVersionTest : public testing::Test {
  protected:
    int Open(AccessMode mode) {
        Connection& connection = catalogue_.connection;
        connection.SetMode(mode);
        connection.SetVersions({3, 5});
        return ErrorNumberOf([&] { connection.Open(); });
    }
    TestCatalogue catalogue_;
};

TEST_F(FileVersionTest, OutsideTheKnownOnesIsRefusedAndTheFileStays) {
    catalogue_.connection.Close();
    const struct {
        int version;
        int error;
    } cases[] = {{0, 3343}, {2, 3343}, {3, 0}, {5, 0}, {6, 3343}};
    for (const AccessMode mode : {AccessMode::Read, AccessMode::ReadWrite}) {
        for (const auto& test : cases) {
            SetVersion(catalogue_.Path(), test.version);
            const std::string before = ReadBytes(catalogue_.Path());
            EXPECT_EQ(Open(mode), test.error) << test.version;
            EXPECT_EQ(catalogue_.connection.IsOpen(), test.error == 0);
            if (test.error == 0) {
                EXPECT_EQ(catalogue_.connection.UserVersion(), test.version);
            }
            catalogue_.connection.Close();
            EXPECT_TRUE(ReadBytes(catalogue_.Path()) == before) << test.version;
        }
    }
}

TEST_F(FileVersionTest, OfAFileJustCompactedIsCheckedBeforeItGoesIntoLogMode) {
    catalogue_.connection.Close();
    RunStatements(OpenDatabase(catalogue_.Path(), OpenFlag::ReadWrite).get(),
                  "PRAGMA journal_mode = DELETE; PRAGMA user_version = 6");
    const std::string before = ReadBytes(catalogue_.Path());
    EXPECT_EQ(Open(AccessMode::ReadWrite), 3343);
    EXPECT_TRUE(ReadBytes(catalogue_.Path()) == before);
}

TEST_F(FileVersionTest, IsReadFromTheLogOfACrashWhichThenStays) {
    catalogue_.connection.Close();
    RunUntilItDies([&] {
        RunStatements(OpenDatabase(catalogue_.Path(), OpenFlag::ReadWrite).release(),
                      "PRAGMA user_version = 6");
        DieHere();
    });
    const std::string link = catalogue_.folder.File("link.mde");
    std::filesystem::create_symlink(catalogue_.Path(), link);
    const std::string before = ReadBytes(catalogue_.Path());
    const std::string log = ReadBytes(catalogue_.Path() + "-wal");
    for (const std::string& path : {catalogue_.Path(), link}) {
        ASSERT_TRUE(HasPendingLog(path));
        catalogue_.connection.SetConnectionString(ConnectionStringOf(path));
        for (const AccessMode mode : {AccessMode::Read, AccessMode::ReadWrite}) {
            EXPECT_EQ(Open(mode), 3343) << path;
            EXPECT_TRUE(ReadBytes(catalogue_.Path()) == before) << path;
            EXPECT_TRUE(ReadBytes(catalogue_.Path() + "-wal") == log) << path;
        }
    }
}

TEST_F(FileVersionTest, IsCheckedBeforeAChangeThatACrashLeftHalfMadeIsUndone) {
    catalogue_.connection.Close();
    const std::string path = catalogue_.Path();
    RunStatements(OpenDatabase(path, OpenFlag::ReadWrite).get(),
                  "PRAGMA journal_mode = DELETE; PRAGMA user_version = 6");
    RunUntilItDies([&] {
        // With so little memory the change goes to the disk before it is whole.
        RunStatements(
            OpenDatabase(path, OpenFlag::ReadWrite).release(),
            "PRAGMA cache_size = 2; BEGIN; UPDATE tblCode SET code = hex(zeroblob(90000))");
        DieHere();
    });
    const std::string before = ReadBytes(path);
    const std::string journal = ReadBytes(path + "-journal");
    ASSERT_FALSE(journal.empty());
    for (const AccessMode mode : {AccessMode::Read, AccessMode::ReadWrite}) {
        EXPECT_EQ(Open(mode), 3343);
        EXPECT_TRUE(ReadBytes(path) == before);
        EXPECT_TRUE(ReadBytes(path + "-journal") == journal);
    }
    catalogue_.connection.SetVersions({6, 6});
    catalogue_.connection.Open();
    EXPECT_EQ(catalogue_.Scalar("SELECT code FROM tblCode WHERE codeID = 1"), "Sub Draw()");
}

}  // namespace
}  // namespace snippetarium::test
