#pragma once

#include <QMainWindow>

class QTextBrowser;

namespace snippetarium {

/// The window that shows help pages, with a way back through those that were shown.
class HelpWindow final : public QMainWindow {
    Q_OBJECT

  public:
    HelpWindow();

    /// `address`: a file's path, with "#" and an anchor behind it or without.
    void Navigate(const QString& address);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QTextBrowser* page_;
};

}  // namespace snippetarium
