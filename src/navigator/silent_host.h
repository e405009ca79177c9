#pragma once

#include <chrono>
#include <functional>
#include <string_view>
#include <utility>

#include "support/error_reporter.h"
#include "support/host.h"

namespace snippetarium {

/// A world in which nothing is shown and no event runs, for work that is over before anybody could
/// look at it. Whoever does it asks through Yield, which tells when the time is up.
class SilentHost {
  public:
    SilentHost(std::chrono::milliseconds time, std::function<void()> whenTimeIsUp)
        : events_(time, std::move(whenTimeIsUp)) {}

    const Host& GetHost() const { return host_; }

  private:
    class NoBoxes final : public MessageBoxes {
      public:
        void Information(std::string_view, std::string_view) override {}
        void Warning(std::string_view, std::string_view) override {}
        void Error(std::string_view, std::string_view) override {}
        StandardAnswer YesNo(std::string_view, std::string_view) override {
            return StandardAnswer::No;
        }
        StandardAnswer YesNoCancel(std::string_view, std::string_view) override {
            return StandardAnswer::Cancel;
        }
        SeriesAnswer Series(std::string_view) override { return SeriesAnswer::Cancel; }
    };

    class NoProgress final : public Progress {
      public:
        void Open(std::string_view) override {}
        bool IsOpen() const override { return false; }
        void Close() override {}
        void SetTitle(std::string_view) override {}
        void SetUnitLabel(std::string_view) override {}
        void SetTotalLabel(std::string_view) override {}
        void SetFolderLine(std::string_view) override {}
        void SetContentLine(std::string_view) override {}
        void SetUnit(double) override {}
        void SetTotal(double) override {}
        double Unit() const override { return 0; }
        double Total() const override { return 0; }
        void SetCancelHandler(std::function<void()>) override {}
    };

    class TimedEvents final : public EventLoop {
      public:
        TimedEvents(std::chrono::milliseconds time, std::function<void()> whenTimeIsUp)
            : end_(std::chrono::steady_clock::now() + time),
              whenTimeIsUp_(std::move(whenTimeIsUp)) {}
        void Yield() override {
            if (std::chrono::steady_clock::now() >= end_) whenTimeIsUp_();
        }
        void SetPointer(Pointer) override {}

      private:
        std::chrono::steady_clock::time_point end_;
        std::function<void()> whenTimeIsUp_;
    };

    class TrueClock final : public Clock {
      public:
        std::chrono::system_clock::time_point Now() const override {
            return std::chrono::system_clock::now();
        }
        std::chrono::steady_clock::time_point Steady() const override {
            return std::chrono::steady_clock::now();
        }
    };

    class NoHelp final : public HelpBrowser {
      public:
        bool IsVisible() const override { return false; }
        void Create() override {}
        void Navigate(std::string_view) override {}
    };

    NoBoxes boxes_;
    NoProgress progress_;
    TimedEvents events_;
    TrueClock clock_;
    NoHelp help_;
    ErrorReporter reporter_{boxes_};
    Host host_{boxes_, progress_, events_, clock_, help_, reporter_};
};

}  // namespace snippetarium
