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

std::optional<ErrorDetails> TerminalHost::FirstFailure() const {
    if (const auto& reported = reporter_.FirstReported()) return reported;
    if (const auto& text = boxes_.FirstError()) return ErrorDetails{0, *text};
    if (boxes_.WasRefused()) return ErrorDetails{0, "A question could not be put to anybody."};
    return std::nullopt;
}

std::string TerminalHost::ReasonOfRefusal(const std::string& refusal) const {
    const std::optional<std::string>& reason = boxes_.LastInformation();
    return reason ? *reason + " " + refusal : refusal;
}

}  // namespace snippetarium
