#include "forms/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

#include "forms/fMsgBox.h"
#include "forms/modal.h"
#include "forms/qt_text.h"

namespace snippetarium {

struct QtMessageBoxes::Box {
    QMessageBox::Icon icon = QMessageBox::Information;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    /// What Esc and the window's close box mean.
    QMessageBox::StandardButton escape = QMessageBox::Ok;
    std::string_view message;
    std::string_view title;
};

void QtMessageBoxes::Information(std::string_view message, std::string_view title) {
    Show({.message = message, .title = title});
}

void QtMessageBoxes::Warning(std::string_view message, std::string_view title) {
    Show({.icon = QMessageBox::Warning, .message = message, .title = title});
}

void QtMessageBoxes::Error(std::string_view message, std::string_view title) {
    Show({.icon = QMessageBox::Critical, .message = message, .title = title});
}

StandardAnswer QtMessageBoxes::YesNo(std::string_view question, std::string_view title) {
    const int button = Show({.icon = QMessageBox::Question,
                             .buttons = QMessageBox::Yes | QMessageBox::No,
                             .escape = QMessageBox::No,
                             .message = question,
                             .title = title});
    return button == QMessageBox::Yes ? StandardAnswer::Yes : StandardAnswer::No;
}

StandardAnswer QtMessageBoxes::YesNoCancel(std::string_view question, std::string_view title) {
    const int button = Show({.icon = QMessageBox::Question,
                             .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                             .escape = QMessageBox::Cancel,
                             .message = question,
                             .title = title});
    if (button == QMessageBox::Yes) return StandardAnswer::Yes;
    return button == QMessageBox::No ? StandardAnswer::No : StandardAnswer::Cancel;
}

SeriesAnswer QtMessageBoxes::Series(std::string_view question) {
    fMsgBox box(question, openHelp_, QApplication::activeWindow());
    RunModal(box, *reporter_);
    return box.Answer();
}

int QtMessageBoxes::Show(const Box& box) {
    QMessageBox window(box.icon, ToQt(box.title), LinesToQt(box.message), box.buttons,
                       QApplication::activeWindow());
    window.setTextFormat(Qt::PlainText);
    window.setTextInteractionFlags(Qt::TextSelectableByMouse);
    window.setEscapeButton(box.escape);
    window.setDefaultButton(QMessageBox::NoButton);
    return RunModal(window, *reporter_);
}

}  // namespace snippetarium
