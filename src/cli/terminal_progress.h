#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/interrupt_watch.h"
#include "support/host.h"

namespace snippetarium {

/// The progress window as one status line, rewritten at most ten times a second: both bars and the
/// line for the file at hand (for the folder, while no file is). Nothing is shown where the
/// standard error is no terminal. Ctrl+C is the Cancel button for as long as there is a handler for
/// it.
class TerminalProgress final : public Progress {
  public:
    TerminalProgress(Console& console, const Clock& clock) : console_(console), clock_(clock) {}
    ~TerminalProgress() override;
    TerminalProgress(const TerminalProgress&) = delete;
    TerminalProgress& operator=(const TerminalProgress&) = delete;

    void Open(std::string_view title) override;
    bool IsOpen() const override { return window_.has_value(); }
    void Close() override;

    void SetTitle(std::string_view text) override { Change(&Window::title, text); }
    void SetUnitLabel(std::string_view text) override { Change(&Window::unitLabel, text); }
    void SetTotalLabel(std::string_view text) override { Change(&Window::totalLabel, text); }
    void SetFolderLine(std::string_view text) override { Change(&Window::folderLine, text); }
    void SetContentLine(std::string_view text) override { Change(&Window::contentLine, text); }

    void SetUnit(double percent) override { Change(&Window::unit, percent); }
    void SetTotal(double percent) override { Change(&Window::total, percent); }
    double Unit() const override { return window_ ? window_->unit : 0; }
    double Total() const override { return window_ ? window_->total : 0; }

    void SetCancelHandler(std::function<void()> handler) override;

    /// Shows what the rate of ten lines a second has held back so far.
    void Refresh();
    /// The handler to call when Ctrl+C was pressed since the last call, else an empty one.
    std::function<void()> TakeCancelPress();

  private:
    struct Window {
        explicit Window(std::string_view windowTitle) : title(windowTitle) {}

        std::string title;
        std::string unitLabel = "Unit Progress:";
        std::string totalLabel = "Total Progress:";
        std::string folderLine;
        std::string contentLine;
        double unit = 0;
        double total = 0;
        std::function<void()> cancelHandler;
        std::optional<InterruptWatch> interrupts;
        bool isShownAsItIs = false;
        std::optional<std::chrono::steady_clock::time_point> shownAt;
    };

    template <typename Value>
    void Change(Value Window::*member, const auto& value) {
        if (!window_) return;
        (*window_).*member = value;
        window_->isShownAsItIs = false;
        Refresh();
    }
    static std::string Line(const Window& window);

    Console& console_;
    const Clock& clock_;
    std::optional<Window> window_;
};

}  // namespace snippetarium
