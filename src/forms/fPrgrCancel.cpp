#include "forms/fPrgrCancel.h"

#include "forms/qt_text.h"
#include "ui_fPrgrCancel.h"

namespace snippetarium {

fPrgrCancel::fPrgrCancel(QWidget* parent)
    : ProgressWindow(parent), ui_(std::make_unique<Ui::fPrgrCancel>()) {
    ui_->setupUi(this);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &ProgressWindow::CancelPressed);
}

fPrgrCancel::~fPrgrCancel() = default;

void fPrgrCancel::Show(const ProgressContents& contents) {
    setWindowTitle(ToQt(WaitingCaption(contents.title)));
    SetLine(ui_->lblTitle, contents.title);
    SetPercent(ui_->prgBar, ShareDone(contents));
    SetLine(ui_->lblContent, contents.contentLine);
    ui_->lblTimeLeft->setText(TimeLeftText(contents));
    ui_->cmdCancel->setEnabled(contents.canBeCancelled);
}

}  // namespace snippetarium
