#include "forms/icons.h"

#include <QCoreApplication>
#include <QHash>
#include <QObject>

// The resources of a library are linked only where something asks for them, outside all namespaces.
static void AskForResources() {
    Q_INIT_RESOURCE(forms);
}

namespace snippetarium {

namespace {

constexpr const char* kStoreName = "snippetariumIcons";

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
        if (icon.isNull()) icon = QIcon(":/icons/" + name + ".svg");
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
