#pragma once

#include <QWidget>
#include <memory>

class QPlainTextEdit;

namespace snippetarium {

class Database;
class fPage;

namespace Ui {
class fZoom;
}

/// A window of its own with the text of a page in large letters. It keeps its text when the page
/// view goes on to another page.
class fZoom final : public QWidget {
    Q_OBJECT

  public:
    fZoom(Database& db, QWidget* parent);
    ~fZoom() override;

    /// Opens the window, or brings it to the front, with the text that the page view shows.
    void ShowTextOf(const fPage& page);
    QPlainTextEdit& Text() const;

  signals:
    void MenuRequested(const QPoint& globalPosition);
    void FindRequested();

  private:
    std::unique_ptr<Ui::fZoom> ui_;
};

}  // namespace snippetarium
