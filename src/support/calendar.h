#pragma once

#include <string>

namespace snippetarium {

/// A day of the calendar with a time of day; midnight where no time was given. Dates of the
/// catalogue lie in the years 100 to 9999.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const DateTime&) const = default;
};

/// True when the day exists and the time of day does, so not for the 29th of February 2001.
bool IsPossible(const DateTime& dateTime);

/// The year that two written digits mean: 0 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
int YearFromTwoDigits(int digits);

/// "2001-03-14", or "2001-03-14 13:05:09" where the time is not midnight: the form in which the
/// catalogue keeps dates. In it, the order of texts is the order of time.
std::string IsoText(const DateTime& dateTime);

}  // namespace snippetarium
