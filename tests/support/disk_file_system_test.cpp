#include "support/disk_file_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>

#include "support/error.h"
#include "tests/temporary_folder.h"

// What only the real disk does. Tests may run as root, whom no permission stops, so failures are
// provoked by other means: a limit on the size of files, and the device that is always full.

namespace snippetarium {
namespace {

namespace fs = std::filesystem;

class DiskFileSystemTest : public ::testing::Test {
  protected:
    std::string Path(std::string_view name) const { return folder_.File(name); }

    /// The names in the folder, hidden ones too, sorted.
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    mode_t PermissionsOf(const std::string& path) const {
        struct stat status = {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    template <typename Action>
    std::int32_t ErrorNumberOf(Action action) {
        try {
            action();
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    DiskFileSystem files_;

  private:
    test::TemporaryFolder folder_;
};

/// While it lives, no file of this process grows beyond a size; a write is cut short there and the
/// next one fails, as on a disk that fills up.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &oldLimit_);
        rlimit limit = oldLimit_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &oldLimit_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit oldLimit_{};
    void (*oldHandler_)(int);
};

TEST_F(DiskFileSystemTest, AWriteThatRunsOutOfRoomLeavesTheOldFileAndNoTrace) {
    files_.WriteFile(Path("x.c"), "old");
    files_.WriteFile(Path("big"), std::string(8000, 'b'));
    {
        const FileSizeLimit limit(5000);
        const auto write = [&] { files_.WriteFile(Path("x.c"), std::string(8000, 'n')); };
        EXPECT_EQ(ErrorNumberOf(write), error_number::kDiskFull);
        const auto create = [&] { files_.WriteFile(Path("new.c"), std::string(8000, 'n')); };
        EXPECT_EQ(ErrorNumberOf(create), error_number::kDiskFull);
        const auto copy = [&] { files_.CopyFile(Path("big"), Path("x.c")); };
        EXPECT_EQ(ErrorNumberOf(copy), error_number::kDiskFull);
        const auto append = [&] { files_.AppendToFile(Path("x.c"), std::string(8000, 'n')); };
        EXPECT_EQ(ErrorNumberOf(append), error_number::kDiskFull);
        const auto start = [&] { files_.AppendToFile(Path("new.c"), std::string(8000, 'n')); };
        EXPECT_EQ(ErrorNumberOf(start), error_number::kDiskFull);
    }
    EXPECT_EQ(files_.ReadFile(Path("x.c")), "old");
    EXPECT_EQ(Names(), (std::vector<std::string>{"big", "x.c"}));
}

TEST_F(DiskFileSystemTest, AFileReplacedKeepsItsPermissions) {
    files_.WriteFile(Path("x.sh"), "old");
    for (const mode_t mode : {mode_t{0755}, mode_t{0600}, mode_t{02770}}) {
        ASSERT_EQ(chmod(Path("x.sh").c_str(), mode), 0);
        files_.WriteFile(Path("x.sh"), "new");
        EXPECT_EQ(PermissionsOf(Path("x.sh")), mode);
    }
}

TEST_F(DiskFileSystemTest, ANewFileGetsThePermissionsOfTheUsersMask) {
    const mode_t oldMask = umask(0027);
    files_.WriteFile(Path("x.c"), "");
    ASSERT_EQ(chmod(Path("x.c").c_str(), 0444), 0);
    files_.CopyFile(Path("x.c"), Path("copy.c"));
    files_.AppendToFile(Path("appended.c"), "");
    umask(oldMask);
    EXPECT_EQ(PermissionsOf(Path("copy.c")), mode_t{0640});
    EXPECT_EQ(PermissionsOf(Path("appended.c")), mode_t{0640});
}

TEST_F(DiskFileSystemTest, WritingToALinkReplacesTheFileItLeadsTo) {
    files_.MakeFolders(Path("real"));
    files_.WriteFile(Path("real/x.c"), "old");
    fs::create_symlink("real/x.c", Path("near"));
    fs::create_symlink(Path("near"), Path("far"));
    fs::create_symlink("real/new.c", Path("dangling"));
    files_.WriteFile(Path("far"), "new");
    files_.WriteFile(Path("dangling"), "made");
    EXPECT_TRUE(fs::is_symlink(Path("far")) && fs::is_symlink(Path("near")));
    EXPECT_FALSE(fs::is_symlink(Path("real/x.c")));
    EXPECT_EQ(files_.ReadFile(Path("real/x.c")), "new");
    EXPECT_EQ(files_.ReadFile(Path("real/new.c")), "made");

    files_.DeleteFile(Path("far"));
    EXPECT_TRUE(files_.FileExists(Path("near")));
}

TEST_F(DiskFileSystemTest, LinksInACircleAreReported) {
    fs::create_symlink("b", Path("a"));
    fs::create_symlink("a", Path("b"));
    EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(Path("a"), "x"); }), error_number::kBadFileName);
    EXPECT_EQ(ErrorNumberOf([&] { files_.ReadFile(Path("a")); }), error_number::kBadFileName);
}

TEST_F(DiskFileSystemTest, TheRealPathIsWhereAWriteArrives) {
    fs::create_directories(Path("home/deep"));
    fs::create_directory(Path("other"));
    fs::create_symlink("home/deep", Path("short"));
    fs::create_symlink(Path("other"), Path("home/out"));
    fs::create_symlink("../other/new.c", Path("home/dangling"));
    fs::create_symlink("gone/../other", Path("through-nothing"));
    const std::string base = files_.RealPath(Path(""));
    const struct {
        std::string_view path;
        std::string_view expected;
    } cases[] = {
        {"home", "home"},
        {"home\\deep\\", "home/deep"},
        {"not/there/yet.c", "not/there/yet.c"},
        {"./home//./deep/../x.c", "home/x.c"},
        {"short/x.c", "home/deep/x.c"},
        {"short/../x.c", "home/x.c"},
        {"home/out/x.c", "other/x.c"},
        {"home/dangling", "other/new.c"},
        {"through-nothing/x.c", "other/x.c"},
    };
    for (const auto& [path, expected] : cases) {
        EXPECT_EQ(files_.RealPath(Path(path)), base + "/" + std::string(expected)) << path;
    }
    EXPECT_EQ(files_.RealPath("/.."), "/");
    EXPECT_EQ(files_.RealPath("x.c"), fs::current_path() / "x.c");

    fs::create_symlink("circle", Path("circle"));
    EXPECT_EQ(ErrorNumberOf([&] { files_.RealPath(Path("circle/x.c")); }),
              error_number::kBadFileName);
    EXPECT_EQ(ErrorNumberOf([&] { files_.RealPath(""); }), error_number::kBadFileName);
}

TEST_F(DiskFileSystemTest, APipeIsNeverReplaced) {
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(Path("pipe"), "x"); }),
              error_number::kFileExists);
    EXPECT_TRUE(fs::is_fifo(Path("pipe")));
    EXPECT_FALSE(files_.FileExists(Path("pipe")));
}

TEST_F(DiskFileSystemTest, TheLongestNamesCanBeWritten) {
    const std::string name(255, 'n');
    files_.WriteFile(Path(name), "x");
    EXPECT_EQ(files_.ReadFile(Path(name)), "x");
    EXPECT_EQ(ErrorNumberOf([&] { files_.WriteFile(Path(name + "n"), "x"); }),
              error_number::kBadFileName);
}

TEST_F(DiskFileSystemTest, ALeftoverOfARunThatWasKilledIsInNobodysWay) {
    const std::string leftover = ".snippetarium-" + std::to_string(getpid()) + "-0";
    files_.AppendToFile(Path(leftover), "half");
    files_.WriteFile(Path("x.c"), "x");
    EXPECT_EQ(files_.ReadFile(Path("x.c")), "x");
    EXPECT_EQ(files_.ReadFile(Path(leftover)), "half");
}

TEST_F(DiskFileSystemTest, LargeFilesAreCopiedAndReadWhole) {
    std::string bytes(std::size_t{3} << 20U, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 31 + i / 999);
    files_.WriteFile(Path("from"), bytes);
    files_.CopyFile(Path("from"), Path("to"));
    EXPECT_EQ(files_.ReadFile(Path("to")), bytes);
    // The system does not know the length of this one beforehand.
    EXPECT_TRUE(files_.ReadFile("/proc/self/status").starts_with("Name:"));
}

TEST_F(DiskFileSystemTest, ModificationTimesAreCalendarTimes) {
    const timespec times[] = {{0, 0}, {1'000'000'000, 500'000'000}};
    files_.WriteFile(Path("x.c"), "");
    ASSERT_EQ(utimensat(AT_FDCWD, Path("x.c").c_str(), times, 0), 0);
    const auto expected =
        std::chrono::system_clock::from_time_t(1'000'000'000) + std::chrono::milliseconds(500);
    EXPECT_EQ(files_.ModificationTime(Path("x.c")), expected);
}

TEST_F(DiskFileSystemTest, ListsNamesInTheirOrderAndApartThoseThatCannotBeListed) {
    const std::vector<std::string> good = {"alpha.c", "Alpine.c", "beta.c", "Zeta.c", "\u00E4.c"};
    for (const char* name :
         {"Zeta.c", "\u00E4.c", "alpha.c", "beta.c", "Alpine.c", "back\\slash.c", "latin\xE9.c"}) {
        fs::path path = Path("");
        FILE* file = std::fopen((path / name).c_str(), "w");
        ASSERT_NE(file, nullptr);
        std::fclose(file);
    }
    fs::create_directory(Path("fold\\er"));
    fs::create_symlink("nowhere", Path("dead"));
    const FolderListing listing = files_.ListFolder(Path(""));
    EXPECT_EQ(listing.files, good);
    EXPECT_TRUE(listing.subfolders.empty());

    std::map<std::string, UnlistedReason> reasons;
    for (const UnlistedName& name : listing.unlisted)
        reasons[name.name] = name.reason;
    const std::map<std::string, UnlistedReason> expected{
        {"back\\slash.c", UnlistedReason::Backslash},
        {"fold\\er", UnlistedReason::Backslash},
        {"latin\\xE9.c", UnlistedReason::NotUtf8},
        {"dead", UnlistedReason::DeadLink},
    };
    EXPECT_EQ(reasons, expected);
    for (const UnlistedName& name : listing.unlisted) {
        EXPECT_TRUE(DescribeUnlisted(name).starts_with("'" + name.name + "' was left out: "));
    }
}

/// Counts the folders below one, as every walk over subfolders does.
std::size_t CountFolders(const DiskFileSystem& files, const std::string& folder, int depth = 0) {
    if (depth > 10) throw std::runtime_error("the walk does not end at " + folder);
    std::size_t count = 0;
    for (const std::string& name : files.ListFolder(folder).subfolders) {
        count += 1 + CountFolders(files, folder + "\\" + name, depth + 1);
    }
    return count;
}

TEST_F(DiskFileSystemTest, AWalkThroughLinkedFoldersEnds) {
    files_.MakeFolders(Path("one/inner"));
    files_.MakeFolders(Path("two"));
    fs::create_directory_symlink("../two", Path("one/toTwo"));
    fs::create_directory_symlink("../one", Path("two/toOne"));
    fs::create_directory_symlink("..", Path("one/up"));
    fs::create_directory_symlink("inner", Path("one/beside"));
    // one: inner, beside, toTwo with nothing new in it; two: toOne with inner and beside.
    EXPECT_EQ(CountFolders(files_, Path("one")), 3U);
    EXPECT_EQ(CountFolders(files_, Path("two")), 3U);
    EXPECT_EQ(CountFolders(files_, Path("")), 8U);
}

}  // namespace
}  // namespace snippetarium
