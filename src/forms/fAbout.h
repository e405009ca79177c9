#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

namespace snippetarium {

namespace Ui {
class fAbout;
}

/// The About window, which is also what one sees while the program starts.
class fAbout final : public QDialog {
    Q_OBJECT

  public:
    enum class Use { Splash, Dialog };

    fAbout(Use use, const std::string& cataloguePath, QWidget* parent);
    ~fAbout() override;

    /// Shows it and paints it before this returns.
    void ShowAtOnce();

  private:
    std::unique_ptr<Ui::fAbout> ui_;
};

}  // namespace snippetarium
