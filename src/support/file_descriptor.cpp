#include "support/file_descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace snippetarium {

namespace {

/// Repeats a call that a signal interrupted; throws when it fails otherwise.
template <typename Call>
auto Repeated(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    if (result < 0) ThrowSystemError(errno);
    return result;
}

}  // namespace

void ThrowSystemError(int systemError) {
    throw std::system_error(systemError, std::generic_category());
}

FileDescriptor::FileDescriptor(const char* path, int flags, mode_t mode)
    : descriptor_(Repeated([&] { return open(path, flags | O_CLOEXEC, mode); })) {}

FileDescriptor::~FileDescriptor() {
    // Only a reader, or a writer that is failing already, comes here with the file still open.
    if (descriptor_ >= 0) close(descriptor_);
}

struct stat FileDescriptor::Status() const {
    struct stat status = {};
    if (fstat(descriptor_, &status) != 0) ThrowSystemError(errno);
    return status;
}

std::size_t FileDescriptor::Read(std::span<char> buffer) {
    return static_cast<std::size_t>(
        Repeated([&] { return read(descriptor_, buffer.data(), buffer.size()); }));
}

void FileDescriptor::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written =
            Repeated([&] { return write(descriptor_, bytes.data(), bytes.size()); });
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void FileDescriptor::Flush() {
    // EINVAL: a terminal or a pipe, which has nothing to flush.
    if (fsync(descriptor_) != 0 && errno != EINVAL) ThrowSystemError(errno);
}

void FileDescriptor::Close() {
    const int closed = close(descriptor_);
    descriptor_ = -1;
    // Interrupted or not, the descriptor is gone, and Flush has seen to the bytes.
    if (closed != 0 && errno != EINTR) ThrowSystemError(errno);
}

}  // namespace snippetarium
