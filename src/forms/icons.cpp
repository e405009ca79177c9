#include "forms/icons.h"

#include <QDir>

// The resources of a library are linked only where something asks for them, outside all namespaces.
static void AskForResources() {
    Q_INIT_RESOURCE(forms);
}

namespace snippetarium {

QIcon Icon(const QString& name) {
    AskForResources();
    return QIcon(":/icons/" + name + ".svg");
}

}  // namespace snippetarium
