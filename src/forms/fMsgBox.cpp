#include "forms/fMsgBox.h"

#include <QPushButton>
#include <QStyle>
#include <utility>

#include "forms/help_key.h"
#include "forms/qt_text.h"
#include "ui_fMsgBox.h"

namespace snippetarium {

fMsgBox::fMsgBox(std::string_view question, const OpenHelp& openHelp, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::fMsgBox>()) {
    ui_->setupUi(this);
    ui_->lblMsg->setText(LinesToQt(question));
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    ui_->lblIcon->setPixmap(
        style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(side, side));
    const std::pair<QPushButton*, SeriesAnswer> answers[] = {
        {ui_->cmdYes, SeriesAnswer::Yes},       {ui_->cmdYesToAll, SeriesAnswer::YesToAll},
        {ui_->cmdNo, SeriesAnswer::No},         {ui_->cmdNoToAll, SeriesAnswer::NoToAll},
        {ui_->cmdCancel, SeriesAnswer::Cancel},
    };
    for (const auto& [button, answer] : answers) {
        connect(button, &QPushButton::clicked, this, [this, answer = answer] {
            answer_ = answer;
            accept();
        });
    }
    new HelpKey(this, [openHelp] {
        if (openHelp) openHelp("UseReuseExport");
    });
}

fMsgBox::~fMsgBox() = default;

}  // namespace snippetarium
