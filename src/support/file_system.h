#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

/// Why a listing leaves a name out.
enum class UnlistedReason {
    /// The name holds a backslash, which separates folders everywhere in the catalogue.
    Backslash,
    /// The name's bytes are no UTF-8 text, so no text in the program can stand for it.
    NotUtf8,
    /// A link to a folder that the listed folder lies in: a walk that followed it would never end.
    LeadsBack,
    /// A link to something that is not there or cannot be reached.
    DeadLink,
};

struct UnlistedName {
    /// For the eye only: bytes that are no UTF-8 are shown as "\xE9".
    std::string name;
    UnlistedReason reason;
};

/// A sentence for a report: which name was left out, why, and what to do.
std::string DescribeUnlisted(const UnlistedName& unlisted);

/// The names in a folder, without path, in the order of their letters, whatever the case. What a
/// link leads to decides where its name stands. Devices, pipes and sockets stand nowhere.
struct FolderListing {
    std::vector<std::string> files;
    std::vector<std::string> subfolders;
    std::vector<UnlistedName> unlisted;
};

/// What the program needs of the disk. Paths may bear slashes or backslashes (support/paths.h) and
/// be relative to the working folder. Operations follow links. Those that return bool never fail;
/// all others throw an Error that names the path (support/file_errors.h).
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// True for the top folder of a disk: where a drive, or a file system that was mounted, starts.
    virtual bool DriveExists(std::string_view path) const = 0;
    virtual bool FolderExists(std::string_view path) const = 0;
    /// True for a file, not for a folder.
    virtual bool FileExists(std::string_view path) const = 0;

    /// Where the path leads: absolute, links followed, without "." and "..", in the platform's
    /// form. The file or folder, and those above it, need not exist. Two paths with the same answer
    /// are the same place.
    virtual std::string RealPath(std::string_view path) const = 0;

    virtual FolderListing ListFolder(std::string_view path) const = 0;
    /// The length of the file in bytes.
    virtual std::uint64_t FileSize(std::string_view path) const = 0;
    virtual std::chrono::system_clock::time_point ModificationTime(std::string_view path) const = 0;

    virtual std::string ReadFile(std::string_view path) const = 0;

    /// Makes the file hold these bytes, or fails and leaves it as it was (or absent): whoever looks
    /// meanwhile, or after a power failure, sees the old content or the new, whole. A file replaced
    /// keeps its permissions; if the path is a link, the file it leads to is replaced. Refuses to
    /// replace a device or pipe.
    virtual void WriteFile(std::string_view path, std::string_view bytes) = 0;

    /// Puts bytes behind the file's last; makes the file when there is none. When it fails, the
    /// file has the length it had, or is absent as before.
    virtual void AppendToFile(std::string_view path, std::string_view bytes) = 0;

    /// Makes the target hold what the source holds, with the promises of WriteFile, for files of
    /// any size. Permissions are not copied: a copy of a write-protected file can be written.
    virtual void CopyFile(std::string_view source, std::string_view target) = 0;

    /// Deletes a file (of a link, the link itself), never a folder. A missing file is a failure.
    virtual void DeleteFile(std::string_view path) = 0;

    /// Makes the folder and those above it that are missing. Does nothing when it is there.
    virtual void MakeFolders(std::string_view path) = 0;
};

}  // namespace snippetarium
