#include "forms/fImport.h"

#include <QDir>
#include <QFileDialog>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>

#include "forms/encoding_box.h"
#include "forms/entry_list_model.h"
#include "forms/fLogError.h"
#include "forms/file_drop_target.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "forms/shown_report.h"
#include "navigator/help.h"
#include "store/database.h"
#include "store/settings.h"
#include "support/import_export_report.h"
#include "ui_fImport.h"

namespace snippetarium {

namespace {

constexpr std::string_view kFolderSetting = "import.folder";

std::vector<std::size_t> ChosenRows(const QListView* list) {
    std::vector<std::size_t> rows;
    for (const QModelIndex& index : list->selectionModel()->selectedIndexes())
        rows.push_back(static_cast<std::size_t>(index.row()));
    return rows;
}

}  // namespace

/// While a job, or a question before one, lets events run.
class fImport::Working {
  public:
    explicit Working(fImport& form) : form_(form), isWorking_(form.isWorking_, true) {
        form_.ui_->panePreview->SetPaused(true);
    }
    ~Working() { form_.ui_->panePreview->SetPaused(false); }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

  private:
    fImport& form_;
    QScopedValueRollback<bool> isWorking_;
};

fImport::fImport(Database& db, const FileSystem& files, ImportState& state, QWidget* parent)
    : QDialog(parent),
      db_(db),
      files_(files),
      state_(state),
      selection_(db, files, state),
      ui_(std::make_unique<Ui::fImport>()) {
    ui_->setupUi(this);
    ui_->splitter->setSizes({200, 480, 300});
    folderFiles_ = new EntryListModel(selection_.FolderFiles(), this);
    sourceFiles_ = new EntryListModel(selection_.SourceFiles(), this);
    selectedFiles_ = new EntryListModel(selection_.SelectedFiles(), this);
    ui_->flstSrcFiles->setModel(folderFiles_);
    ui_->lstSrcFiles->setModel(sourceFiles_);
    ui_->lstSelFiles->setModel(selectedFiles_);
    ui_->panePreview->SetUp(db_.GetHost(), files_);
    FillEncodingBox(ui_->cmbEncoding, Setting(db_, kEncodingSetting));
    ConnectFolders();
    ConnectLists();
    ConnectTexts();
    OnEvent([this] { TakeFirstFolder(); });
    ui_->dlstSrcDir->setFocus();
}

fImport::~fImport() = default;

void fImport::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::ImportEvent, [&] {
        if (isWorking_) return;
        const Working working(*this);
        // An operation that fails has reported it; the form then goes on with what there is.
        const ErrorReporter::EventScope operations(db_.Reporter());
        body();
    });
}

void fImport::ConnectFolders() {
    ui_->dlstSrcDir->SetFiles(files_);
    FillDriveList(ui_->dlstSrcDrive);
    connect(ui_->dlstSrcDrive, &QComboBox::activated, this, [this](int row) {
        OnEvent([&] { TakeFolder(FromQt(ui_->dlstSrcDrive->itemData(row).toString())); });
    });
    // Opening a folder takes away the item that was clicked.
    connect(
        ui_->dlstSrcDir, &FolderList::FolderChosen, this,
        [this](const std::string& folder) { OnEvent([&] { TakeFolder(folder); }); },
        Qt::QueuedConnection);
    connect(ui_->cmdBrowse, &QPushButton::clicked, this, [this] { OnEvent([this] { Browse(); }); });
    connect(ui_->chkSubfolder, &QCheckBox::toggled, this,
            [this] { OnEvent([this] { IncludeSubfolder(); }); });
}

void fImport::ConnectLists() {
    const auto onClick = [this](QPushButton* button, void (ImportSelection::*operation)()) {
        connect(button, &QPushButton::clicked, this, [this, operation] {
            OnEvent([&] {
                (selection_.*operation)();
                ShowSelection();
            });
        });
    };
    onClick(ui_->cmdAddAll, &ImportSelection::AddAll);
    onClick(ui_->cmdRmvAll, &ImportSelection::RemoveAll);
    connect(ui_->cmdAddOne, &QPushButton::clicked, this,
            [this] { OnEvent([this] { MoveChosen(ui_->lstSrcFiles); }); });
    connect(ui_->cmdRmvOne, &QPushButton::clicked, this,
            [this] { OnEvent([this] { MoveChosen(ui_->lstSelFiles); }); });
    for (QListView* list : {ui_->lstSrcFiles, ui_->lstSelFiles}) {
        list->setItemDelegate(new EntryRows(list));
        list->installEventFilter(this);
        connect(list, &QListView::doubleClicked, this,
                [this, list] { OnEvent([this, list] { MoveChosen(list); }); });
        connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
                [this, list] { ShowPreviewOf(list); });
        connect(list, &QListView::clicked, this, [this, list] { ShowPreviewOf(list); });
    }
    // The program that the files are dragged from waits until the drop is over.
    connect(
        new FileDropTarget(ui_->lstSelFiles), &FileDropTarget::Dropped, this,
        [this](const std::vector<std::string>& paths) { OnEvent([&] { Drop(paths); }); },
        Qt::QueuedConnection);
}

void fImport::ConnectTexts() {
    connect(ui_->txtApp, &QLineEdit::textEdited, this,
            [this](const QString& text) { selection_.Texts().application = FromQt(text); });
    connect(ui_->txtAppPath, &QLineEdit::textEdited, this,
            [this](const QString& text) { selection_.Texts().applicationPath = FromQt(text); });
    connect(ui_->txtLanguage, &QLineEdit::textEdited, this,
            [this](const QString& text) { selection_.Texts().language = FromQt(text); });
    connect(ui_->cmbEncoding, &QComboBox::activated, this, [this] {
        ui_->panePreview->SetEncoding(Encoding());
        StoreSetting(db_, kEncodingSetting, Encoding());
    });
    ui_->panePreview->SetEncoding(Encoding());
    connect(ui_->cmdImport, &QPushButton::clicked, this, [this] { OnEvent([this] { Import(); }); });
    connect(ui_->cmdExit, &QPushButton::clicked, this, &fImport::reject);
    const auto openHelp = [this] { OpenHelp(db_, AnchorOf("fImport")); };
    connect(ui_->cmdHelp, &QPushButton::clicked, this, openHelp);
    new HelpKey(this, openHelp);
}

void fImport::reject() {
    if (isWorking_) return;
    // A preview that is being made would keep the window's caller waiting.
    ui_->panePreview->SetPaused(true);
    QDialog::reject();
}

bool fImport::eventFilter(QObject* watched, QEvent* event) {
    auto* const list = qobject_cast<QListView*>(watched);
    if (list == nullptr || event->type() != QEvent::KeyPress) {
        return QDialog::eventFilter(watched, event);
    }
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool isRemoval = key == Qt::Key_Delete && list == ui_->lstSelFiles;
    if (!isEnter && !isRemoval) return false;
    OnEvent([&] { MoveChosen(list); });
    return true;
}

void fImport::TakeFirstFolder() {
    const std::string last = Setting(db_, kFolderSetting);
    const bool isThere = !last.empty() && files_.FolderExists(last);
    TakeFolder(isThere ? last : FromQt(QDir::homePath()));
}

/// Where the folder is not taken, because the user keeps his selection or it cannot be read, the
/// list shows the one that was taken before.
void fImport::TakeFolder(const std::string& folder) {
    if (selection_.ChangeFolder(folder)) ui_->panePreview->Forget();
    ui_->dlstSrcDir->Open(selection_.Folder(), selection_.Subfolders());
    SelectDriveOf(ui_->dlstSrcDrive, selection_.Folder());
    ShowSelection();
}

void fImport::Browse() {
    QFileDialog dialog(this, tr("Folder"), ToQt(selection_.Folder()));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (RunModal(dialog, db_.Reporter()) != QDialog::Accepted) return;
    TakeFolder(FromQt(dialog.selectedFiles().value(0)));
}

void fImport::IncludeSubfolder() {
    selection_.SetIncludeSubfolder(ui_->chkSubfolder->isChecked());
    ShowSelection();
}

void fImport::MoveChosen(QListView* from) {
    const std::vector<std::size_t> rows = ChosenRows(from);
    if (rows.empty()) return;
    if (from == ui_->lstSrcFiles) {
        selection_.AddOne(rows);
    } else {
        selection_.RemoveOne(rows);
    }
    ShowSelection();
    // The next file is at hand, so that Enter after Enter goes down the list.
    const auto next = static_cast<int>(*std::ranges::min_element(rows));
    const int last = from->model()->rowCount() - 1;
    from->setCurrentIndex(from->model()->index(std::min(next, last), 0));
}

void fImport::Drop(const std::vector<std::string>& paths) {
    selection_.Drop(paths);
    ui_->dlstSrcDir->Open(selection_.Folder(), selection_.Subfolders());
    SelectDriveOf(ui_->dlstSrcDrive, selection_.Folder());
    ShowSelection();
}

void fImport::Import() {
    const std::vector<std::string>& entries = selection_.SelectedFiles();
    const ImportStart start = StartImport(db_, state_, selection_.Texts(), entries.size());
    if (!start.mayStart) return FocusOn(start.focus);
    StoreSetting(db_, kFolderSetting, selection_.Folder());
    const NoiseWords noise = LoadNoiseWords(db_);
    const ImportOutcome outcome =
        ImportJob(db_, files_, state_, noise, ProgramAnalysers())
            .Run({.folder = selection_.Folder(),
                  .entries = entries,
                  .target = {.appID = start.appID, .language = selection_.Texts().language},
                  .encoding = Encoding(),
                  .problems = selection_.Problems()});
    ui_->lblTime->setText(ToQt(outcome.time));
    ShowEnding(outcome);
    emit Imported(start.appID);
}

void fImport::ShowEnding(const ImportOutcome& outcome) {
    if (outcome.ending != ImportEnding::WithProblems) {
        return ShowImportEnding(db_.GetHost().messages, outcome.ending);
    }
    const JobTexts texts = ShownTexts(outcome.texts, selection_.SelectedFiles());
    fLogError report(db_, kImportReportLabel, ImportReportText(texts), this);
    RunModal(report, db_.Reporter());
}

void fImport::FocusOn(ImportControl control) {
    switch (control) {
        case ImportControl::SelectedFiles:
            return ui_->lstSelFiles->setFocus();
        case ImportControl::ApplicationPath:
            return ui_->txtAppPath->setFocus();
        case ImportControl::Language:
            return ui_->txtLanguage->setFocus();
        case ImportControl::Application:
            return ui_->txtApp->setFocus();
        case ImportControl::None:
            break;
    }
}

void fImport::ShowSelection() {
    for (EntryListModel* list : {folderFiles_, sourceFiles_, selectedFiles_})
        list->Refresh();
    const MoveButtons enabled = selection_.EnabledButtons();
    ui_->cmdAddOne->setEnabled(enabled.addOne);
    ui_->cmdAddAll->setEnabled(enabled.addAll);
    ui_->cmdRmvOne->setEnabled(enabled.removeOne);
    ui_->cmdRmvAll->setEnabled(enabled.removeAll);
    const QSignalBlocker quiet(ui_->chkSubfolder);
    ui_->chkSubfolder->setChecked(selection_.IncludesSubfolder());
    ShowTexts();
}

void fImport::ShowTexts() {
    const ImportTexts& texts = selection_.Texts();
    ui_->txtApp->setText(ToQt(texts.application));
    ui_->txtAppPath->setText(ToQt(texts.applicationPath));
    ui_->txtLanguage->setText(ToQt(texts.language));
}

void fImport::ShowPreviewOf(QListView* list) {
    const QModelIndex index = list->currentIndex();
    if (index.isValid()) {
        const QString entry = index.data(EntryListModel::kEntryRole).toString();
        ui_->panePreview->ShowFile(selection_.Folder(), FromQt(entry));
    }
}

std::string fImport::Encoding() const {
    return FromQt(ui_->cmbEncoding->currentText());
}

}  // namespace snippetarium
