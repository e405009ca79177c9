#include "support/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace snippetarium {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;
constexpr int kMostTemporaries = 1000;
constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kPermissionBits = 07777;

/// The file that the path leads to when its last part is a link, or a link to a link; it need not
/// exist yet. Links further up are the system's to follow.
fs::path BehindLinks(fs::path path) {
    std::error_code notALink;
    for (int links = 0; fs::is_symlink(path, notALink); ++links) {
        if (links == kMostLinks) ThrowSystemError(ELOOP);
        path = path.parent_path() / fs::read_symlink(path);  // an absolute link replaces the parent
    }
    return path;
}

/// Refuses what a rename would replace although nobody wants that: a folder, a device, a pipe, and
/// a file that the user has protected against writing.
void CheckReplaceable(const fs::path& target) {
    const fs::file_status status = fs::status(target);
    if (!fs::exists(status)) return;
    if (fs::is_directory(status)) ThrowSystemError(EISDIR);
    if (!fs::is_regular_file(status)) ThrowSystemError(EEXIST);
    if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) ThrowSystemError(errno);
}

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// Asks the system to keep the new name over a power failure. Should it refuse, the old name may
/// come back, and with it the old content, whole: the promise holds, so there is nothing to report.
void FlushFolder(const fs::path& folder) {
    try {
        FileDescriptor(folder.c_str(), O_RDONLY | O_DIRECTORY).Flush();
    } catch (const std::system_error&) {
        return;
    }
}

}  // namespace

WholeFile::WholeFile(const fs::path& target) : target_(BehindLinks(target)) {
    CheckReplaceable(target_);
    OpenTemporary();
}

WholeFile::~WholeFile() {
    if (!isCommitted_ && !temporary_.empty()) unlink(temporary_.c_str());
}

void WholeFile::Commit() {
    TakeOverPermissions();
    file_->Flush();
    file_->Close();
    fs::rename(temporary_, target_);
    isCommitted_ = true;
    FlushFolder(FolderOf(target_));
}

void WholeFile::OpenTemporary() {
    // The name owes nothing to the target's, which may already be as long as the disk allows.
    const std::string prefix = ".snippetarium-" + std::to_string(getpid()) + "-";
    for (int number = 0;; ++number) {
        const fs::path candidate = FolderOf(target_) / (prefix + std::to_string(number));
        try {
            file_.emplace(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL, kNewFileMode);
            temporary_ = candidate;
            return;
        } catch (const std::system_error& error) {
            // A name in use is what a run that was killed left behind.
            if (error.code().value() != EEXIST || number == kMostTemporaries) throw;
        }
    }
}

void WholeFile::TakeOverPermissions() {
    struct stat replaced = {};
    if (stat(target_.c_str(), &replaced) != 0) return;
    // Only the administrator may give a file away; others who replace a file come to own it.
    const bool keepsOwner = fchown(file_->Get(), replaced.st_uid, replaced.st_gid) == 0;
    const mode_t kept = keepsOwner ? kPermissionBits : mode_t{0777};
    if (fchmod(file_->Get(), replaced.st_mode & kept) != 0) ThrowSystemError(errno);
}

}  // namespace snippetarium
