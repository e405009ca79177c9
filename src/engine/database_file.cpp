#include "engine/database_file.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "engine/engine_error.h"

namespace snippetarium {

namespace {

// The header that every file of this format starts with; numbers are big-endian.
constexpr std::size_t kHeaderSize = 100;
constexpr std::string_view kMagic("SQLite format 3\0", 16);
constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kChangeCounterAt = 24;
constexpr std::size_t kPageCountAt = 28;
constexpr std::size_t kVersionAt = 60;
constexpr std::size_t kApplicationIdAt = 68;
constexpr std::size_t kPageCountValidForAt = 92;

constexpr std::array<std::string_view, 3> kSideFileSuffixes = {"-wal", "-journal", "-shm"};

using Header = std::array<unsigned char, kHeaderSize>;

std::uint32_t Number32(const Header& header, std::size_t at) {
    return static_cast<std::uint32_t>(header[at]) << 24U |
           static_cast<std::uint32_t>(header[at + 1]) << 16U |
           static_cast<std::uint32_t>(header[at + 2]) << 8U | header[at + 3];
}

std::uint64_t PageSize(const Header& header) {
    const std::uint32_t stored =
        static_cast<std::uint32_t>(header[kPageSizeAt]) << 8U | header[kPageSizeAt + 1];
    return stored == 1 ? 65536 : stored;  // 65536 does not fit the two bytes
}

bool IsNonEmptyFile(const std::string& path) {
    std::error_code ignored;
    const std::uintmax_t size = std::filesystem::file_size(path, ignored);
    return !ignored && size > 0;
}

/// The engine keeps its side files beside the file itself, not beside a link that leads to it.
std::string SideFile(const std::string& path, std::string_view suffix) {
    std::error_code error;
    const std::filesystem::path itself = std::filesystem::weakly_canonical(path, error);
    return (error ? path : itself.string()) + std::string(suffix);
}

[[noreturn]] void Refuse(EngineErrorCode code, const std::string& path, const std::string& why) {
    throw EngineError(code, "The file '" + path + "' " + why);
}

Header ReadHeader(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        Refuse(EngineErrorCode::CannotOpen, path, "cannot be read: check your rights to it.");
    }
    Header header{};
    file.read(reinterpret_cast<char*>(header.data()), kHeaderSize);
    if (file.gcount() == 0) {
        Refuse(EngineErrorCode::UnrecognisedFormat, path,
               "is empty. Restore a backup over it, or remove it and make a new catalogue.");
    }
    if (file.gcount() < static_cast<std::streamsize>(kHeaderSize) ||
        std::memcmp(header.data(), kMagic.data(), kMagic.size()) != 0) {
        Refuse(EngineErrorCode::UnrecognisedFormat, path, "is not a catalogue, or it is damaged.");
    }
    return header;
}

/// The right to be told when anybody opens a file. The system grants it only on a file that nobody
/// has open; who opens the file meanwhile waits until the lease has ended.
class FileLease {
  public:
#ifdef F_SETLEASE
    explicit FileLease(const std::string& path) : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (file_ < 0) return;
        // The system tells by a signal. Its own choice, SIGIO, would end this program, just because
        // another one opened the file at this moment; this one is ignored.
        fcntl(file_, F_SETSIG, SIGURG);
        isGranted_ = fcntl(file_, F_SETLEASE, F_WRLCK) == 0;
        isRefused_ = !isGranted_ && errno == EAGAIN;
    }
    ~FileLease() {
        if (isGranted_) fcntl(file_, F_SETLEASE, F_UNLCK);
        if (file_ >= 0) close(file_);
    }
#else
    explicit FileLease(const std::string& /*path*/) {}
#endif
    FileLease(const FileLease&) = delete;
    FileLease& operator=(const FileLease&) = delete;

    bool IsGranted() const {
        return isGranted_;
    }
    /// Because a program has the file open. Where the platform has no leases, or none for this
    /// user, one is neither granted nor refused.
    bool IsRefused() const {
        return isRefused_;
    }

  private:
    int file_ = -1;
    bool isGranted_ = false;
    bool isRefused_ = false;
};

}  // namespace

bool IsWritableFile(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 &&
           (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 && access(path.c_str(), W_OK) == 0;
}

void RemoveEmptySideFiles(const std::string& path) {
    // Held until the files are gone: a program that opened the database in between would go on
    // writing into a log that no other program can see any more.
    const FileLease lease(path);
    if (!lease.IsGranted() || HasPendingLog(path)) return;
    std::error_code ignored;  // one that stays is empty and does no harm
    std::filesystem::remove(LogPath(path), ignored);
    std::filesystem::remove(SideFile(path, "-shm"), ignored);
}

std::string LogPath(const std::string& path) {
    return SideFile(path, "-wal");
}

bool HasPendingLog(const std::string& path) {
    return IsNonEmptyFile(LogPath(path)) || HasPendingJournal(path);
}

bool HasPendingJournal(const std::string& path) {
    return IsNonEmptyFile(SideFile(path, "-journal"));
}

std::int32_t VersionInHeader(const std::string& path) {
    return static_cast<std::int32_t>(Number32(ReadHeader(path), kVersionAt));
}

void CheckDatabaseFile(const std::string& path, AccessMode mode) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        if (errno == EACCES) {
            Refuse(EngineErrorCode::CannotOpen, path,
                   "cannot be looked at: check your rights to its folder.");
        }
        Refuse(EngineErrorCode::FileNotFound, path, "could not be found.");
    }
    if (!S_ISREG(status.st_mode)) Refuse(EngineErrorCode::CannotOpen, path, "is not a file.");
    const Header header = ReadHeader(path);
    if (Number32(header, kApplicationIdAt) != kCatalogueApplicationId) {
        Refuse(EngineErrorCode::UnrecognisedFormat, path,
               "is a database of another program, not a catalogue.");
    }
    // The count is only kept up by programs that say so; and pages may still wait in the log.
    const bool countIsValid =
        Number32(header, kPageCountValidForAt) == Number32(header, kChangeCounterAt);
    const std::uint64_t expected = PageSize(header) * Number32(header, kPageCountAt);
    if (countIsValid && static_cast<std::uint64_t>(status.st_size) < expected &&
        !HasPendingLog(path)) {
        Refuse(
            EngineErrorCode::Corrupted, path,
            "is shorter than it should be: a part of it is missing. Restore a backup, or recover "
            "what can be read.");
    }
    if (mode == AccessMode::ReadWrite && !IsWritableFile(path)) {
        Refuse(EngineErrorCode::ReadOnly, path, "is read-only, so nothing can be saved in it.");
    }
}

bool IsFileOpen(const std::string& path) {
    return FileLease(path).IsRefused();
}

void RenameFile(const std::string& from, const std::string& to) {
    std::error_code error;
    const std::filesystem::path target = std::filesystem::weakly_canonical(to, error);
    if (!error) std::filesystem::rename(from, target, error);
    if (error) {
        throw EngineError(
            EngineErrorCode::DiskError,
            "The file '" + from + "' could not be named '" + to + "': " + error.message() + ".");
    }
    const std::string folder = target.parent_path().string();
    SyncToDisk(folder.empty() ? "." : folder);
}

void RemoveDatabaseFiles(const std::string& path) {
    std::error_code ignored;
    for (const std::string_view suffix : kSideFileSuffixes) {
        std::filesystem::remove(path + std::string(suffix), ignored);
    }
    std::filesystem::remove(path, ignored);
}

void SyncToDisk(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool isSafe = file >= 0 && fsync(file) == 0;
    if (file >= 0) close(file);
    if (!isSafe) Refuse(EngineErrorCode::DiskError, path, "could not be made safe on the disk.");
}

}  // namespace snippetarium
