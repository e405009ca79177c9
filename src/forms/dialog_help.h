#pragma once

class QDialog;
class QPushButton;

namespace snippetarium {

class Database;

/// Opens the help of a dialog, at the anchor of its name (navigator/help.h), by F1 and the button.
void ConnectHelp(Database& db, QDialog* dialog, QPushButton* button);

}  // namespace snippetarium
