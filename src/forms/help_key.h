#pragma once

#include <QObject>
#include <functional>

class QWidget;

namespace snippetarium {

/// Opens a window's help at F1, whichever of its controls has the focus. Owned by the window.
class HelpKey final : public QObject {
    Q_OBJECT

  public:
    HelpKey(QWidget* window, std::function<void()> openHelp);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> openHelp_;
};

}  // namespace snippetarium
