#include "forms/fProgressBar2.h"

#include "forms/qt_text.h"
#include "ui_fProgressBar2.h"

namespace snippetarium {

fProgressBar2::fProgressBar2(QWidget* parent)
    : ProgressWindow(parent), ui_(std::make_unique<Ui::fProgressBar2>()) {
    ui_->setupUi(this);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &ProgressWindow::CancelPressed);
}

fProgressBar2::~fProgressBar2() = default;

void fProgressBar2::Show(const ProgressContents& contents) {
    SetLine(ui_->lblTitle, contents.title);
    SetLine(ui_->lblUnit, contents.unitLabel);
    SetPercent(ui_->prgUnit, contents.unit);
    SetLine(ui_->lblTotal, contents.totalLabel);
    SetPercent(ui_->prgTotal, contents.total);
    SetLine(ui_->lblFolders, contents.folderLine);
    SetLine(ui_->lblContent, contents.contentLine);
    ui_->lblTimeLeft->setText(TimeLeftText(contents));
    ui_->cmdCancel->setEnabled(contents.canBeCancelled);
}

}  // namespace snippetarium
