#include "forms/fProgressBar1.h"

#include "forms/qt_text.h"
#include "ui_fProgressBar1.h"

namespace snippetarium {

fProgressBar1::fProgressBar1(QWidget* parent)
    : ProgressWindow(parent), ui_(std::make_unique<Ui::fProgressBar1>()) {
    ui_->setupUi(this);
}

fProgressBar1::~fProgressBar1() = default;

void fProgressBar1::Show(const ProgressContents& contents) {
    setWindowTitle(ToQt(WaitingCaption(contents.title)));
    SetLine(ui_->lblTitle, contents.title);
    SetPercent(ui_->prgBar, ShareDone(contents));
    SetLine(ui_->lblContent, contents.contentLine);
}

}  // namespace snippetarium
