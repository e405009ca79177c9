#include "forms/fApplication.h"

#include <QDir>
#include <QFileDialog>

#include "forms/qt_text.h"
#include "support/paths.h"
#include "ui_fApplication.h"

namespace snippetarium {

fApplication::fApplication(Database& db, std::unique_ptr<ApplicationEditor> editor)
    : EditorWindow(db, std::move(editor),
                   {.form = "fApplication", .procedure = Procedure::ApplicationEvent}),
      ui_(std::make_unique<Ui::fApplication>()) {
    ui_->setupUi(this);
    Connect();
    Start(ui_->footer);
    ui_->txtName->selectAll();
}

fApplication::~fApplication() = default;

ApplicationRecord& fApplication::Record() const {
    return static_cast<ApplicationEditor&>(Editor()).Record();
}

void fApplication::Connect() {
    for (const QLineEdit* line : {ui_->txtName, ui_->txtPath, ui_->txtVersion})
        connect(line, &QLineEdit::textChanged, this, &fApplication::Touch);
    connect(ui_->cmdPath, &QPushButton::clicked, this,
            [this] { OnEvent([this] { BrowsePath(); }); });
    Serve(ui_->txtComment);
    ui_->cmdPath->setEnabled(!IsReadOnly());
}

void fApplication::ShowRecord() {
    const ApplicationRecord& record = Record();
    ui_->txtName->setText(ToQt(record.name));
    ui_->txtPath->setText(PathToQt(record.path));
    ui_->txtVersion->setText(ToQt(record.version));
    ui_->txtComment->SetCode(record.comment);
}

void fApplication::TakeRecord() {
    ApplicationRecord& record = Record();
    record.name = FromQt(ui_->txtName->text());
    TakePath(ui_->txtPath->text(), record.path);
    record.version = FromQt(ui_->txtVersion->text());
    record.comment = ui_->txtComment->Code();
}

void fApplication::BrowsePath() {
    const QString path = ToQt(ToPlatformPath(FromQt(ui_->txtPath->text())));
    const QString start = !path.isEmpty() && QDir(path).exists() ? path : QDir::homePath();
    const QString chosen = QFileDialog::getExistingDirectory(this, tr("Select a Folder"), start);
    if (!chosen.isEmpty()) ui_->txtPath->setText(PathToQt(FromQt(chosen)));
}

}  // namespace snippetarium
