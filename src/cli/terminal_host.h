#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/console.h"
#include "cli/terminal_boxes.h"
#include "cli/terminal_progress.h"
#include "support/error_reporter.h"
#include "support/host.h"
#include "support/system_clock.h"

namespace snippetarium {

/// The terminal's events are one: Ctrl+C, while a job that can be cancelled runs.
class TerminalEvents final : public EventLoop {
  public:
    TerminalEvents(TerminalProgress& progress, TerminalBoxes& boxes, ErrorReporter& reporter)
        : progress_(progress), boxes_(boxes), reporter_(reporter) {}

    void Yield() override;
    void SetPointer(Pointer) override {}

  private:
    TerminalProgress& progress_;
    TerminalBoxes& boxes_;
    ErrorReporter& reporter_;
};

/// A terminal shows no pages; it tells the address, for a browser of the user's.
class TerminalHelp final : public HelpBrowser {
  public:
    explicit TerminalHelp(Console& console) : console_(console) {}

    bool IsVisible() const override { return true; }
    void Create() override {}
    void Navigate(std::string_view address) override { console_.PrintLine(address); }

  private:
    Console& console_;
};

/// The world of a program that runs in a terminal, and the reporter that shows failures there.
class TerminalHost {
  public:
    /// The console must live longer than the host.
    TerminalHost(Console& console, QuestionPolicy policy)
        : boxes_(console, policy), progress_(console, clock_), help_(console) {}
    TerminalHost(const TerminalHost&) = delete;
    TerminalHost& operator=(const TerminalHost&) = delete;

    Host Interfaces() { return {boxes_, progress_, events_, clock_, help_, reporter_}; }

    /// The first thing that went wrong in this run, as the person at the terminal was told it: a
    /// failure of an operation, another error box, or a question that nobody could answer. The last
    /// two have no number. The program then ends with a failure.
    std::optional<ErrorDetails> FirstFailure() const;
    /// Why an operation refused to do what it was asked, where a box said it: the reason, and that
    /// nothing was changed.
    std::string ReasonOfRefusal(const std::string& refusal) const;

  private:
    SystemClock clock_;
    TerminalBoxes boxes_;
    ErrorReporter reporter_{boxes_};
    TerminalProgress progress_;
    TerminalEvents events_{progress_, boxes_, reporter_};
    TerminalHelp help_;
};

}  // namespace snippetarium
