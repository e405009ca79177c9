#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "engine/cancel_poll.h"
#include "support/host.h"

namespace snippetarium {

/// The progress window for work that is mostly done in a moment: it opens only once the work has
/// taken a while. Where the window is open for some other work, that work's stays as it is.
class JobProgress final : public CancelPoll {
  public:
    enum class Cancelling { Impossible, Possible };

    JobProgress(const Host& host, std::string_view title, Cancelling cancelling);
    ~JobProgress() override;
    JobProgress(const JobProgress&) = delete;
    JobProgress& operator=(const JobProgress&) = delete;

    /// What is being done just now.
    void SetStage(std::string_view text);
    /// Shows the share that is done, 0 to 1, and lets waiting events run.
    void Show(double share);

    /// Lets waiting events run too, so that the user can press Cancel.
    bool IsCancelled() const override;

  private:
    void OpenWhenDue() const;

    const Host host_;
    std::string title_;
    Cancelling cancelling_;
    std::chrono::steady_clock::time_point start_;
    std::string stage_;
    mutable bool isOpen_ = false;  // the poll is asked through a const reference
    mutable bool isCancelled_ = false;
};

}  // namespace snippetarium
