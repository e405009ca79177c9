#include "cli/terminal_progress.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace snippetarium {

namespace {

constexpr std::chrono::milliseconds kBetweenLines{100};
constexpr std::size_t kBarCells = 10;

/// "[####------]" for 40 to below 50 percent.
std::string Bar(double percent) {
    // The comparison also sends a value that is no number to 0.
    const double cells = percent > 0 ? std::min(percent, 100.0) * kBarCells / 100 : 0;
    const auto full = static_cast<std::size_t>(cells);
    return "[" + std::string(full, '#') + std::string(kBarCells - full, '-') + "]";
}

}  // namespace

TerminalProgress::~TerminalProgress() {
    Close();
}

void TerminalProgress::Open(std::string_view title) {
    Close();
    window_.emplace(title);
    Refresh();
}

void TerminalProgress::Close() {
    window_.reset();
    console_.ClearStatus();
}

void TerminalProgress::SetCancelHandler(std::function<void()> handler) {
    if (!window_) return;
    window_->cancelHandler = std::move(handler);
    if (!window_->cancelHandler) {
        window_->interrupts.reset();
    } else if (!window_->interrupts) {
        window_->interrupts.emplace();
    }
}

void TerminalProgress::Refresh() {
    if (!window_ || window_->isShownAsItIs || !console_.CanShowStatus()) return;
    const auto now = clock_.Steady();
    if (window_->shownAt && now - *window_->shownAt < kBetweenLines) return;
    console_.ShowStatus(Line(*window_));
    window_->shownAt = now;
    window_->isShownAsItIs = true;
}

std::function<void()> TerminalProgress::TakeCancelPress() {
    if (!window_ || !window_->interrupts || !window_->interrupts->Take()) return {};
    return window_->cancelHandler;
}

std::string TerminalProgress::Line(const Window& window) {
    const std::string& place = !window.contentLine.empty()  ? window.contentLine
                               : !window.folderLine.empty() ? window.folderLine
                                                            : window.title;
    return window.unitLabel + ' ' + Bar(window.unit) + ' ' + window.totalLabel + ' ' +
           Bar(window.total) + ' ' + place;
}

}  // namespace snippetarium
