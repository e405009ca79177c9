#pragma once

#include <QWidget>
#include <memory>

namespace snippetarium {

struct EditedDetails;

namespace Ui {
class EditorFooter;
}

/// What every editor ends with: keywords, authors and dates, each with the button that changes
/// them, and the buttons of the window.
class EditorFooter final : public QWidget {
    Q_OBJECT

  public:
    explicit EditorFooter(QWidget* parent);
    ~EditorFooter() override;

    void ShowDetails(const EditedDetails& details);
    /// A short remark beside the buttons; empty for none.
    void ShowState(const QString& state);
    /// Leaves the buttons that change nothing.
    void SetReadOnly();

  signals:
    void KeywordsRequested();
    void AuthorsRequested();
    void DatesRequested();
    void SaveRequested();
    void AcceptRequested();
    void CancelRequested();
    void HelpRequested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void TintLines();

    std::unique_ptr<Ui::EditorFooter> ui_;
};

}  // namespace snippetarium
