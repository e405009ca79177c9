#include "support/file_lock.h"

#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "support/error.h"
#include "tests/child_process.h"
#include "tests/temporary_folder.h"

namespace {

/// What flock says in place of the system, as on a disk that knows no locks. Negative: the system.
int& FlockError() {
    static int error = -1;
    return error;
}

}  // namespace

/// Stands before the system's own.
extern "C" int flock(int file, int operation) noexcept {
    if (FlockError() < 0) return static_cast<int>(syscall(SYS_flock, file, operation));
    errno = FlockError();
    return -1;
}

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

TEST_F(FileLockTest, IsNotTakenForHeldWhereTheSystemLocksNothing) {
    const struct {
        int error;
        bool isHeld;
    } cases[] = {{EWOULDBLOCK, true}, {EOPNOTSUPP, false}, {ENOLCK, false}, {EINVAL, false}};
    for (const auto& [error, isHeld] : cases) {
        FlockError() = error;
        std::string told;
        try {
            EXPECT_FALSE(FileLock::TryAcquire(Path()));
        } catch (const Error& refusal) {
            told = refusal.Description();
        }
        FlockError() = -1;
        EXPECT_EQ(told.empty(), isHeld) << error;
        EXPECT_EQ(told.find(Path()) == std::string::npos, isHeld);
    }
    EXPECT_TRUE(CanBeTaken());
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
