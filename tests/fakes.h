#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "support/error_reporter.h"
#include "support/host.h"

namespace snippetarium::test {

// The world as tests see it: it records what the program shows and does what the test has scripted.
// What was scripted and did not happen fails the test, and so does a question that nobody expected.

enum class BoxKind { Information, Warning, Error, YesNo, YesNoCancel, Series };

/// One box that was shown.
struct ShownBox {
    BoxKind kind;
    std::string title;
    std::string text;

    bool operator==(const ShownBox&) const = default;
};

inline void PrintTo(const ShownBox& box, std::ostream* out) {
    static constexpr std::string_view kNames[] = {"Information", "Warning",     "Error",
                                                  "YesNo",       "YesNoCancel", "Series"};
    *out << kNames[static_cast<std::size_t>(box.kind)] << " \"" << box.title << "\": " << box.text;
}

class FakeMessageBoxes final : public MessageBoxes {
  public:
    /// Every box that was shown, in order, questions among them.
    std::vector<ShownBox> shown;
    /// Runs while a box is up, as events do.
    std::function<void(const ShownBox&)> whileShown;

    FakeMessageBoxes() = default;
    FakeMessageBoxes(const FakeMessageBoxes&) = delete;
    FakeMessageBoxes& operator=(const FakeMessageBoxes&) = delete;
    ~FakeMessageBoxes() override {
        if (!answers_.empty()) ADD_FAILURE() << answers_.size() << " expected questions never came";
    }

    /// Expects one more question and answers it so.
    void Expect(StandardAnswer answer) { answers_.emplace_back(answer); }
    void Expect(SeriesAnswer answer) { answers_.emplace_back(answer); }

    void Information(std::string_view message, std::string_view title) override {
        Show(BoxKind::Information, message, title);
    }
    void Warning(std::string_view message, std::string_view title) override {
        Show(BoxKind::Warning, message, title);
    }
    void Error(std::string_view message, std::string_view title) override {
        Show(BoxKind::Error, message, title);
    }
    StandardAnswer YesNo(std::string_view question, std::string_view title) override {
        Show(BoxKind::YesNo, question, title);
        const StandardAnswer answer = NextAnswer(StandardAnswer::No);
        if (answer == StandardAnswer::Cancel)
            ADD_FAILURE() << "Cancel is no answer to " << question;
        return answer;
    }
    StandardAnswer YesNoCancel(std::string_view question, std::string_view title) override {
        Show(BoxKind::YesNoCancel, question, title);
        return NextAnswer(StandardAnswer::Cancel);
    }
    SeriesAnswer Series(std::string_view question) override {
        Show(BoxKind::Series, question, "");
        return NextAnswer(SeriesAnswer::Cancel);
    }

  private:
    void Show(BoxKind kind, std::string_view text, std::string_view title) {
        shown.push_back({kind, std::string(title), std::string(text)});
        const ShownBox box = shown.back();
        if (whileShown) whileShown(box);
    }

    /// The answer scripted for the question just shown, or the harmless one.
    template <typename Answer>
    Answer NextAnswer(Answer harmless) {
        if (answers_.empty()) {
            ADD_FAILURE() << "unexpected question: " << ::testing::PrintToString(shown.back());
            return harmless;
        }
        const std::variant<StandardAnswer, SeriesAnswer> answer = answers_.front();
        answers_.pop_front();
        if (const Answer* fitting = std::get_if<Answer>(&answer)) return *fitting;
        ADD_FAILURE() << "the answer fits another kind of question than "
                      << ::testing::PrintToString(shown.back());
        return harmless;
    }

    std::deque<std::variant<StandardAnswer, SeriesAnswer>> answers_;
};

enum class ProgressText { Title, UnitLabel, TotalLabel, FolderLine, ContentLine };

class FakeProgress final : public Progress {
  public:
    /// Titles of the windows opened, and how many were closed.
    std::vector<std::string> opened;
    int closed = 0;
    /// Every text (Open's title is the first) and every bar value in the order in which they were
    /// set.
    std::vector<std::pair<ProgressText, std::string>> texts;
    std::vector<double> unitValues;
    std::vector<double> totalValues;

    /// Presses Cancel, as an event does.
    void PressCancel() {
        if (!IsOpen() || !cancelHandler_) {
            ADD_FAILURE() << "there is no Cancel button to press";
            return;
        }
        const std::function<void()> handler = cancelHandler_;
        handler();
    }
    bool CanCancel() const { return static_cast<bool>(cancelHandler_); }

    /// What was shown in one place, in order.
    std::vector<std::string> TextsOf(ProgressText place) const {
        std::vector<std::string> found;
        for (const auto& [where, text] : texts) {
            if (where == place) found.push_back(text);
        }
        return found;
    }

    void Open(std::string_view title) override {
        if (IsOpen()) ADD_FAILURE() << "the progress window is open already";
        opened.emplace_back(title);
        texts.emplace_back(ProgressText::Title, title);
        unit_ = 0;
        total_ = 0;
    }
    bool IsOpen() const override { return opened.size() > static_cast<std::size_t>(closed); }
    void Close() override {
        if (IsOpen()) ++closed;
        cancelHandler_ = nullptr;
    }

    void SetTitle(std::string_view text) override { texts.emplace_back(ProgressText::Title, text); }
    void SetUnitLabel(std::string_view text) override {
        texts.emplace_back(ProgressText::UnitLabel, text);
    }
    void SetTotalLabel(std::string_view text) override {
        texts.emplace_back(ProgressText::TotalLabel, text);
    }
    void SetFolderLine(std::string_view text) override {
        texts.emplace_back(ProgressText::FolderLine, text);
    }
    void SetContentLine(std::string_view text) override {
        texts.emplace_back(ProgressText::ContentLine, text);
    }

    void SetUnit(double percent) override { unitValues.push_back(unit_ = percent); }
    void SetTotal(double percent) override { totalValues.push_back(total_ = percent); }
    double Unit() const override { return unit_; }
    double Total() const override { return total_; }

    void SetCancelHandler(std::function<void()> handler) override {
        if (!IsOpen()) ADD_FAILURE() << "there is no progress window to cancel";
        cancelHandler_ = std::move(handler);
    }

  private:
    double unit_ = 0;
    double total_ = 0;
    std::function<void()> cancelHandler_;
};

class FakeEventLoop final : public EventLoop {
  public:
    int yields = 0;
    std::vector<Pointer> pointers;

    /// Events are delivered outside the guards of the reporter.
    explicit FakeEventLoop(ErrorReporter& reporter) : reporter_(reporter) {}
    FakeEventLoop(const FakeEventLoop&) = delete;
    FakeEventLoop& operator=(const FakeEventLoop&) = delete;
    ~FakeEventLoop() override {
        for (const auto& [yield, action] : script_) {
            ADD_FAILURE() << "yield " << yield << " was scripted and never came";
        }
    }

    /// Runs the action at the given yield, the first being 1.
    void At(int yield, std::function<void()> action) { script_.emplace(yield, std::move(action)); }

    void Yield() override {
        const int current = ++yields;
        for (auto next = script_.find(current); next != script_.end();
             next = script_.find(current)) {
            const std::function<void()> action = std::move(next->second);
            script_.erase(next);
            const ErrorReporter::EventScope events(reporter_);
            action();
        }
    }
    void SetPointer(Pointer pointer) override { pointers.push_back(pointer); }

  private:
    ErrorReporter& reporter_;
    std::multimap<int, std::function<void()>> script_;
};

/// A clock that stands still until the test moves it. It starts on 2024-05-17 at 12:00 UTC.
class FakeClock final : public Clock {
  public:
    std::chrono::system_clock::time_point now =
        std::chrono::sys_days{std::chrono::year{2024} / 5 / 17} + std::chrono::hours{12};
    std::chrono::steady_clock::time_point steady{std::chrono::hours{1}};

    void Advance(std::chrono::milliseconds duration) {
        now += duration;
        steady += duration;
    }

    std::chrono::system_clock::time_point Now() const override { return now; }
    std::chrono::steady_clock::time_point Steady() const override { return steady; }
};

class FakeHelpBrowser final : public HelpBrowser {
  public:
    bool visible = false;
    int created = 0;
    std::vector<std::string> addresses;

    bool IsVisible() const override { return visible; }
    void Create() override {
        visible = true;
        ++created;
    }
    void Navigate(std::string_view address) override {
        if (!visible) ADD_FAILURE() << "there is no window for " << address;
        addresses.emplace_back(address);
    }
};

/// The five fakes and a reporter that shows its messages in them.
class FakeHost {
  public:
    FakeMessageBoxes messages;
    ErrorReporter reporter{messages};
    FakeProgress progress;
    FakeEventLoop events{reporter};
    FakeClock clock;
    FakeHelpBrowser help;
    Host host{messages, progress, events, clock, help, reporter};

    FakeHost() = default;
    FakeHost(const FakeHost&) = delete;
    FakeHost& operator=(const FakeHost&) = delete;

    void PressCancelAt(int yield) {
        events.At(yield, [this] { progress.PressCancel(); });
    }
};

}  // namespace snippetarium::test
