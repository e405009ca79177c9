#pragma once

#include <optional>
#include <string>

namespace snippetarium {

/// An exclusive lock between programs, held by a file of its own. The system lets go of it when the
/// program ends, however it ends, so a lock never outlives its holder. The file exists only while
/// somebody holds the lock; one that a killed program left means nothing.
class FileLock {
  public:
    /// Nothing when somebody else holds the lock. Throws Error (kPermissionDenied) when the file
    /// cannot be made or opened, or the system does not lock files there.
    static std::optional<FileLock> TryAcquire(const std::string& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    /// Lets go and removes the file.
    ~FileLock();

  private:
    FileLock(std::string path, int file);
    void Release();

    std::string path_;
    int file_ = -1;
};

}  // namespace snippetarium
