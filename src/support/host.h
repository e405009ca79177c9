#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace snippetarium {

class ErrorReporter;

// The world outside the catalogue's rules, cut into five small interfaces, so that the same rules
// run behind windows, in a terminal and under test. Texts are UTF-8 with CR LF between lines; an
// implementation turns the line breaks into its own.

/// What the standard question boxes answer. The values are the ones that callers keep and compare.
enum class StandardAnswer : std::int16_t { Cancel = 2, Yes = 6, No = 7 };

/// What the question window for a series of questions answers. "None" is the state before the first
/// question of a series: callers go back to it when they start a new one.
enum class SeriesAnswer : std::int16_t { None, Yes, YesToAll, No, NoToAll, Cancel };

/// Modal boxes. Each call returns when the user has answered. An implementation that lets events
/// run while a box is up wraps them in an ErrorReporter::EventScope, as EventLoop::Yield does.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual void Information(std::string_view message, std::string_view title) = 0;
    virtual void Warning(std::string_view message, std::string_view title) = 0;
    virtual void Error(std::string_view message, std::string_view title) = 0;
    virtual StandardAnswer YesNo(std::string_view question, std::string_view title) = 0;
    virtual StandardAnswer YesNoCancel(std::string_view question, std::string_view title) = 0;
    virtual SeriesAnswer Series(std::string_view question) = 0;
};

/// The progress window. It has two bars (a unit's and the whole job's), a line for the folder and
/// one for the file at hand, and a Cancel button. A job that needs less leaves the rest alone.
class Progress {
  public:
    virtual ~Progress() = default;

    /// Shows the window, without blocking. Bars start at 0, texts empty.
    virtual void Open(std::string_view title) = 0;
    virtual bool IsOpen() const = 0;
    virtual void Close() = 0;

    virtual void SetTitle(std::string_view text) = 0;
    virtual void SetUnitLabel(std::string_view text) = 0;
    virtual void SetTotalLabel(std::string_view text) = 0;
    virtual void SetFolderLine(std::string_view text) = 0;
    virtual void SetContentLine(std::string_view text) = 0;

    /// Percent, 0 to 100.
    virtual void SetUnit(double percent) = 0;
    virtual void SetTotal(double percent) = 0;
    virtual double Unit() const = 0;
    virtual double Total() const = 0;

    /// Called, out of EventLoop::Yield, each time the user presses Cancel. Without a handler the
    /// button is disabled: a job that cannot be cancelled offers no button that does nothing. Set
    /// it while the window is open; Close forgets it.
    virtual void SetCancelHandler(std::function<void()> handler) = 0;
};

enum class Pointer { Default, Hourglass };

/// The one thread's link to its events.
class EventLoop {
  public:
    virtual ~EventLoop() = default;
    /// Lets waiting events run (a repaint, a press on Cancel) and comes back. An implementation
    /// delivers them inside an ErrorReporter::EventScope, so that a guarded operation which an
    /// event starts counts as the outermost one.
    virtual void Yield() = 0;
    virtual void SetPointer(Pointer pointer) = 0;
};

class Clock {
  public:
    virtual ~Clock() = default;
    /// The calendar's time, for what is shown and stored.
    virtual std::chrono::system_clock::time_point Now() const = 0;
    /// A time that only goes forward, for measuring.
    virtual std::chrono::steady_clock::time_point Steady() const = 0;
};

/// The window that shows help pages. One is kept and used again.
class HelpBrowser {
  public:
    virtual ~HelpBrowser() = default;
    virtual bool IsVisible() const = 0;
    virtual void Create() = 0;
    virtual void Navigate(std::string_view address) = 0;
};

/// Everything an operation may need of the world, and the one reporter through which everything
/// that is guarded tells its failures. Holds references: whoever makes a Host keeps the objects
/// alive longer.
struct Host {
    MessageBoxes& messages;
    Progress& progress;
    EventLoop& events;
    Clock& clock;
    HelpBrowser& help;
    ErrorReporter& reporter;
};

}  // namespace snippetarium
