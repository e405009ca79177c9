#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string_view>

#include "support/host.h"

namespace snippetarium {

namespace Ui {
class fMsgBox;
}

/// The question window of a series of questions, which may be answered once for all of them. Esc
/// and the close box are Cancel.
class fMsgBox final : public QDialog {
    Q_OBJECT

  public:
    using OpenHelp = std::function<void(std::string_view topic)>;

    fMsgBox(std::string_view question, const OpenHelp& openHelp, QWidget* parent);
    ~fMsgBox() override;

    SeriesAnswer Answer() const { return answer_; }

  private:
    std::unique_ptr<Ui::fMsgBox> ui_;
    SeriesAnswer answer_ = SeriesAnswer::Cancel;
};

}  // namespace snippetarium
