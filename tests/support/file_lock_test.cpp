#include "support/file_lock.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

#include "support/error.h"
#include "tests/child_process.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

class FileLockTest : public ::testing::Test {
  protected:
    std::string Path() const { return folder_.File("QRT_SN.lock"); }
    bool CanBeTaken() const { return FileLock::TryAcquire(Path()).has_value(); }
    TemporaryFolder folder_;
};

TEST_F(FileLockTest, IsHeldByOneAndItsFileGoesWithIt) {
    {
        std::optional<FileLock> lock = FileLock::TryAcquire(Path());
        ASSERT_TRUE(lock);
        EXPECT_FALSE(CanBeTaken());
        const FileLock moved = std::move(*lock);
        lock.reset();
        EXPECT_FALSE(CanBeTaken()) << "a lock that was moved is still held";
    }
    EXPECT_FALSE(std::filesystem::exists(Path()));
    EXPECT_TRUE(CanBeTaken());
}

TEST_F(FileLockTest, OfAnotherProgramEndsWhenThatIsKilled) {
    ChildProcess other([&] { new FileLock(std::move(*FileLock::TryAcquire(Path()))); });
    EXPECT_FALSE(CanBeTaken());
    other.Kill();
    EXPECT_TRUE(std::filesystem::exists(Path())) << "nobody was left to remove it";
    EXPECT_TRUE(CanBeTaken());
}

TEST_F(FileLockTest, WhoseFileSomebodyRemovedLeavesTheFileOfTheNext) {
    std::optional<FileLock> first = FileLock::TryAcquire(Path());
    std::filesystem::remove(Path());
    const std::optional<FileLock> second = FileLock::TryAcquire(Path());
    ASSERT_TRUE(second);
    first.reset();
    EXPECT_TRUE(std::filesystem::exists(Path()));
}

TEST_F(FileLockTest, ThatCannotBeMadeSaysSo) {
    try {
        FileLock::TryAcquire(folder_.File("no/such/folder.lock"));
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), error_number::kPermissionDenied);
        EXPECT_NE(error.Description().find("folder.lock"), std::string::npos);
    }
}

}  // namespace
}  // namespace snippetarium::test
