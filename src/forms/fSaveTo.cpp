#include "forms/fSaveTo.h"

#include <QDir>
#include <QInputDialog>

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "navigator/help.h"
#include "store/database.h"
#include "support/file_system.h"
#include "support/paths.h"
#include "ui_fSaveTo.h"

namespace snippetarium {

namespace {

std::string NearestFolder(const FileSystem& files, std::string folder) {
    while (!folder.empty() && !files.FolderExists(folder))
        folder = std::string(ParentFolder(folder));
    return folder.empty() ? FromQt(QDir::homePath()) : folder;
}

}  // namespace

fSaveTo::fSaveTo(Database& db, FileSystem& files, const std::string& folder, QWidget* parent)
    : QDialog(parent), db_(db), files_(files), ui_(std::make_unique<Ui::fSaveTo>()) {
    ui_->setupUi(this);
    ui_->dlstDir->SetFiles(files_);
    FillDriveList(ui_->dlstDrive);
    Connect();
    OpenFolder(NearestFolder(files_, folder));
}

fSaveTo::~fSaveTo() = default;

void fSaveTo::Connect() {
    const auto onEvent = [this](const auto& body) {
        Handle(db_.Reporter(), Procedure::SaveToEvent, body);
    };
    connect(ui_->dlstDrive, &QComboBox::activated, this, [this, onEvent](int row) {
        onEvent([&] { OpenFolder(FromQt(ui_->dlstDrive->itemData(row).toString())); });
    });
    connect(
        ui_->dlstDir, &FolderList::FolderChosen, this,
        [this, onEvent](const std::string& folder) { onEvent([&] { OpenFolder(folder); }); },
        Qt::QueuedConnection);
    connect(ui_->cmdNewFolder, &QPushButton::clicked, this,
            [this, onEvent] { onEvent([this] { MakeFolder(); }); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    const auto openHelp = [this] { OpenHelp(db_, AnchorOf("fSaveTo")); };
    connect(ui_->cmdHelp, &QPushButton::clicked, this, openHelp);
    new HelpKey(this, openHelp);
}

std::string fSaveTo::Folder() const {
    return ui_->dlstDir->MarkedFolder();
}

void fSaveTo::OpenFolder(const std::string& folder) {
    ui_->dlstDir->Open(folder);
    SelectDriveOf(ui_->dlstDrive, folder);
    ui_->dlstDir->setFocus();
}

void fSaveTo::MakeFolder() {
    QInputDialog dialog(this);
    dialog.setWindowTitle(tr("New Folder"));
    dialog.setLabelText(tr("Name of the new folder in %1:").arg(ToQt(Folder())));
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    const QString name = dialog.textValue().trimmed();
    if (name.isEmpty()) return;
    const std::string path = ToPlatformPath(JoinPath(Folder(), FromQt(name)));
    files_.MakeFolders(path);
    OpenFolder(path);
}

}  // namespace snippetarium
