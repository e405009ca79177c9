#include "engine/joined_log.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/temporary_folder.h"

namespace snippetarium::test {
namespace {

constexpr std::size_t kHeader = 24;
constexpr std::size_t kPage = 512;
constexpr sqlite3_int64 kFirstFrame = 32;

/// A log as the library would open it. It takes the rights of its database's file.
class OpenLog {
  public:
    explicit OpenLog(const std::string& path) {
        std::ofstream(path.substr(0, path.rfind("-wal")));
        sqlite3_vfs* const layer = sqlite3_vfs_find(JoinedLogLayer());
        memory_.resize(static_cast<std::size_t>(layer->szOsFile));
        constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_WAL;
        EXPECT_EQ(layer->xOpen(layer, path.c_str(), File(), kFlags, nullptr), SQLITE_OK);
    }
    ~OpenLog() { File()->pMethods->xClose(File()); }
    OpenLog(const OpenLog&) = delete;
    OpenLog& operator=(const OpenLog&) = delete;

    int TryWrite(const std::string& bytes, sqlite3_int64 offset) {
        return File()->pMethods->xWrite(File(), bytes.data(), static_cast<int>(bytes.size()),
                                        offset);
    }
    void Write(const std::string& bytes, sqlite3_int64 offset) {
        EXPECT_EQ(TryWrite(bytes, offset), SQLITE_OK);
    }
    int TrySync() { return File()->pMethods->xSync(File(), SQLITE_SYNC_NORMAL); }
    void Truncate(sqlite3_int64 size) {
        EXPECT_EQ(File()->pMethods->xTruncate(File(), size), SQLITE_OK);
    }
    std::string Read(std::size_t size, sqlite3_int64 offset) {
        std::string bytes(size, '\0');
        EXPECT_EQ(File()->pMethods->xRead(File(), bytes.data(), static_cast<int>(size), offset),
                  SQLITE_OK);
        return bytes;
    }

  private:
    sqlite3_file* File() { return reinterpret_cast<sqlite3_file*>(memory_.data()); }

    std::vector<std::max_align_t> memory_;
};

std::string BytesOnDisk(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string FrameHeader(bool isCommit, char filler) {
    std::string header(kHeader, filler);
    header.replace(4, 4, isCommit ? std::string("\0\0\1\0", 4) : std::string(4, '\0'));
    return header;
}

TEST(JoinedLog, IsOnTheDiskWithEveryCommitAndNotBefore) {
    const TemporaryFolder folder;
    const std::string path = folder.File("log-wal");
    OpenLog log(path);
    log.Write(std::string(kFirstFrame, 'h'), 0);
    sqlite3_int64 end = kFirstFrame;
    for (const bool isCommit : {false, false, true}) {
        EXPECT_EQ(BytesOnDisk(path).size(), std::size_t{kFirstFrame});
        log.Write(FrameHeader(isCommit, 'f'), end);
        log.Write(std::string(kPage, 'p'), end + static_cast<sqlite3_int64>(kHeader));
        end += static_cast<sqlite3_int64>(kHeader + kPage);
    }
    EXPECT_EQ(BytesOnDisk(path).size(), static_cast<std::size_t>(end));
}

/// What the log should be, beside the one that is written.
class ComparedLog {
  public:
    explicit ComparedLog(const std::string& path) : path_(path), log_(path) {
        Write(std::string(kFirstFrame, 'h'), 0);
    }

    void Commit(unsigned pages) {
        for (unsigned page = 1; page <= pages; ++page) {
            Write(FrameHeader(page == pages, Filler()), end_);
            Write(std::string(kPage, Filler()), end_);
        }
        EXPECT_EQ(BytesOnDisk(path_), expected_);
    }
    /// Pages that no commit follows.
    void Spill(unsigned pages) {
        const sqlite3_int64 before = end_;
        for (unsigned page = 0; page < pages; ++page) {
            Write(FrameHeader(false, Filler()), end_);
            Write(std::string(kPage, Filler()), end_);
        }
        end_ = before;
    }
    void RewriteHeader(unsigned place) {
        const auto frames = (end_ - kFirstFrame) / static_cast<sqlite3_int64>(kHeader + kPage);
        if (frames == 0) return;
        const sqlite3_int64 frame = place % frames;
        const sqlite3_int64 end = end_;
        Write(FrameHeader(frame == frames - 1, Filler()),
              kFirstFrame + frame * static_cast<sqlite3_int64>(kHeader + kPage));
        end_ = end;
        EXPECT_EQ(BytesOnDisk(path_), expected_);
    }
    void BeginAnew() { Write(std::string(kFirstFrame, Filler()), 0); }
    void Truncate() {
        log_.Truncate(end_);
        expected_.resize(static_cast<std::size_t>(end_));
    }
    void ReadAll() { EXPECT_EQ(log_.Read(expected_.size(), 0), expected_); }

  private:
    void Write(const std::string& bytes, sqlite3_int64 offset) {
        log_.Write(bytes, offset);
        end_ = offset + static_cast<sqlite3_int64>(bytes.size());
        if (expected_.size() < static_cast<std::size_t>(end_))
            expected_.resize(static_cast<std::size_t>(end_));
        expected_.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
    }
    char Filler() { return static_cast<char>('a' + count_++ % 26); }

    std::string path_;
    OpenLog log_;
    std::string expected_;
    sqlite3_int64 end_ = 0;
    int count_ = 0;
};

TEST(JoinedLog, HoldsTheSameBytesAsOneThatIsWrittenPieceByPiece) {
    const TemporaryFolder folder;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 numbers(seed);
        const auto random = [&numbers] { return static_cast<unsigned>(numbers()); };
        ComparedLog log(folder.File(std::to_string(seed) + "-wal"));
        for (int step = 0; step < 60; ++step) {
            switch (random() % 8) {
                case 0:
                    log.Spill(random() % 4);
                    break;
                case 1:
                    log.RewriteHeader(random() % 100);
                    break;
                case 2:
                    log.Truncate();
                    break;
                case 3:
                    log.ReadAll();
                    break;
                case 4:
                    log.BeginAnew();
                    break;
                default:
                    // Some are longer than what is joined.
                    log.Commit(random() % 10 == 0 ? 200 : 1 + random() % 12);
            }
        }
    }
}

/// A disk that takes no more than this into a file.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_ = {};
    void (*handler_)(int) = nullptr;
};

TEST(JoinedLog, TakesNothingBehindPagesThatCouldNotBeWritten) {
    const TemporaryFolder folder;
    OpenLog log(folder.File("log-wal"));
    log.Write(std::string(kFirstFrame, 'h'), 0);
    const auto writeFrame = [&](bool isCommit, sqlite3_int64 offset) {
        const int header = log.TryWrite(FrameHeader(isCommit, 'f'), offset);
        if (header != SQLITE_OK) return header;
        return log.TryWrite(std::string(kPage, 'p'), offset + sqlite3_int64{kHeader});
    };
    const sqlite3_int64 secondFrame = kFirstFrame + sqlite3_int64{kHeader + kPage};
    ASSERT_EQ(writeFrame(false, kFirstFrame), SQLITE_OK);
    {
        const FullDisk disk(kFirstFrame);
        EXPECT_NE(log.TrySync(), SQLITE_OK);
    }
    EXPECT_NE(writeFrame(true, secondFrame), SQLITE_OK);
    EXPECT_EQ(writeFrame(false, kFirstFrame), SQLITE_OK);
    EXPECT_EQ(writeFrame(true, secondFrame), SQLITE_OK);
    EXPECT_EQ(BytesOnDisk(folder.File("log-wal")).size(),
              static_cast<std::size_t>(secondFrame) + kHeader + kPage);
}

}  // namespace
}  // namespace snippetarium::test
