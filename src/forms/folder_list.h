#pragma once

#include <QTreeWidget>
#include <string>
#include <string_view>
#include <vector>

class QComboBox;

namespace snippetarium {

class FileSystem;

/// A list of folders: the one that is open, those that it lies in above it, its subfolders below.
/// A double-click or Enter on a folder asks for it; whoever owns the list opens it.
class FolderList final : public QTreeWidget {
    Q_OBJECT

  public:
    explicit FolderList(QWidget* parent);

    /// Outlives this; nothing is listed before.
    void SetFiles(const FileSystem& files) { files_ = &files; }

    /// Opens the folder. Of one that cannot be read no subfolders are shown. Hidden ones never are.
    void Open(std::string_view folder);
    /// The same with what was listed already: a folder may hold very many files.
    void Open(std::string_view folder, std::vector<std::string> subfolders);
    const std::string& Folder() const { return folder_; }
    /// The folder that is marked, open or not.
    std::string MarkedFolder() const;

  signals:
    void FolderChosen(const std::string& folder);

  protected:
    /// Enter asks for the marked folder, Backspace for the one above the open one.
    void keyPressEvent(QKeyEvent* event) override;
    /// Nothing can be closed, so there is no sign for it.
    void drawBranches(QPainter*, const QRect&, const QModelIndex&) const override {}

  private:
    QTreeWidgetItem* AddAncestors();
    std::vector<std::string> ListSubfolders(std::string_view folder) const;
    void AddSubfolders(QTreeWidgetItem* parent, std::vector<std::string> names);

    const FileSystem* files_ = nullptr;
    std::string folder_;
};

/// Fills the list of drives: the user's own folder, and the places where drives or, on platforms
/// without, file systems begin. Each item's data is its path.
void FillDriveList(QComboBox* drives);
/// Selects the drive on which the folder lies.
void SelectDriveOf(QComboBox* drives, std::string_view folder);

}  // namespace snippetarium
