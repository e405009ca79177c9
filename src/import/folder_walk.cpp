#include "import/folder_walk.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "import/file_kind.h"
#include "import/import_window.h"
#include "support/case_fold.h"
#include "support/error.h"
#include "support/guard.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::array<std::string_view, 2> kForeignFolders{"_vti_pvt", "_vti_cnf"};
bool IsForeign(std::string_view folderName) {
    return std::ranges::any_of(kForeignFolders, [&](std::string_view foreign) {
        return EqualsIgnoringAsciiCase(foreign, folderName);
    });
}

/// What lies in a folder that may be unreadable: then a problem is noted.
FolderListing ListOrReport(const FolderWalk& walk, std::string_view folder, WalkedFiles& target) {
    try {
        FolderListing listing = walk.Files().ListFolder(folder);
        for (const UnlistedName& name : listing.unlisted)
            target.problems.push_back(DescribeUnlisted(name));
        return listing;
    } catch (const Error& error) {
        target.problems.push_back(error.Description());
        return {};
    }
}

/// The folder has been listed before for its files, and what was wrong with it then noted.
std::vector<std::string> SubfoldersOf(const FolderWalk& walk, std::string_view folder) {
    try {
        return walk.Files().ListFolder(folder).subfolders;
    } catch (const Error&) {
        return {};
    }
}

}  // namespace

FolderWalk::FolderWalk(const Host& host, const FileSystem& files, ImportState& state)
    : host_(host),
      files_(files),
      state_(state),
      random_(
          static_cast<std::minstd_rand::result_type>(host.clock.Now().time_since_epoch().count())) {
}

double FolderWalk::RandomPercent() {
    return std::uniform_real_distribution<double>(0, 100)(random_);
}

std::string EntryBelow(std::string_view path, std::string_view rootFolder) {
    const bool endsInSeparator = rootFolder.ends_with('\\') || rootFolder.ends_with('/');
    return ToCataloguePath(path.substr(rootFolder.size() + (endsInSeparator ? 0 : 1)));
}

void ListFolderFiles(FolderWalk& walk, std::string_view folder, WalkedFiles& target,
                     std::string_view pattern, std::string_view rootFolder) {
    Guarded(walk.GetHost().reporter, Procedure::ListFolderFiles, [&] {
        const Host& host = walk.GetHost();
        const FolderListing listing = ListOrReport(walk, folder, target);
        const double step = 100.0 / static_cast<double>(listing.files.size());
        for (const std::string& name : listing.files) {
            if (host.progress.Unit() + step < 100)
                host.progress.SetUnit(host.progress.Unit() + step);
            if (IsTakenByWalk(name, pattern))
                target.entries.push_back(EntryBelow(JoinPath(folder, name), rootFolder));
            host.events.Yield();
            if (walk.State().importCancelled) return;
        }
        host.progress.SetUnit(100);
    });
}

void ListSubfolderFiles(FolderWalk& walk, std::string_view folder, WalkedFiles& target,
                        std::string_view pattern, std::string_view rootFolder) {
    Guarded(walk.GetHost().reporter, Procedure::ListSubfolderFiles, [&] {
        const Host& host = walk.GetHost();
        ListFolderFiles(walk, folder, target, pattern, rootFolder);
        for (const std::string& name : SubfoldersOf(walk, folder)) {
            if (walk.State().importCancelled) return;
            if (IsForeign(name)) continue;
            host.progress.SetFolderLine("Subfolder: " + name);
            host.progress.SetUnit(walk.RandomPercent());
            ListSubfolderFiles(walk, JoinPath(folder, name), target, pattern, rootFolder);
            host.events.Yield();
        }
    });
}

bool ListAllSubfolderFiles(FolderWalk& walk, std::string_view rootFolder, WalkedFiles& target,
                           std::string_view pattern) {
    return Guarded(walk.GetHost().reporter, Procedure::ListAllSubfolderFiles, [&] {
        Progress& progress = walk.GetHost().progress;
        const EndOfListing end(walk.State());
        const ImportWindow window(walk.GetHost(), walk.State(), kListingTexts);
        progress.SetUnit(1);
        progress.SetTotal(1);
        const std::vector<std::string> names = walk.Files().ListFolder(rootFolder).subfolders;
        const double step = 100.0 / static_cast<double>(names.size());
        for (const std::string& name : names) {
            if (IsForeign(name)) continue;
            progress.SetFolderLine("Current folder: " + name);
            if (progress.Total() + step < 100) progress.SetTotal(progress.Total() + step);
            ListSubfolderFiles(walk, JoinPath(rootFolder, name), target, pattern, rootFolder);
            walk.GetHost().events.Yield();
            if (walk.State().importCancelled) return false;
        }
        progress.SetTotal(100);
        return true;
    });
}

void RemoveSubfolderEntries(std::vector<std::string>& list) {
    std::erase_if(list,
                  [](const std::string& entry) { return entry.find('\\') != std::string::npos; });
}

void CopyFileListEntries(const std::vector<std::string>& fileList,
                         std::vector<std::string>& target) {
    target.insert(target.end(), fileList.begin(), fileList.end());
}

WalkedFiles ReadFileList(const FileSystem& files, std::string_view folder,
                         std::string_view pattern) {
    WalkedFiles list;
    FolderListing listing = files.ListFolder(folder);
    // Of very many files there are few extensions, and an extension decides.
    std::map<std::string, bool, std::less<>> isShown;
    for (std::string& name : listing.files) {
        const std::string_view extension = FileExtension(name);
        auto known = isShown.find(extension);
        if (known == isShown.end())
            known = isShown.emplace(extension, IsShownInList(name, pattern)).first;
        if (known->second) list.entries.push_back(std::move(name));
    }
    for (const UnlistedName& name : listing.unlisted)
        list.problems.push_back(DescribeUnlisted(name));
    list.subfolders = std::move(listing.subfolders);
    return list;
}

}  // namespace snippetarium
