#pragma once

#include <QDialog>
#include <chrono>
#include <optional>
#include <string>

class QLabel;
class QProgressBar;

namespace snippetarium {

/// What a progress window shows.
struct ProgressContents {
    std::string title;
    std::string unitLabel = "Unit Progress:";
    std::string totalLabel = "Total Progress:";
    std::string folderLine;
    std::string contentLine;
    /// Percent.
    double unit = 0;
    double total = 0;
    bool canBeCancelled = false;
    /// Nothing while too little was done to tell.
    std::optional<std::chrono::seconds> timeLeft;
};

/// A window that shows how a job goes on. It is modal without blocking: while it is open, nothing
/// else takes input. Esc and the close box are its Cancel button, or nothing where it has none.
class ProgressWindow : public QDialog {
    Q_OBJECT

  public:
    explicit ProgressWindow(QWidget* parent);

    virtual void Show(const ProgressContents& contents) = 0;

    void reject() override;

  signals:
    void CancelPressed();

  protected:
    void closeEvent(QCloseEvent* event) override;

    /// Shows a line that may be longer than the window, with its middle left out.
    static void SetLine(QLabel* label, const std::string& text);
    /// The caption of a window with one bar.
    static std::string WaitingCaption(const std::string& title);
    /// What a window with one bar shows: a job that counts but one thing sets either bar.
    static double ShareDone(const ProgressContents& contents);
    /// "About 2 minutes left".
    static QString TimeLeftText(const ProgressContents& contents);
    static void SetPercent(QProgressBar* bar, double percent);
};

}  // namespace snippetarium
