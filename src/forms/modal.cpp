#include "forms/modal.h"

#include <QApplication>
#include <QDialog>

#include "forms/window_size.h"
#include "support/error_reporter.h"

namespace snippetarium {

int RunModal(QDialog& dialog, ErrorReporter& reporter) {
    const ErrorReporter::EventScope events(reporter);
    // An hourglass over a question would say that the program is busy.
    const QCursor* const busy = QApplication::overrideCursor();
    const bool wasBusy = busy != nullptr;
    const QCursor shape = wasBusy ? *busy : QCursor();
    if (wasBusy) QApplication::changeOverrideCursor(Qt::ArrowCursor);
    FitOnScreen(dialog);
    const int result = dialog.exec();
    if (wasBusy) QApplication::changeOverrideCursor(shape);
    return result;
}

}  // namespace snippetarium
