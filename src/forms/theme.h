#pragma once

#include <QPalette>
#include <string_view>

namespace snippetarium {

class Database;

enum class Theme { Desktop, Light, Dark };

/// The colours of the program's windows: those of the desktop, or ours, which the user may prefer.
/// "theme" in the catalogue's settings keeps the choice.
Theme ReadTheme(Database& db);
void StoreTheme(Database& db, Theme theme);

/// Gives all windows the theme, those too that are open.
void ApplyTheme(Theme theme);
/// Whether text is light on a dark background now.
bool IsDark();

}  // namespace snippetarium
