#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace snippetarium {

/// Some days, as bounds for the catalogue's date texts ("2001-03-14", with or without a time of
/// day): those of the range are `first` or behind it, and before `behind`. The bounds need not be
/// dates themselves.
struct DayRange {
    std::string first;
    std::string behind;

    bool Holds(std::string_view isoText) const { return first <= isoText && isoText < behind; }
};

/// Whether a text can be read, and whether all of it was needed.
struct ParsedDays {
    std::optional<DayRange> days;
    /// The text is a range to its last letter, and does not run backwards.
    bool isWhole = false;
};

/// Reads a year, month or day, or two of them with ".." between, one of which may be missing:
///
///     2001   2001-03   2001-03-14   2001..2003   2001-03..   ..2003
///
/// Of a text whose end is unfinished ("2001-0", "2001..20") the finished beginning counts.
ParsedDays ParseDays(std::string_view text);

}  // namespace snippetarium
