#pragma once

#include <memory>

#include "forms/progress_window.h"

namespace snippetarium {

namespace Ui {
class fPrgrCancel;
}

/// The progress of a job that has one bar and can be cancelled.
class fPrgrCancel final : public ProgressWindow {
    Q_OBJECT

  public:
    explicit fPrgrCancel(QWidget* parent);
    ~fPrgrCancel() override;

    void Show(const ProgressContents& contents) override;

  private:
    std::unique_ptr<Ui::fPrgrCancel> ui_;
};

}  // namespace snippetarium
