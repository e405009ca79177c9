#include "forms/help_key.h"

#include <QKeyEvent>
#include <QWidget>
#include <utility>

namespace snippetarium {

HelpKey::HelpKey(QWidget* window, std::function<void()> openHelp)
    : QObject(window), openHelp_(std::move(openHelp)) {
    // A key that a control does not use comes up to its window.
    window->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) return false;
    openHelp_();
    return true;
}

}  // namespace snippetarium
