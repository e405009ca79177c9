#include "forms/fExport.h"

#include <QDir>
#include <QScopedValueRollback>

#include "export/export_job.h"
#include "forms/fLogError.h"
#include "forms/fSaveTo.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "navigator/help.h"
#include "store/database.h"
#include "store/settings.h"
#include "support/import_export_report.h"
#include "support/message_boxes.h"
#include "ui_fExport.h"

namespace snippetarium {

namespace {

constexpr std::string_view kFolderSetting = "export.folder";
constexpr std::string_view kNoFolder = "Please enter a folder to export to.";

}  // namespace

fExport::fExport(Database& db, FileSystem& files, const ExportTarget& target, QWidget* parent)
    : QDialog(parent),
      db_(db),
      files_(files),
      target_(target),
      ui_(std::make_unique<Ui::fExport>()) {
    ui_->setupUi(this);
    setWindowTitle(ToQt(target_.title));
    ui_->lblExport->setText(
        IsApplication() ? tr("Every class that has a path is written below the folder, under its "
                             "path. Folders are made as needed.")
                        : tr("It is written into one file, its procedures in their places."));
    ui_->lblExport->setVisible(target_.kind != NodeKind::Procedure);
    ui_->lblFileName->setVisible(!IsApplication());
    ui_->txtFileName->setVisible(!IsApplication());
    ui_->txtFileName->setText(ToQt(target_.fileName));
    const std::string folder = Setting(db_, kFolderSetting);
    ui_->txtFolder->setText(folder.empty() ? QDir::homePath() : ToQt(folder));
    Connect();
    resize(width(), sizeHint().height());
}

fExport::~fExport() = default;

void fExport::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::ExportEvent, [&] {
        if (isWorking_) return;
        const QScopedValueRollback working(isWorking_, true);
        // An operation that fails has reported it; the form then goes on with what there is.
        const ErrorReporter::EventScope operations(db_.Reporter());
        body();
    });
}

void fExport::Connect() {
    connect(ui_->cmdSaveTo, &QPushButton::clicked, this, [this] { OnEvent([this] { Browse(); }); });
    connect(ui_->cmdExport, &QPushButton::clicked, this, [this] { OnEvent([this] { Export(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &fExport::reject);
    const auto openHelp = [this] { OpenHelp(db_, AnchorOf("fExport")); };
    connect(ui_->cmdHelp, &QPushButton::clicked, this, openHelp);
    new HelpKey(this, openHelp);
}

void fExport::reject() {
    if (!isWorking_) QDialog::reject();
}

/// The typed folder, absolute: "~/src" and "src" begin at the user's own one.
std::string fExport::Destination() const {
    QString folder = ui_->txtFolder->text().trimmed();
    if (folder == "~" || folder.startsWith("~/")) folder.replace(0, 1, QDir::homePath());
    return folder.isEmpty() ? std::string() : FromQt(QDir::home().absoluteFilePath(folder));
}

void fExport::Browse() {
    fSaveTo dialog(db_, files_, Destination(), this);
    if (RunModal(dialog, db_.Reporter()) == QDialog::Accepted)
        ui_->txtFolder->setText(ToQt(dialog.Folder()));
}

void fExport::Export() {
    const std::string folder = Destination();
    if (folder.empty()) {
        ShowInformation(db_.GetHost().messages, kNoFolder, kInformationTitle);
        return ui_->txtFolder->setFocus();
    }
    const ExportResult result = Write(folder);
    if (!result.problems.empty()) ShowReport(result);
    if (result.outcome == ExportOutcome::Refused) {
        ui_->txtFileName->setFocus();
        ui_->txtFileName->selectAll();
    }
    if (result.outcome != ExportOutcome::Finished) return;
    if (!db_.IsReadOnly()) StoreSetting(db_, kFolderSetting, folder);
    accept();
}

ExportResult fExport::Write(const std::string& folder) {
    if (IsApplication()) return ExportApplication(db_, files_, {target_.node.appID, folder});
    FileExport request{.destinationFolder = folder,
                       .fileName = FromQt(ui_->txtFileName->text().trimmed())};
    if (target_.kind == NodeKind::Class) {
        request.id = target_.node.classID;
        return ExportClass(db_, files_, request);
    }
    request.id = target_.node.codeID;
    return ExportProcedure(db_, files_, request);
}

void fExport::ShowReport(const ExportResult& result) {
    fLogError report(db_, kExportReportLabel, ExportReport(result), this);
    RunModal(report, db_.Reporter());
}

}  // namespace snippetarium
