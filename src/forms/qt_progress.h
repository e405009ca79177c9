#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

#include "forms/progress_window.h"
#include "support/host.h"

namespace snippetarium {

/// The progress window of the desktop. Which of the three it is shows in what the job sets: one
/// that names a unit, a total or a folder gets fProgressBar2, one that only can be cancelled
/// fPrgrCancel, any other fProgressBar1.
///
/// The window appears when the job has lasted a moment, so that short ones do not flicker, and its
/// contents change at most 25 times a second. Both happen in Refresh, which the event loop calls.
class QtProgress final : public Progress {
  public:
    explicit QtProgress(const Clock& clock) : clock_(clock) {}
    QtProgress(const QtProgress&) = delete;
    QtProgress& operator=(const QtProgress&) = delete;

    /// How long a job may last without its window. For tests.
    void SetDelay(std::chrono::milliseconds delay) { delay_ = delay; }

    void Open(std::string_view title) override;
    bool IsOpen() const override { return job_ != nullptr; }
    void Close() override;

    void SetTitle(std::string_view text) override;
    void SetUnitLabel(std::string_view text) override;
    void SetTotalLabel(std::string_view text) override;
    void SetFolderLine(std::string_view text) override;
    void SetContentLine(std::string_view text) override;

    void SetUnit(double percent) override;
    void SetTotal(double percent) override;
    double Unit() const override;
    double Total() const override;

    void SetCancelHandler(std::function<void()> handler) override;

    /// Shows what has changed since the last time. True when the window has just appeared.
    bool Refresh();
    /// Whether the window can be seen, and so keeps input from all others.
    bool IsShown() const;

  private:
    enum class Form { OneBar, Cancel, TwoBars };
    struct Job;

    static void Discard(Job& job);
    Form WantedForm() const;
    void MakeWindow(Form form);
    void Change(std::string ProgressContents::*member, std::string_view text);

    const Clock& clock_;
    std::chrono::milliseconds delay_{250};
    std::shared_ptr<Job> job_;
};

}  // namespace snippetarium
