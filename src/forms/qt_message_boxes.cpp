#include "forms/qt_message_boxes.h"

#include <QApplication>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMainWindow>
#include <QMessageBox>

#include "forms/fMsgBox.h"
#include "forms/modal.h"
#include "forms/qt_text.h"

namespace snippetarium {

namespace {

/// What a title bar needs beside its title, in widths of its letters.
constexpr int kLettersOfTitleButtons = 16;

/// The window that a box is to stand over. None is active while the window system hands the focus
/// on from a window that has just closed.
QWidget* WindowInFront() {
    if (QWidget* const active = QApplication::activeWindow()) return active;
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
    }
    return nullptr;
}

/// A short message must not make the box narrower than its title.
void MakeRoomForTitle(QMessageBox& box) {
    auto* const layout = qobject_cast<QGridLayout*>(box.layout());
    if (layout == nullptr) return;
    const QFontMetrics metrics = box.fontMetrics();
    const int width = metrics.horizontalAdvance(box.windowTitle()) +
                      kLettersOfTitleButtons * metrics.averageCharWidth();
    layout->addItem(new QSpacerItem(width, 0), layout->rowCount(), 0, 1, layout->columnCount());
}

}  // namespace

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
    Prepare();
    fMsgBox box(question, openHelp_, WindowInFront());
    RunModal(box, *reporter_);
    return box.Answer();
}

void QtMessageBoxes::Prepare() const {
    if (prepare_) prepare_();
}

int QtMessageBoxes::Show(const Box& box) {
    Prepare();
    QMessageBox window(box.icon, ToQt(box.title), LinesToQt(box.message), box.buttons,
                       WindowInFront());
    window.setTextFormat(Qt::PlainText);
    window.setTextInteractionFlags(Qt::TextSelectableByMouse);
    window.setEscapeButton(box.escape);
    window.setDefaultButton(QMessageBox::NoButton);
    MakeRoomForTitle(window);
    return RunModal(window, *reporter_);
}

}  // namespace snippetarium
