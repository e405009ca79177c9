#pragma once

#include <optional>
#include <string_view>

#include "support/calendar.h"

namespace snippetarium {

/// Reads what stands between the signs of a date literal, blanks around it allowed:
///
///     2001-03-14           year, month, day: the form that no country misreads
///     3/14/2001            month, day, year
///     14/3/2001            day, month, year, where the first number can be no month
///     3/14/01 1:05:09 PM   a time of day may follow
///
/// "-" and "/" serve both orders. Before AM and PM, minutes and seconds may be left out. Nothing
/// when it is in another form or not a possible date.
std::optional<DateTime> ParseDateLiteral(std::string_view text);

}  // namespace snippetarium
