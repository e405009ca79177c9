#pragma once

#include <QDialog>
#include <memory>
#include <string>

namespace snippetarium {

class Database;
class FileSystem;

namespace Ui {
class fSaveTo;
}

/// The choice of a folder to export into.
class fSaveTo final : public QDialog {
    Q_OBJECT

  public:
    /// Begins at the folder, or at the nearest one above it that is there. Both outlive this.
    fSaveTo(Database& db, FileSystem& files, const std::string& folder, QWidget* parent);
    ~fSaveTo() override;

    /// The folder that is marked, open or not.
    std::string Folder() const;

  private:
    void Connect();
    void OpenFolder(const std::string& folder);
    void MakeFolder();

    Database& db_;
    FileSystem& files_;
    std::unique_ptr<Ui::fSaveTo> ui_;
};

}  // namespace snippetarium
