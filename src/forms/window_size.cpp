#include "forms/window_size.h"

#include <QScreen>
#include <QStringList>
#include <QWidget>
#include <string>

#include "forms/qt_text.h"
#include "store/database.h"
#include "store/settings.h"

namespace snippetarium {

namespace {

/// What a desktop puts around a window.
constexpr QSize kFrame(16, 48);

std::string SettingOf(std::string_view form) {
    return std::string(form) + ".size";
}

}  // namespace

void FitOnScreen(QWidget& window) {
    if (!window.testAttribute(Qt::WA_Resized)) return;
    window.resize(window.size().boundedTo(window.screen()->availableSize() - kFrame));
}

void RestoreSize(Database& db, QWidget& window, std::string_view form) {
    const QStringList sides = ToQt(Setting(db, SettingOf(form))).split('x');
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    if (!size.isEmpty()) window.resize(size);
    FitOnScreen(window);
}

void KeepSize(Database& db, const QWidget& window, std::string_view form) {
    if (db.IsReadOnly() || window.isMaximized()) return;
    const QSize size = window.size();
    StoreSetting(db, SettingOf(form),
                 std::to_string(size.width()) + "x" + std::to_string(size.height()));
}

}  // namespace snippetarium
