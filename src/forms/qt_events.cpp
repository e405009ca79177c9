#include "forms/qt_events.h"

#include <QApplication>

#include "forms/qt_progress.h"
#include "support/error_reporter.h"

namespace snippetarium {

namespace {

constexpr std::chrono::milliseconds kBetweenYields{10};
/// How long a new window may take until the window system shows it.
constexpr int kAppearing = 50;

}  // namespace

void QtEvents::Yield() {
    const bool hasAppeared = progress_.Refresh();
    const auto now = clock_.Steady();
    if (!hasAppeared && now - lastYield_ < kBetweenYields) return;
    const ErrorReporter::EventScope events(reporter_);
    ++depth_;
    if (hasAppeared) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, kAppearing);
    } else if (progress_.IsShown()) {
        QCoreApplication::processEvents();
    } else {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    --depth_;
    lastYield_ = clock_.Steady();
}

void QtEvents::SetPointer(Pointer pointer) {
    if (pointer == Pointer::Hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

bool IsYielding(const EventLoop& events) {
    const auto* const ofWindows = dynamic_cast<const QtEvents*>(&events);
    return ofWindows != nullptr && ofWindows->IsYielding();
}

}  // namespace snippetarium
