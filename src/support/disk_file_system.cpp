#include "support/disk_file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <new>
#include <optional>
#include <span>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "support/file_descriptor.h"
#include "support/file_errors.h"
#include "support/folder_lister.h"
#include "support/paths.h"
#include "support/real_path.h"
#include "support/whole_file.h"

namespace snippetarium {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCopyBlock = std::size_t{1} << 20U;
constexpr std::size_t kSmallestRead = 4096;

void WriteWhole(const fs::path& path, std::string_view bytes) {
    WholeFile file(path);
    file.Write(bytes);
    file.Commit();
}

/// Adds the bytes to a file that is there, or cuts it back to what it was.
void AppendWhole(const fs::path& path, std::string_view bytes) {
    FileDescriptor file(path.c_str(), O_WRONLY | O_APPEND);
    const off_t oldSize = file.Status().st_size;
    try {
        file.Write(bytes);
        file.Flush();
    } catch (const std::system_error&) {
        // A device or pipe cannot be cut; there the failure being reported says it all.
        [[maybe_unused]] const int cut = ftruncate(file.Get(), oldSize);
        throw;
    }
    file.Close();
}

/// Runs body and turns what the system refuses into this program's Error about the path.
template <typename Body>
auto Reported(FileAction action, std::string_view path, Body body) {
    try {
        return body();
    } catch (const std::system_error& error) {
        throw FileError(action, path, error.code().value());
    } catch (const std::bad_alloc&) {
        throw FileError(action, path, ENOMEM);
    } catch (const std::length_error&) {
        throw FileError(action, path, ENOMEM);
    }
}

/// The path for the system. A NUL would end it early and so name another file.
fs::path SystemPath(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        ThrowSystemError(EINVAL);
    }
    return ToPlatformPath(path);
}

/// False when nothing is there or nothing can be learned about it.
bool Look(const std::string& platformPath, struct stat& status) {
    return platformPath.find('\0') == std::string::npos && stat(platformPath.c_str(), &status) == 0;
}

bool HasType(std::string_view path, mode_t type) {
    struct stat status = {};
    return Look(ToPlatformPath(path), status) && (status.st_mode & S_IFMT) == type;
}

struct stat Inspect(std::string_view path) {
    return Reported(FileAction::Inspect, path, [&] {
        struct stat status = {};
        if (stat(SystemPath(path).c_str(), &status) != 0) ThrowSystemError(errno);
        return status;
    });
}

/// All bytes from here to the end. The size expected is a hint: a file may grow while it is read,
/// and those of the /proc kind claim to be empty.
std::string ReadAll(FileDescriptor& file) {
    const auto expected = static_cast<std::size_t>(file.Status().st_size);
    std::string bytes;
    std::size_t end = 0;
    for (std::size_t room = expected + 1;; room = std::max(end / 2, kSmallestRead)) {
        bytes.resize(end + room);
        while (end < bytes.size()) {
            const std::size_t count = file.Read(std::span(bytes).subspan(end));
            if (count == 0) {
                bytes.resize(end);
                return bytes;
            }
            end += count;
        }
    }
}

}  // namespace

bool DiskFileSystem::DriveExists(std::string_view path) const {
    const std::string folder = ToPlatformPath(path);
    struct stat own = {};
    struct stat above = {};
    if (!Look(folder, own) || !S_ISDIR(own.st_mode) || !Look(folder + "/..", above)) return false;
    return own.st_dev != above.st_dev || own.st_ino == above.st_ino;
}

bool DiskFileSystem::FolderExists(std::string_view path) const {
    return HasType(path, S_IFDIR);
}

bool DiskFileSystem::FileExists(std::string_view path) const {
    return HasType(path, S_IFREG);
}

std::string DiskFileSystem::RealPath(std::string_view path) const {
    return Reported(FileAction::Inspect, path,
                    [&] { return ResolvePath(SystemPath(path)).string(); });
}

FolderListing DiskFileSystem::ListFolder(std::string_view path) const {
    return Reported(FileAction::List, path, [&] { return ListEntries(SystemPath(path)); });
}

std::uint64_t DiskFileSystem::FileSize(std::string_view path) const {
    return static_cast<std::uint64_t>(Inspect(path).st_size);
}

std::chrono::system_clock::time_point DiskFileSystem::ModificationTime(
    std::string_view path) const {
    const struct timespec time = Inspect(path).st_mtim;
    const auto sinceEpoch =
        std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
    return std::chrono::system_clock::time_point(
        std::chrono::duration_cast<std::chrono::system_clock::duration>(sinceEpoch));
}

std::string DiskFileSystem::ReadFile(std::string_view path) const {
    return Reported(FileAction::Read, path, [&] {
        FileDescriptor file(SystemPath(path).c_str(), O_RDONLY);
        return ReadAll(file);
    });
}

void DiskFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
    Reported(FileAction::Write, path, [&] { WriteWhole(SystemPath(path), bytes); });
}

void DiskFileSystem::AppendToFile(std::string_view path, std::string_view bytes) {
    Reported(FileAction::Append, path, [&] {
        const fs::path file = SystemPath(path);
        fs::exists(file) ? AppendWhole(file, bytes) : WriteWhole(file, bytes);
    });
}

void DiskFileSystem::CopyFile(std::string_view source, std::string_view target) {
    const auto reading = [&](auto body) { return Reported(FileAction::Read, source, body); };
    const auto writing = [&](auto body) { return Reported(FileAction::Write, target, body); };

    std::optional<FileDescriptor> from;
    std::optional<WholeFile> to;
    reading([&] { from.emplace(SystemPath(source).c_str(), O_RDONLY); });
    writing([&] { to.emplace(SystemPath(target)); });
    std::vector<char> block(kCopyBlock);
    while (true) {
        const std::size_t count = reading([&] { return from->Read(block); });
        if (count == 0) break;
        writing([&] { to->Write(std::string_view(block.data(), count)); });
    }
    writing([&] { to->Commit(); });
}

void DiskFileSystem::DeleteFile(std::string_view path) {
    Reported(FileAction::Delete, path, [&] {
        if (unlink(SystemPath(path).c_str()) != 0) ThrowSystemError(errno);
    });
}

void DiskFileSystem::MakeFolders(std::string_view path) {
    Reported(FileAction::MakeFolder, path, [&] { fs::create_directories(SystemPath(path)); });
}

}  // namespace snippetarium
