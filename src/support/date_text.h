#pragma once

#include <optional>
#include <string_view>

#include "support/calendar.h"

namespace snippetarium {

/// Reads a day in the forms in which people write it into the headers of their sources:
///
///     2001-03-14, 2001/3/14       year, month, day
///     3/14/2001, 3-14-2001        month, day, year
///     14.03.2001                  day, month, year
///     14-Mar-2001, 14 March 2001  the month as an English word of three letters or more
///     March 14, 2001, Mar. 14th 2001
///
/// Where the month cannot be one, month and day change places: 14/3/2001. The year has four digits
/// or two (YearFromTwoDigits). A time of day may follow ("1:05 PM"); it must be a possible one, but
/// the result is the day alone, since it is days that the catalogue keeps and searches for. White
/// space and characters beyond ASCII at both ends do not count.
///
/// Nothing for any other text and for a day that does not exist.
std::optional<DateTime> ParseDateText(std::string_view text);

/// True for a text that ParseDateText reads.
bool IsDate(std::string_view text);

}  // namespace snippetarium
