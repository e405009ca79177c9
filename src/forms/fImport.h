#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "import/import_job.h"
#include "import/import_selection.h"
#include "import/import_start.h"

class QListView;

namespace snippetarium {

class Database;
class EntryListModel;

namespace Ui {
class fImport;
}

/// The import of source files: from which folder, which of its files, into which application. It
/// stays open for the next one.
class fImport final : public QDialog {
    Q_OBJECT

  public:
    /// All outlive this. It starts in the folder of the last import, where that is there still.
    fImport(Database& db, const FileSystem& files, ImportState& state, QWidget* parent);
    ~fImport() override;

    /// Esc, Exit and the close box; nothing while a job runs.
    void reject() override;

  signals:
    /// A job has ended: the application that it imported into, and its classes, may be others now.
    void Imported(std::int32_t appID);

  protected:
    /// Enter in a list of files moves what is selected there.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Working;

    void ConnectFolders();
    void ConnectLists();
    void ConnectTexts();
    void OnEvent(const std::function<void()>& body);

    void TakeFirstFolder();
    void TakeFolder(const std::string& folder);
    void Browse();
    void IncludeSubfolder();
    void MoveChosen(QListView* from);
    void Drop(const std::vector<std::string>& paths);
    void Import();
    void ShowEnding(const ImportOutcome& outcome);
    void FocusOn(ImportControl control);

    void ShowSelection();
    void ShowTexts();
    void ShowPreviewOf(QListView* list);
    std::string Encoding() const;

    Database& db_;
    const FileSystem& files_;
    ImportState& state_;
    ImportSelection selection_;
    std::unique_ptr<Ui::fImport> ui_;
    EntryListModel* folderFiles_ = nullptr;
    EntryListModel* sourceFiles_ = nullptr;
    EntryListModel* selectedFiles_ = nullptr;
    bool isWorking_ = false;
};

}  // namespace snippetarium
