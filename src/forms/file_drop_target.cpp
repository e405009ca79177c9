#include "forms/file_drop_target.h"

#include <QAbstractScrollArea>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "forms/qt_text.h"

namespace snippetarium {

namespace {

std::vector<std::string> LocalFiles(const QMimeData* data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile()) paths.push_back(FromQt(url.toLocalFile()));
    }
    return paths;
}

}  // namespace

FileDropTarget::FileDropTarget(QAbstractScrollArea* control) : QObject(control) {
    control->viewport()->setAcceptDrops(true);
    control->viewport()->installEventFilter(this);
}

bool FileDropTarget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            break;
        default:
            return QObject::eventFilter(watched, event);
    }
    auto* const drop = static_cast<QDropEvent*>(event);
    const std::vector<std::string> paths = LocalFiles(drop->mimeData());
    if (paths.empty()) {
        drop->ignore();
        return true;
    }
    drop->setDropAction(Qt::CopyAction);
    drop->accept();
    if (event->type() == QEvent::Drop) emit Dropped(paths);
    return true;
}

}  // namespace snippetarium
