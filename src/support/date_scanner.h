#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "support/calendar.h"

namespace snippetarium {

// What the readers of written dates have in common: the date literals of the catalogue's dialect
// (engine/sql_dates.h) and the dates that people write (support/date_text.h).

/// A number as it was written. How many digits it has matters: "1" is the year 2001, "0001" no year
/// of ours. A count of 0 means that there was none.
struct WrittenNumber {
    int value = 0;
    std::size_t count = 0;
};

struct WrittenDate {
    WrittenNumber year;
    WrittenNumber month;
    WrittenNumber day;
};

/// Reads a text from its start. Each Take goes over what it looks for, or stays where it is. A copy
/// is a place to come back to.
class DateScanner {
  public:
    explicit DateScanner(std::string_view text) : rest_(text) {}

    bool IsAtEnd() const { return rest_.empty(); }
    bool Take(char c);
    /// The one of these characters that comes next; NUL when none does.
    char TakeOneOf(std::string_view characters);
    /// True when there was at least one.
    bool TakeBlanks();
    /// Up to four digits.
    WrittenNumber TakeNumber();
    /// `lowerCase` in any letter case.
    bool TakeWord(std::string_view lowerCase);
    /// The letters of ASCII that come next.
    std::string_view TakeLetters();

  private:
    std::string_view rest_;
};

/// Three numbers between two of the same separator, one of those allowed. Four digits at the start
/// are the year, month and day then follow. Otherwise the year comes last, behind month and day,
/// or, between dots, day and month; where the month would be above 12, the two change places.
std::optional<WrittenDate> ReadNumericDate(DateScanner& scanner, std::string_view separators);

/// Fills in the day that was written, years of two digits completed. False where a number has too
/// many digits or none. Whether there is such a day is for IsPossible to say.
bool SetDay(const WrittenDate& written, DateTime& date);

/// Reads a time of day into the date: "13:05", "1:05:09 PM", "1 pm". False when there is none.
/// Whether there is such an hour of the 24 is for IsPossible to say.
bool ReadTimeOfDay(DateScanner& scanner, DateTime& date);

}  // namespace snippetarium
