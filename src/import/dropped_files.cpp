#include "import/dropped_files.h"

#include "import/file_kind.h"
#include "import/import_window.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

bool EndsInSeparator(std::string_view path) {
    return path.ends_with('/') || path.ends_with('\\');
}

/// Is this the folder, or below it?
bool IsWithin(std::string_view path, std::string_view folder) {
    if (folder.empty() || !path.starts_with(folder)) return false;
    return path.size() == folder.size() || EndsInSeparator(folder) ||
           EndsInSeparator(path.substr(0, folder.size() + 1));
}

/// The folder that a dropped path needs to be below the root; empty where there is no such path.
std::string_view FolderFor(const FileSystem& files, std::string_view path) {
    if (files.FolderExists(path)) return path;
    return files.FileExists(path) ? ParentFolder(path) : std::string_view();
}

}  // namespace

std::string FolderOfDropped(const FileSystem& files, std::span<const std::string> paths,
                            std::string_view preferred) {
    std::string_view common;
    bool fitsPreferred = true;
    for (const std::string& path : paths) {
        const std::string_view folder = FolderFor(files, path);
        if (folder.empty()) continue;
        if (common.empty()) common = folder;
        while (!common.empty() && !IsWithin(folder, common))
            common = ParentFolder(common);
        if (!IsWithin(folder, preferred)) fitsPreferred = false;
    }
    return std::string(!common.empty() && fitsPreferred ? preferred : common);
}

bool ListDropped(FolderWalk& walk, std::span<const std::string> paths, std::string_view root,
                 WalkedFiles& target) {
    const EndOfListing end(walk.State());
    const ImportWindow window(walk.GetHost(), walk.State(), kListingTexts);
    const std::string pattern = EveryKindPattern();
    Progress& progress = walk.GetHost().progress;
    const double step = 100.0 / static_cast<double>(paths.size());
    for (const std::string& path : paths) {
        if (walk.Files().FolderExists(path)) {
            progress.SetFolderLine("Current folder: " + path);
            ListSubfolderFiles(walk, path, target, pattern, root);
        } else if (walk.Files().FileExists(path)) {
            target.entries.push_back(EntryBelow(path, root));
        } else {
            target.problems.push_back("'" + path + "' cannot be imported: it is not there.");
        }
        progress.SetTotal(progress.Total() + step);
        walk.GetHost().events.Yield();
        if (walk.State().importCancelled) return false;
    }
    return true;
}

}  // namespace snippetarium
