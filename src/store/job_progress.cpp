#include "store/job_progress.h"

namespace snippetarium {

namespace {

constexpr std::chrono::milliseconds kUnnoticed{500};

}  // namespace

JobProgress::JobProgress(const Host& host, std::string_view title, Cancelling cancelling)
    : host_(host), title_(title), cancelling_(cancelling), start_(host.clock.Steady()) {}

JobProgress::~JobProgress() {
    if (isOpen_) host_.progress.Close();
}

void JobProgress::SetStage(std::string_view text) {
    stage_ = text;
    if (isOpen_) host_.progress.SetContentLine(stage_);
}

void JobProgress::Show(double share) {
    OpenWhenDue();
    if (isOpen_) host_.progress.SetTotal(share * 100.0);
    host_.events.Yield();
}

bool JobProgress::IsCancelled() const {
    OpenWhenDue();
    if (isOpen_) host_.events.Yield();
    return isCancelled_;
}

void JobProgress::OpenWhenDue() const {
    if (isOpen_ || host_.progress.IsOpen()) return;
    if (host_.clock.Steady() - start_ < kUnnoticed) return;
    host_.progress.Open(title_);
    isOpen_ = true;
    if (!stage_.empty()) host_.progress.SetContentLine(stage_);
    if (cancelling_ == Cancelling::Possible) {
        host_.progress.SetCancelHandler([this] { isCancelled_ = true; });
    }
}

}  // namespace snippetarium
