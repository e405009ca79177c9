#include "import/import_selection.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <unordered_set>
#include <utility>

#include "import/dropped_files.h"
#include "import/folder_walk.h"
#include "store/database.h"
#include "store/reads_applications.h"
#include "support/case_fold.h"
#include "support/guard.h"
#include "support/message_boxes.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::string_view kFolderQuestion =
    "Snippetarium must store application name for the code you wish to import.  To avoid "
    "confusion, each time you can only import files within one application. Therefore, when a "
    "folder is changed, Snippetarium removes all selected files to avoid selection of files from "
    "two or more applications.\r\n\r\n"
    "To select files from different folders within one application, select the root folder of the "
    "application, and check the 'Include Subfolder' option. All files in the subfolders will be "
    "listed with their subfolder name(s).\r\n\r\n"
    "Click Yes to change folder and lose your selection, click No to keep your selection.";
constexpr std::string_view kBetweenLanguages = ", ";

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), AsciiLower);
    return lower;
}

/// Appends the names that are not in the list yet.
void AppendMissing(std::vector<std::string>& list, const std::vector<std::string>& names) {
    if (list == names) return;  // a folder just taken, which may have very many files
    std::unordered_set<std::string> known(list.begin(), list.end());
    for (const std::string& name : names) {
        if (known.insert(name).second) list.push_back(name);
    }
}

/// Moves the entries at these positions to the end of the other list.
void MoveEntries(std::vector<std::string>& from, std::vector<std::string>& to,
                 std::span<const std::size_t> chosen) {
    std::vector<bool> isChosen(from.size());
    for (const std::size_t position : chosen)
        isChosen.at(position) = true;
    std::vector<std::string> staying;
    for (std::size_t i = 0; i < from.size(); ++i)
        (isChosen[i] ? to : staying).push_back(std::move(from[i]));
    from = std::move(staying);
}

std::vector<std::size_t> AllPositions(const std::vector<std::string>& list) {
    std::vector<std::size_t> positions(list.size());
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

}  // namespace

std::string LanguageText(std::span<const std::string> entries) {
    std::string text;
    std::set<std::string_view> extensions;
    for (const std::string& entry : entries) {
        if (!extensions.insert(FileExtension(entry)).second) continue;
        const std::string name(LanguageNameOfExtension(LowerCase(FileExtension(entry))));
        if (FoldCase(text).find(FoldCase(name + ",")) != std::string::npos) continue;
        text += name;
        text += kBetweenLanguages;
    }
    if (!text.empty()) text.resize(text.size() - kBetweenLanguages.size());
    return text;
}

std::string ApplicationNameForPath(Database& db, std::string_view path) {
    const std::string known = AppNameByAppPath(db, ToCataloguePath(path));
    return known.empty() ? std::string(FileName(path)) : known;
}

bool ImportSelection::ChangeFolder(std::string_view folder) {
    return Guarded(db_.Reporter(), Procedure::ChangeImportFolder, [&] {
        WalkedFiles list = ReadFileList(files_, folder, pattern_);
        const bool isOther = folder != folder_;
        if (isOther && !MayLoseSelection()) return false;
        fileList_ = std::move(list.entries);
        fileListProblems_ = std::move(list.problems);
        subfolders_ = std::move(list.subfolders);
        if (isOther) {
            folder_ = folder;
            sourceFiles_ = {};
            selectedFiles_ = {};
            texts_ = {};
            CopyFileListEntries(fileList_, sourceFiles_);
        }
        RefreshSourceFiles();
        return true;
    });
}

bool ImportSelection::MayLoseSelection() const {
    return selectedFiles_.empty() ||
           AskYesNo(db_.GetHost().messages, kFolderQuestion, kQuestionTitle) == StandardAnswer::Yes;
}

bool ImportSelection::SetIncludeSubfolder(bool include) {
    includesSubfolder_ = include;
    return Guarded(db_.Reporter(), Procedure::RefreshSourceFiles,
                   [&] { return RefreshSourceFiles(); });
}

bool ImportSelection::RefreshSourceFiles() {
    if (folder_.empty() || db_.GetHost().progress.IsOpen()) return true;
    problems_ = fileListProblems_;
    bool isComplete = true;
    if (includesSubfolder_) {
        isComplete = ListSubfolders();
        texts_.applicationPath = folder_;
    } else {
        RemoveSubfolderEntries(sourceFiles_);
        AppendMissing(sourceFiles_, fileList_);
        if (texts_.applicationPath.empty()) texts_.applicationPath = folder_;
    }
    RemoveSelectedFromSource();
    return isComplete;
}

bool ImportSelection::ListSubfolders() {
    WalkedFiles found;
    FolderWalk walk(db_.GetHost(), files_, state_);
    const bool isComplete = ListAllSubfolderFiles(walk, folder_, found, pattern_);
    AppendMissing(sourceFiles_, found.entries);
    problems_.insert(problems_.end(), found.problems.begin(), found.problems.end());
    return isComplete;
}

void ImportSelection::RemoveSelectedFromSource() {
    if (selectedFiles_.empty()) return;
    std::unordered_set<std::string> selected;
    for (const std::string& entry : selectedFiles_)
        selected.insert(FoldCase(entry));
    std::erase_if(sourceFiles_,
                  [&](const std::string& entry) { return selected.contains(FoldCase(entry)); });
}

void ImportSelection::AddOne(std::span<const std::size_t> chosen) {
    MoveEntries(sourceFiles_, selectedFiles_, chosen);
    FillTextsAfterAdding();
}

void ImportSelection::FillTextsAfterAdding() {
    texts_.language = LanguageText(selectedFiles_);
    if (texts_.application.empty())
        texts_.application = ApplicationNameForPath(db_, texts_.applicationPath);
}

void ImportSelection::AddAll() {
    AddOne(AllPositions(sourceFiles_));
}

void ImportSelection::RemoveOne(std::span<const std::size_t> chosen) {
    MoveEntries(selectedFiles_, sourceFiles_, chosen);
    texts_.language = LanguageText(selectedFiles_);
}

void ImportSelection::RemoveAll() {
    RemoveOne(AllPositions(selectedFiles_));
}

bool ImportSelection::Drop(std::span<const std::string> paths) {
    return Guarded(db_.Reporter(), Procedure::DropFiles, [&] {
        if (db_.GetHost().progress.IsOpen()) return false;
        const std::string root = FolderOfDropped(files_, paths, folder_);
        if (!root.empty() && root != folder_ && !ChangeFolder(root)) return false;
        WalkedFiles found;
        FolderWalk walk(db_.GetHost(), files_, state_);
        const bool isComplete = ListDropped(walk, paths, folder_, found);
        problems_.insert(problems_.end(), found.problems.begin(), found.problems.end());
        if (!isComplete) return false;
        Select(found.entries);
        return true;
    });
}

/// Adds the entries that are not selected yet.
void ImportSelection::Select(const std::vector<std::string>& entries) {
    AppendMissing(selectedFiles_, entries);
    RemoveSelectedFromSource();
    FillTextsAfterAdding();
}

MoveButtons ImportSelection::EnabledButtons() const {
    const bool canAdd = !sourceFiles_.empty();
    const bool canRemove = !selectedFiles_.empty();
    return {canAdd, canAdd, canRemove, canRemove};
}

}  // namespace snippetarium
