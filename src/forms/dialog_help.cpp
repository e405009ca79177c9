#include "forms/dialog_help.h"

#include <QDialog>
#include <QPushButton>

#include "forms/help_key.h"
#include "forms/qt_text.h"
#include "navigator/help.h"

namespace snippetarium {

void ConnectHelp(Database& db, QDialog* dialog, QPushButton* button) {
    const auto openHelp = [&db, dialog] { OpenHelp(db, AnchorOf(FromQt(dialog->objectName()))); };
    QObject::connect(button, &QPushButton::clicked, dialog, openHelp);
    new HelpKey(dialog, openHelp);
}

}  // namespace snippetarium
