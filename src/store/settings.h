#pragma once

#include <string>
#include <string_view>

namespace snippetarium {

class Database;

// Settings of the program that the catalogue keeps, texts by their names ("window.width"). A
// failure is reported.

/// Empty where it was never stored.
std::string Setting(Database& db, std::string_view name);
/// An empty value takes the setting away. Does nothing where the value is stored already.
void StoreSetting(Database& db, std::string_view name, std::string_view value);

}  // namespace snippetarium
