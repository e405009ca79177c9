#include "forms/progress_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <algorithm>
#include <cmath>

#include "forms/qt_text.h"

namespace snippetarium {

ProgressWindow::ProgressWindow(QWidget* parent) : QDialog(parent) {
    setWindowModality(Qt::ApplicationModal);
}

void ProgressWindow::reject() {
    emit CancelPressed();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    emit CancelPressed();
}

void ProgressWindow::SetLine(QLabel* label, const std::string& text) {
    const QString line = ToQt(text);
    label->setText(label->fontMetrics().elidedText(line, Qt::ElideMiddle, label->width()));
}

std::string ProgressWindow::WaitingCaption(const std::string& title) {
    static constexpr std::string_view kWait = "please wait...";
    return title.ends_with(kWait) ? title : title + " , " + std::string(kWait);
}

double ProgressWindow::ShareDone(const ProgressContents& contents) {
    return std::max(contents.unit, contents.total);
}

QString ProgressWindow::TimeLeftText(const ProgressContents& contents) {
    if (!contents.timeLeft) return {};
    const auto seconds = contents.timeLeft->count();
    if (seconds < 10) return tr("A few seconds left");
    if (seconds < 60) return tr("About %1 seconds left").arg((seconds + 5) / 10 * 10);
    if (seconds < 90) return tr("About a minute left");
    if (seconds < 3600) return tr("About %1 minutes left").arg((seconds + 30) / 60);
    return tr("More than an hour left");
}

void ProgressWindow::SetPercent(QProgressBar* bar, double percent) {
    const double share = std::isfinite(percent) ? std::clamp(percent, 0.0, 100.0) / 100.0 : 0.0;
    bar->setValue(static_cast<int>(share * bar->maximum()));
}

}  // namespace snippetarium
