#include "forms/child_pane.h"

#include <QCloseEvent>

namespace snippetarium {

void ChildPane::closeEvent(QCloseEvent* event) {
    if (isParentUnloading_) return QWidget::closeEvent(event);
    event->ignore();
    emit HideRequested();
}

}  // namespace snippetarium
