#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace snippetarium {

class Database;

/// Puts a day, in any form in which one writes it (support/date_text.h), among the dates of an
/// owner, which stand in the catalogue's form with the earliest first. False where there is none,
/// it is none, or the day is there already; the user has been told so.
bool AddDay(Database& db, std::vector<std::string>& dates, std::string_view text);

}  // namespace snippetarium
