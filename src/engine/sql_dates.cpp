#include "engine/sql_dates.h"

#include "support/date_scanner.h"

namespace snippetarium {

std::optional<DateTime> ParseDateLiteral(std::string_view text) {
    DateScanner scanner(text);
    DateTime date;
    scanner.TakeBlanks();
    const std::optional<WrittenDate> written = ReadNumericDate(scanner, "-/");
    if (!written || !SetDay(*written, date)) return std::nullopt;
    const bool isBlankBehind = scanner.TakeBlanks();
    if (!scanner.IsAtEnd() && (!isBlankBehind || !ReadTimeOfDay(scanner, date)))
        return std::nullopt;
    scanner.TakeBlanks();
    if (!scanner.IsAtEnd() || !IsPossible(date)) return std::nullopt;
    return date;
}

}  // namespace snippetarium
