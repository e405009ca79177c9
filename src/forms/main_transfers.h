#pragma once

#include <QObject>
#include <optional>

#include "import/import_state.h"
#include "navigator/node_requests.h"
#include "support/disk_file_system.h"

class QWidget;

namespace snippetarium {

class Database;
class fContents;

/// The imports and exports of the main window.
class MainTransfers final : public QObject {
    Q_OBJECT

  public:
    /// All outlive this.
    MainTransfers(Database& db, QWidget& window, fContents& contents);

    /// Opens the import dialog. After each import in it the contents show what is new, and the
    /// application that was imported into is selected.
    void Import();
    /// Opens the export dialog; does nothing without a target.
    void Export(const std::optional<ExportTarget>& target);

  private:
    Database& db_;
    QWidget& window_;
    fContents& contents_;
    DiskFileSystem files_;
    ImportState importState_;
};

}  // namespace snippetarium
