#include "forms/icons.h"

#include <QCoreApplication>
#include <QHash>
#include <QIconEngine>
#include <QObject>
#include <QPainter>

// The resources of a library are linked only where something asks for them, outside all namespaces.
static void AskForResources() {
    Q_INIT_RESOURCE(forms);
}

namespace snippetarium {

namespace {

constexpr const char* kStoreName = "snippetariumIcons";
constexpr double kDisabledOpacity = 0.35;

/// An icon with its own colours on any background. Left to themselves, styles make the picture of a
/// disabled icon for the colours of one theme, and it stays when the theme changes; and they tint
/// that of a selected one.
class PlainIconEngine final : public QIconEngine {
  public:
    explicit PlainIconEngine(const QIcon& icon) : icon_(icon) {}

    QIconEngine* clone() const override { return new PlainIconEngine(icon_); }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode,
               QIcon::State state) override {
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
        icon_.paint(painter, place, Qt::AlignCenter, QIcon::Normal, state);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap plain = icon_.pixmap(size, 1, QIcon::Normal, state);
        if (mode != QIcon::Disabled) return plain;
        QPixmap faint(plain.size());
        faint.fill(Qt::transparent);
        QPainter painter(&faint);
        painter.setOpacity(kDisabledOpacity);
        painter.drawPixmap(0, 0, plain);
        return faint;
    }

  private:
    QIcon icon_;
};

/// The icons that were asked for, kept for as long as the application: reading one takes a
/// thousand times longer than showing it.
class IconStore final : public QObject {
  public:
    explicit IconStore(QObject* parent) : QObject(parent) {
        setObjectName(kStoreName);
        AskForResources();
    }

    QIcon Get(const QString& name) {
        QIcon& icon = icons_[name];
        if (icon.isNull()) icon = QIcon(new PlainIconEngine(QIcon(":/icons/" + name + ".svg")));
        return icon;
    }

  private:
    QHash<QString, QIcon> icons_;
};

}  // namespace

QIcon Icon(const QString& name) {
    QCoreApplication* const application = QCoreApplication::instance();
    auto* store = application->findChild<QObject*>(kStoreName, Qt::FindDirectChildrenOnly);
    if (store == nullptr) store = new IconStore(application);
    return static_cast<IconStore*>(store)->Get(name);
}

}  // namespace snippetarium
