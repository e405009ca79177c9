#pragma once

#include <memory>

#include "forms/progress_window.h"

namespace snippetarium {

namespace Ui {
class fProgressBar2;
}

/// The progress of an import: a bar for the unit at hand and one for the whole job, the folder and
/// the file.
class fProgressBar2 final : public ProgressWindow {
    Q_OBJECT

  public:
    explicit fProgressBar2(QWidget* parent);
    ~fProgressBar2() override;

    void Show(const ProgressContents& contents) override;

  private:
    std::unique_ptr<Ui::fProgressBar2> ui_;
};

}  // namespace snippetarium
