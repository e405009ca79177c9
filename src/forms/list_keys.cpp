#include "forms/list_keys.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>

namespace snippetarium {

ListKeys::ListKeys(QLineEdit* entry, QAbstractItemView* list) : QObject(entry), list_(list) {
    entry->installEventFilter(this);
}

bool ListKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        for (const int passedOn : {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
            if (key == passedOn) return QCoreApplication::sendEvent(list_, event);
        }
    }
    return QObject::eventFilter(watched, event);
}

void RemoveByKey(QAbstractItemView* list, QAbstractButton* button) {
    auto* const key = new QShortcut(QKeySequence::Delete, list);
    key->setContext(Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, button, &QAbstractButton::click);
}

}  // namespace snippetarium
