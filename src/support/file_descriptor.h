#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <span>
#include <string_view>

namespace snippetarium {

/// An open file of the operating system, closed with its owner. A call that the system refuses
/// throws std::system_error with its errno; nothing it reports is lost, because a disk that fills
/// up may say so only when the bytes are flushed or the file is closed.
class FileDescriptor {
  public:
    /// Flags and mode as for open(2).
    FileDescriptor(const char* path, int flags, mode_t mode = 0);
    ~FileDescriptor();
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    int Get() const { return descriptor_; }
    struct stat Status() const;

    /// The number of bytes read into the buffer, 0 at the end of the file.
    std::size_t Read(std::span<char> buffer);
    /// Writes all the bytes, in as many goes as the system wants.
    void Write(std::string_view bytes);
    /// Returns when what was written is on the disk.
    void Flush();
    /// After this only destruction is allowed.
    void Close();

  private:
    int descriptor_;
};

/// Throws a value of errno as std::system_error.
[[noreturn]] void ThrowSystemError(int systemError);

}  // namespace snippetarium
