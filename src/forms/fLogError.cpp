#include "forms/fLogError.h"

#include <QFileDialog>

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "navigator/help.h"
#include "store/database.h"
#include "support/disk_file_system.h"
#include "support/import_export_report.h"
#include "support/message_boxes.h"
#include "ui_fLogError.h"

namespace snippetarium {

namespace {

/// The filters of a file dialog, "All Files (*.*)|*.*|Text Files (*.txt)|*.txt", as Qt takes them:
/// the descriptions alone, which hold the patterns.
QStringList NameFilters(std::string_view filter) {
    const QStringList parts = ToQt(filter).split('|');
    QStringList descriptions;
    for (qsizetype i = 0; i < parts.size(); i += 2)
        descriptions << parts[i];
    return descriptions;
}

}  // namespace

fLogError::fLogError(Database& db, std::string_view label, std::string_view report, QWidget* parent)
    : QDialog(parent), db_(db), report_(report), ui_(std::make_unique<Ui::fLogError>()) {
    ui_->setupUi(this);
    ui_->lblLog->setText(ToQt(label));
    ui_->txtLog->setPlainText(LinesToQt(report));
    connect(ui_->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdSaveAS, &QPushButton::clicked, this,
            [this] { Handle(db_.Reporter(), Procedure::SaveReport, [this] { SaveAs(); }); });
    new HelpKey(this, [this] {
        Handle(db_.Reporter(), Procedure::SaveReport,
               [this] { OpenHelp(db_, AnchorOf("fLogError")); });
    });
}

fLogError::~fLogError() = default;

void fLogError::SaveAs() {
    QFileDialog dialog(this, ToQt(kSaveReportTitle));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(NameFilters(kSaveReportFilter));
    dialog.selectFile(ui_->lblLog->text().remove(':') + ".txt");
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    DiskFileSystem().WriteFile(FromQt(dialog.selectedFiles().value(0)), report_);
    ShowInformation(db_.GetHost().messages, kReportSaved, kInformationTitle);
}

}  // namespace snippetarium
