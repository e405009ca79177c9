#include "support/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "support/error.h"

namespace snippetarium {

namespace {

constexpr mode_t kEverybodyMayUse = 0666;  // less what the user's umask takes away

/// The holder removes its file when it lets go. Whoever waited on that very file then has a lock
/// that nobody else will ever see, and must start again with the new one.
bool IsStillAtPath(int file, const std::string& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(file, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
           opened.st_ino == named.st_ino && opened.st_dev == named.st_dev;
}

}  // namespace

std::optional<FileLock> FileLock::TryAcquire(const std::string& path) {
    for (;;) {
        const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kEverybodyMayUse);
        if (file < 0) {
            throw Error(error_number::kPermissionDenied,
                        "The lock file '" + path + "' cannot be made: " + std::strerror(errno) +
                            ". Check your rights to its folder.");
        }
        FileLock lock(path, file);
        if (flock(file, LOCK_EX | LOCK_NB) != 0) {
            const int reason = errno;
            close(std::exchange(lock.file_, -1));
            if (reason == EINTR) continue;
            if (reason == EWOULDBLOCK) return std::nullopt;
            throw Error(error_number::kPermissionDenied,
                        "The lock file '" + path + "' cannot be locked: " + std::strerror(reason) +
                            ". Without that, two programs could write at the same time. Move the "
                            "folder to a disk on which files can be locked, or try again later.");
        }
        if (IsStillAtPath(file, path)) return lock;
        close(std::exchange(lock.file_, -1));
    }
}

FileLock::FileLock(std::string path, int file) : path_(std::move(path)), file_(file) {}

FileLock::FileLock(FileLock&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    if (this == &other) return *this;
    Release();
    path_ = std::move(other.path_);
    file_ = std::exchange(other.file_, -1);
    return *this;
}

FileLock::~FileLock() {
    Release();
}

void FileLock::Release() {
    if (file_ < 0) return;
    // First, so that nobody takes a file that is about to go. A file that somebody removed
    // meanwhile may have been followed by another program's, which must stay.
    if (IsStillAtPath(file_, path_)) unlink(path_.c_str());
    close(std::exchange(file_, -1));
}

}  // namespace snippetarium
