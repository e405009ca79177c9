#include "editors/date_list.h"

#include <algorithm>

#include "editors/field_rules.h"
#include "editors/owner_details.h"
#include "keywords/words.h"
#include "support/date_text.h"

namespace snippetarium {

namespace {

constexpr std::string_view kNoDate = "Please enter a date.";
constexpr std::string_view kListed = "This date is in the list already.";

}  // namespace

bool AddDay(Database& db, std::vector<std::string>& dates, std::string_view text) {
    const std::string trimmed(TrimBlanks(text));
    if (trimmed.empty()) return RefuseEntry(db, kNoDate);
    if (!CheckDetailChanges(db, {.dates = std::vector{trimmed}})) return false;
    const std::string day = IsoText(*ParseDateText(trimmed));
    const auto place = std::ranges::lower_bound(dates, day);
    // What the catalogue has may bear a time of day behind the day.
    if (place != dates.end() && place->starts_with(day)) return RefuseEntry(db, kListed);
    dates.insert(place, day);
    return true;
}

}  // namespace snippetarium
