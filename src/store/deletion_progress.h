#pragma once

#include "support/host.h"

namespace snippetarium {

/// The progress window of a deletion, open for as long as this lives. Where the window is open for
/// some other work, that work's stays as it is.
class DeletionProgress {
  public:
    explicit DeletionProgress(const Host& host);
    ~DeletionProgress();
    DeletionProgress(const DeletionProgress&) = delete;
    DeletionProgress& operator=(const DeletionProgress&) = delete;

    /// Shows the share that is done, 0 to 1, and lets waiting events run.
    void Show(double share);

  private:
    const Host host_;
    bool isOwn_;
};

}  // namespace snippetarium
