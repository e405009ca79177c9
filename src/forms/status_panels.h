#pragma once

#include <QObject>
#include <QString>

class QLabel;
class QStatusBar;

namespace snippetarium {

/// The panels of the status bar: the selected node, what is done in the background, what the
/// catalogue holds, and whether it is open for reading only.
class StatusPanels final : public QObject {
    Q_OBJECT

  public:
    explicit StatusPanels(QStatusBar* bar);

    void SetNode(const QString& path);
    void SetWork(const QString& work);
    void SetCounts(const QString& counts);
    void SetReadOnly(bool isReadOnly);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowNode();

    QLabel* node_;
    QLabel* work_;
    QLabel* counts_;
    QLabel* lock_;
    QLabel* readOnly_;
    QString path_;
};

}  // namespace snippetarium
