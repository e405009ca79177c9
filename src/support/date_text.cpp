#include "support/date_text.h"

#include <algorithm>
#include <string>

#include "support/case_fold.h"
#include "support/date_scanner.h"
#include "support/text.h"

namespace snippetarium {

namespace {

// clang-format off
constexpr std::string_view kMonths[] = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december",
};
// clang-format on
constexpr std::size_t kShortestMonth = 3;
constexpr std::string_view kOrdinalEndings[] = {"st", "nd", "rd", "th"};

/// Between the parts of a date with a named month: blanks, a sign, or both.
bool TakeSeparator(DateScanner& scanner) {
    const bool isBlank = scanner.TakeBlanks();
    const bool isSign = scanner.TakeOneOf("-./,") != '\0';
    scanner.TakeBlanks();
    return isBlank || isSign;
}

/// The day of a month, which may be an ordinal: "14th".
WrittenNumber TakeDay(DateScanner& scanner) {
    const WrittenNumber day = scanner.TakeNumber();
    if (day.count != 1 && day.count != 2) return day;
    for (const std::string_view ending : kOrdinalEndings) {
        if (scanner.TakeWord(ending)) break;
    }
    return day;
}

/// A count of 0 when no month is named.
WrittenNumber TakeMonth(DateScanner& scanner) {
    const std::string word = FoldCase(scanner.TakeLetters());
    if (word.size() < kShortestMonth) return {};
    const auto* const month = std::ranges::find_if(
        kMonths, [&](std::string_view name) { return name.starts_with(word); });
    if (month == std::end(kMonths)) return {};
    return {static_cast<int>(month - std::begin(kMonths)) + 1, 2};
}

/// A date in which the month is a word: behind the day, behind the year, or at the start.
std::optional<WrittenDate> ReadNamedDate(DateScanner& scanner) {
    const WrittenNumber first = TakeDay(scanner);
    if (first.count > 0) TakeSeparator(scanner);
    const WrittenNumber month = TakeMonth(scanner);
    if (month.count == 0) return std::nullopt;
    TakeSeparator(scanner);
    if (first.count == 4) return WrittenDate{first, month, TakeDay(scanner)};
    if (first.count > 0) return WrittenDate{scanner.TakeNumber(), month, first};
    const WrittenNumber day = TakeDay(scanner);
    if (!TakeSeparator(scanner)) return std::nullopt;
    return WrittenDate{scanner.TakeNumber(), month, day};
}

std::optional<WrittenDate> ReadWrittenDate(DateScanner& scanner) {
    const DateScanner start = scanner;
    if (const auto written = ReadNumericDate(scanner, "-/.")) return written;
    scanner = start;
    return ReadNamedDate(scanner);
}

}  // namespace

std::optional<DateTime> ParseDateText(std::string_view text) {
    DateScanner scanner(TrimToVisible(text));
    const std::optional<WrittenDate> written = ReadWrittenDate(scanner);
    if (!written || (written->year.count != 2 && written->year.count != 4)) return std::nullopt;
    DateTime day;
    if (!SetDay(*written, day)) return std::nullopt;
    DateTime dayAndTime = day;
    if (!scanner.IsAtEnd() && !(scanner.TakeBlanks() && ReadTimeOfDay(scanner, dayAndTime))) {
        return std::nullopt;
    }
    if (!scanner.IsAtEnd() || !IsPossible(dayAndTime)) return std::nullopt;
    return day;
}

bool IsDate(std::string_view text) {
    return ParseDateText(text).has_value();
}

}  // namespace snippetarium
