#pragma once

#include <memory>

#include "forms/progress_window.h"

namespace snippetarium {

namespace Ui {
class fProgressBar1;
}

/// The progress of a job that has one bar and cannot be cancelled.
class fProgressBar1 final : public ProgressWindow {
    Q_OBJECT

  public:
    explicit fProgressBar1(QWidget* parent);
    ~fProgressBar1() override;

    void Show(const ProgressContents& contents) override;

  private:
    std::unique_ptr<Ui::fProgressBar1> ui_;
};

}  // namespace snippetarium
