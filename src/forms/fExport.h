#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "export/export_result.h"
#include "navigator/node_requests.h"

namespace snippetarium {

class Database;
class FileSystem;

namespace Ui {
class fExport;
}

/// The export of an application, a class or a procedure: where it goes. It closes when the export
/// has come to its end, and stays for another try where it was refused or stopped.
class fExport final : public QDialog {
    Q_OBJECT

  public:
    /// `db` and `files` outlive this. It proposes the folder of the last export.
    fExport(Database& db, FileSystem& files, const ExportTarget& target, QWidget* parent);
    ~fExport() override;

    /// Nothing while an export runs.
    void reject() override;

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    bool IsApplication() const { return target_.kind == NodeKind::Application; }
    std::string Destination() const;
    void Browse();
    void Export();
    ExportResult Write(const std::string& folder);
    void ShowReport(const ExportResult& result);

    Database& db_;
    FileSystem& files_;
    ExportTarget target_;
    std::unique_ptr<Ui::fExport> ui_;
    bool isWorking_ = false;
};

}  // namespace snippetarium
