#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "import/import_state.h"
#include "import/import_window.h"
#include "support/file_system.h"
#include "support/host.h"

namespace snippetarium {

// Listing the files that can be imported. An entry names a file by its path below the root folder,
// with backslashes: "Form1.frm", "sub\Form1.frm".

/// What a walk found.
struct WalkedFiles {
    std::vector<std::string> entries = {};
    /// Sentences for the report: what could not be listed, and why. A name or a folder that cannot
    /// be listed does not end a walk.
    std::vector<std::string> problems = {};
    /// Names of the folder's subfolders; only ReadFileList tells them.
    std::vector<std::string> subfolders = {};
};

/// What a walk works with. One serves for one walk.
class FolderWalk {
  public:
    FolderWalk(const Host& host, const FileSystem& files, ImportState& state);

    const Host& GetHost() const { return host_; }
    const FileSystem& Files() const { return files_; }
    ImportState& State() const { return state_; }
    /// 0 to 100, for a bar that only shows that something happens.
    double RandomPercent();

  private:
    Host host_;
    const FileSystem& files_;
    ImportState& state_;
    std::minstd_rand random_;
};

/// The entry of a file or folder below the root, in platform paths: "/src/Paint/sub/a.bas" of
/// "/src/Paint" is "sub\\a.bas".
std::string EntryBelow(std::string_view path, std::string_view rootFolder);

/// Says that an import was cancelled no more when it dies: a cancelled listing must not cancel the
/// next import, however the listing ends.
class EndOfListing {
  public:
    explicit EndOfListing(ImportState& state) : state_(state) {}
    ~EndOfListing() { state_.importCancelled = false; }
    EndOfListing(const EndOfListing&) = delete;
    EndOfListing& operator=(const EndOfListing&) = delete;

  private:
    ImportState& state_;
};

/// The progress window of a listing.
inline constexpr ImportWindow::Texts kListingTexts{
    "Snippetarium is counting code files, please wait...", "Folder Progress:"};

/// Adds the files of one folder that the pattern takes (IsTakenByWalk), without its subfolders.
/// Yields after each file; stops when the import is cancelled.
void ListFolderFiles(FolderWalk& walk, std::string_view folder, WalkedFiles& target,
                     std::string_view pattern, std::string_view rootFolder);

/// The same, then each of the folder's subfolders, save those in which a web editor keeps its own
/// copies of the pages.
void ListSubfolderFiles(FolderWalk& walk, std::string_view folder, WalkedFiles& target,
                        std::string_view pattern, std::string_view rootFolder);

/// Adds the files of all subfolders of the root, behind a progress window of its own that can be
/// cancelled. The files that lie in the root itself are not listed. Afterwards the import is not
/// cancelled, whether or not the walk was: only the result, false, tells. False on a failure too.
bool ListAllSubfolderFiles(FolderWalk& walk, std::string_view rootFolder, WalkedFiles& target,
                           std::string_view pattern);

/// Removes every entry that contains a backslash.
void RemoveSubfolderEntries(std::vector<std::string>& list);

/// Appends the names of a folder's file list in their order.
void CopyFileListEntries(const std::vector<std::string>& fileList,
                         std::vector<std::string>& target);

/// A folder's file list: the names in it that the list shows (IsShownInList), as problems those
/// that cannot be listed, and its subfolders. Throws Error where the folder cannot be read.
WalkedFiles ReadFileList(const FileSystem& files, std::string_view folder,
                         std::string_view pattern);

}  // namespace snippetarium
