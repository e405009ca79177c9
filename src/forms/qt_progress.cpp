#include "forms/qt_progress.h"

#include <QApplication>

#include "forms/fPrgrCancel.h"
#include "forms/fProgressBar1.h"
#include "forms/fProgressBar2.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::chrono::milliseconds kBetweenChanges{40};

// Before this much, a job's speed says little about the time that is left.
constexpr std::chrono::seconds kTooShortToTell{3};
constexpr double kTooLittleToTell = 3;

std::optional<std::chrono::seconds> TimeLeft(std::chrono::steady_clock::duration elapsed,
                                             double percent) {
    if (elapsed < kTooShortToTell || percent < kTooLittleToTell || percent > 100) return {};
    return std::chrono::duration_cast<std::chrono::seconds>(elapsed * (100 - percent) / percent);
}

}  // namespace

struct QtProgress::Job {
    ProgressContents contents;
    std::function<void()> cancelHandler;
    bool hasTwoBars = false;
    bool isShownAsItIs = false;
    std::chrono::steady_clock::time_point openedAt;
    std::chrono::steady_clock::time_point shownAt;
    Form form = Form::OneBar;
    std::unique_ptr<ProgressWindow> window;
};

void QtProgress::Discard(Job& job) {
    if (!job.window) return;
    // A press on Cancel may be what is running: its window goes when that has returned.
    job.window->hide();
    job.window.release()->deleteLater();
}

void QtProgress::Open(std::string_view title) {
    job_ = std::make_shared<Job>();
    job_->contents.title = title;
    job_->openedAt = clock_.Steady();
}

void QtProgress::Close() {
    if (!job_) return;
    Discard(*job_);
    job_.reset();
}

void QtProgress::Change(std::string ProgressContents::*member, std::string_view text) {
    if (!job_) return;
    job_->contents.*member = text;
    job_->isShownAsItIs = false;
}

void QtProgress::SetTitle(std::string_view text) {
    Change(&ProgressContents::title, text);
}

void QtProgress::SetUnitLabel(std::string_view text) {
    if (job_) job_->hasTwoBars = true;
    Change(&ProgressContents::unitLabel, text);
}

void QtProgress::SetTotalLabel(std::string_view text) {
    if (job_) job_->hasTwoBars = true;
    Change(&ProgressContents::totalLabel, text);
}

void QtProgress::SetFolderLine(std::string_view text) {
    if (job_) job_->hasTwoBars = true;
    Change(&ProgressContents::folderLine, text);
}

void QtProgress::SetContentLine(std::string_view text) {
    // It may name a file as the catalogue does.
    Change(&ProgressContents::contentLine, ToPlatformPath(text));
}

void QtProgress::SetUnit(double percent) {
    if (!job_) return;
    job_->contents.unit = percent;
    job_->isShownAsItIs = false;
}

void QtProgress::SetTotal(double percent) {
    if (!job_) return;
    job_->contents.total = percent;
    job_->isShownAsItIs = false;
}

double QtProgress::Unit() const {
    return job_ ? job_->contents.unit : 0;
}

double QtProgress::Total() const {
    return job_ ? job_->contents.total : 0;
}

void QtProgress::SetCancelHandler(std::function<void()> handler) {
    if (!job_) return;
    job_->contents.canBeCancelled = static_cast<bool>(handler);
    job_->cancelHandler = std::move(handler);
    job_->isShownAsItIs = false;
}

bool QtProgress::IsShown() const {
    return job_ && job_->window;
}

QtProgress::Form QtProgress::WantedForm() const {
    if (job_->hasTwoBars) return Form::TwoBars;
    return job_->contents.canBeCancelled ? Form::Cancel : Form::OneBar;
}

void QtProgress::MakeWindow(Form form) {
    QWidget* const parent = QApplication::activeWindow();
    std::unique_ptr<ProgressWindow> window;
    if (form == Form::TwoBars) {
        window = std::make_unique<fProgressBar2>(parent);
    } else if (form == Form::Cancel) {
        window = std::make_unique<fPrgrCancel>(parent);
    } else {
        window = std::make_unique<fProgressBar1>(parent);
    }
    QObject::connect(window.get(), &ProgressWindow::CancelPressed, window.get(),
                     [job = std::weak_ptr(job_)] {
                         const std::shared_ptr<Job> running = job.lock();
                         if (!running || !running->cancelHandler) return;
                         const std::function<void()> handler = running->cancelHandler;
                         handler();
                     });
    Discard(*job_);
    job_->window = std::move(window);
    job_->form = form;
}

bool QtProgress::Refresh() {
    if (!job_) return false;
    const auto now = clock_.Steady();
    const bool isFirst = !job_->window;
    if (isFirst && now - job_->openedAt < delay_) return false;
    const bool isOther = !isFirst && job_->form != WantedForm();
    if (!isFirst && !isOther && (job_->isShownAsItIs || now - job_->shownAt < kBetweenChanges)) {
        return false;
    }
    if (isFirst || isOther) {
        MakeWindow(WantedForm());
        job_->window->show();
    }
    job_->contents.timeLeft = TimeLeft(now - job_->openedAt, job_->contents.total);
    job_->window->Show(job_->contents);
    job_->shownAt = now;
    job_->isShownAsItIs = true;
    return isFirst || isOther;
}

}  // namespace snippetarium
