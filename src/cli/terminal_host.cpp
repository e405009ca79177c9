#include "cli/terminal_host.h"

#include <functional>

namespace snippetarium {

void TerminalEvents::Yield() {
    progress_.Refresh();
    const std::function<void()> handler = progress_.TakeCancelPress();
    if (!handler) return;
    const ErrorReporter::EventScope events(reporter_);
    boxes_.AnswerCancelPress(handler);
}

}  // namespace snippetarium
