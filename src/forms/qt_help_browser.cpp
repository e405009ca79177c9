#include "forms/qt_help_browser.h"

#include <QApplication>
#include <QWindow>

#include "forms/help_window.h"
#include "forms/qt_text.h"
#include "support/paths.h"

namespace snippetarium {

QtHelpBrowser::QtHelpBrowser() = default;
QtHelpBrowser::~QtHelpBrowser() = default;

bool QtHelpBrowser::IsVisible() const {
    return window_ && window_->isVisible();
}

void QtHelpBrowser::Create() {
    if (!window_) window_ = std::make_unique<HelpWindow>();
}

void QtHelpBrowser::Navigate(std::string_view address) {
    if (!window_) return;
    window_->Navigate(ToQt(ToPlatformPath(address)));
    // A dialog that waits for its answer keeps input from all windows but its own; help asked for
    // out of a dialog has to be one of these. That takes effect when the window is shown anew.
    QWidget* const dialog = QApplication::activeModalWidget();
    window_->winId();
    QWindow* const owner = dialog == nullptr ? nullptr : dialog->windowHandle();
    if (window_->windowHandle()->transientParent() != owner) {
        window_->hide();
        window_->windowHandle()->setTransientParent(owner);
    }
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void QtHelpBrowser::Close() {
    window_.reset();
}

}  // namespace snippetarium
