#pragma once

#include <QDialog>
#include <memory>
#include <string>
#include <string_view>

namespace snippetarium {

class Database;

namespace Ui {
class fLogError;
}

/// The report of an import or an export, which can be saved as a file.
class fLogError final : public QDialog {
    Q_OBJECT

  public:
    /// `label` stands above the report; both come from support/import_export_report.h.
    fLogError(Database& db, std::string_view label, std::string_view report, QWidget* parent);
    ~fLogError() override;

  private:
    void SaveAs();

    Database& db_;
    std::string report_;
    std::unique_ptr<Ui::fLogError> ui_;
};

}  // namespace snippetarium
