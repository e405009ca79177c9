#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

#include "navigator/find_text.h"

class QPlainTextEdit;

namespace snippetarium {

namespace Ui {
class fFind;
}

/// Finds a text in the page or in the zoom window, whichever it was opened for last. It is not
/// modal, so that what was found can be read, copied and scrolled behind it.
class fFind final : public QDialog {
    Q_OBJECT

  public:
    fFind(Database& db, QWidget* parent);
    ~fFind() override;

    /// Opens the window, or brings it to the front, over this text. It still holds what was sought
    /// last.
    void FindIn(QPlainTextEdit& text);

  protected:
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    FindRequest Request() const;
    void LetGo();
    void SelectNext();
    void MakeWayFor(const QPlainTextEdit& text);
    void ShowNotice(const FoundText& found, std::size_t matches);

    Database& db_;
    std::unique_ptr<Ui::fFind> ui_;
    QPointer<QPlainTextEdit> text_;
    bool hasMarks_ = false;
};

}  // namespace snippetarium
