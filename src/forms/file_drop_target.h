#pragma once

#include <QObject>
#include <string>
#include <vector>

class QAbstractScrollArea;
class QMimeData;

namespace snippetarium {

/// Lets files and folders be dropped onto a control. Owned by it.
class FileDropTarget final : public QObject {
    Q_OBJECT

  public:
    explicit FileDropTarget(QAbstractScrollArea* control);

  signals:
    /// Absolute paths.
    void Dropped(const std::vector<std::string>& paths);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace snippetarium
