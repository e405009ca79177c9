#pragma once

#include <string_view>

class QWidget;

namespace snippetarium {

class Database;

/// Makes a window smaller whose designed size would lie beyond the edges of the screen, as on a
/// small or much enlarged one. Does nothing with one that finds its size by itself.
void FitOnScreen(QWidget& window);

/// Gives the window of a form the size that one of them had when it was closed last, as far as the
/// screen has room for it.
void RestoreSize(Database& db, QWidget& window, std::string_view form);
/// To be called when it is closed. Not where the catalogue is read only.
void KeepSize(Database& db, const QWidget& window, std::string_view form);

}  // namespace snippetarium
