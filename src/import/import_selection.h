#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/file_kind.h"
#include "import/import_state.h"
#include "support/file_system.h"

namespace snippetarium {

class Database;

/// The texts of the import dialog that the user can edit.
struct ImportTexts {
    std::string application = {};
    /// Where the application lies, as the user sees and writes it.
    std::string applicationPath = {};
    /// Names with ", " between them.
    std::string language = {};
};

/// Which of the dialog's buttons that move entries can be pressed.
struct MoveButtons {
    bool addOne = false;
    bool addAll = false;
    bool removeOne = false;
    bool removeAll = false;

    bool operator==(const MoveButtons&) const = default;
};

/// The languages of some entries: "Visual Basic, C++". In the order of the entries, a name once;
/// one counts as listed where the text has it with a comma behind it, which "Header," also has of
/// "C++ Header,". An extension without a name adds its empty one like any other.
std::string LanguageText(std::span<const std::string> entries);

/// What an application from this path is called: as in the catalogue, where it knows the path, else
/// as the last folder.
std::string ApplicationNameForPath(Database& db, std::string_view path);

/// What the user has chosen in the import dialog: a folder, the files in it, and the texts. The
/// dialog shows it and passes on what is clicked.
class ImportSelection {
  public:
    /// The first three must outlive this. Nothing is taken yet. The pattern says which files are
    /// listed.
    ImportSelection(Database& db, const FileSystem& files, ImportState& state,
                    std::string_view pattern = kListPattern)
        : db_(db), files_(files), state_(state), pattern_(pattern) {}

    /// Takes another folder: both lists and all texts start anew. Where files are selected the user
    /// is asked first. False where the answer is no and where the folder cannot be read, which is
    /// reported: all stays as it was, and the folder list goes back to Folder(). The folder that is
    /// taken already is only listed again.
    bool ChangeFolder(std::string_view folder);
    const std::string& Folder() const { return folder_; }
    /// The names of its subfolders when it was taken.
    const std::vector<std::string>& Subfolders() const { return subfolders_; }

    /// Lists the files of the subfolders too, or no more. Walks the folder, behind the progress
    /// window; while that is open, the list stays as it is. False where the walk was cancelled or
    /// failed, so that only some files are listed.
    bool SetIncludeSubfolder(bool include);
    bool IncludesSubfolder() const { return includesSubfolder_; }

    /// Move entries between the lists, each list's `chosen` being positions in it from 0.
    void AddOne(std::span<const std::size_t> chosen);
    void AddAll();
    void RemoveOne(std::span<const std::size_t> chosen);
    void RemoveAll();
    MoveButtons EnabledButtons() const;

    /// Takes what was dropped onto the list of files to import (import/dropped_files.h). Where it
    /// does not all lie below the folder, the one that holds it is taken first, as by ChangeFolder.
    /// False where that was refused, the listing was cancelled or something failed; then nothing
    /// more is selected.
    bool Drop(std::span<const std::string> paths);

    /// The names in the folder itself, in the order of the disk, those that are selected too.
    const std::vector<std::string>& FolderFiles() const { return fileList_; }
    const std::vector<std::string>& SourceFiles() const { return sourceFiles_; }
    const std::vector<std::string>& SelectedFiles() const { return selectedFiles_; }
    /// What could not be listed, for the report of the import.
    const std::vector<std::string>& Problems() const { return problems_; }
    const ImportTexts& Texts() const { return texts_; }
    /// For what the user types.
    ImportTexts& Texts() { return texts_; }

  private:
    bool MayLoseSelection() const;
    bool RefreshSourceFiles();
    bool ListSubfolders();
    void RemoveSelectedFromSource();
    void Select(const std::vector<std::string>& entries);
    void FillTextsAfterAdding();

    Database& db_;
    const FileSystem& files_;
    ImportState& state_;
    std::string pattern_;
    std::string folder_;
    bool includesSubfolder_ = false;
    /// The folder's own names, and what of them cannot be listed.
    std::vector<std::string> fileList_;
    std::vector<std::string> subfolders_;
    std::vector<std::string> fileListProblems_;
    std::vector<std::string> sourceFiles_;
    std::vector<std::string> selectedFiles_;
    std::vector<std::string> problems_;
    ImportTexts texts_;
};

}  // namespace snippetarium
