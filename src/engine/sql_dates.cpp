#include "engine/sql_dates.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

namespace snippetarium {

namespace {

constexpr int kPivot = 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

/// A run of digits. How many there are matters: "1" is the year 2001, "0001" no year of ours.
struct Digits {
    int value = 0;
    std::size_t count = 0;
};

/// Reads a text from its start. Each operation takes what it looks for, or nothing.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool IsAtEnd() const { return rest_.empty(); }

    bool Take(char c) {
        if (!rest_.starts_with(c)) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool TakeBlanks() {
        const std::size_t before = rest_.size();
        while (Take(' '))
            continue;
        return rest_.size() < before;
    }

    /// Up to four digits; none are a count of 0.
    Digits TakeDigits() {
        Digits digits;
        while (digits.count < 4 && !rest_.empty() && rest_[0] >= '0' && rest_[0] <= '9') {
            digits.value = digits.value * 10 + (rest_[0] - '0');
            ++digits.count;
            rest_.remove_prefix(1);
        }
        return digits;
    }

    /// `lowerCase` in any letter case.
    bool TakeWord(std::string_view lowerCase) {
        if (rest_.size() < lowerCase.size()) return false;
        for (std::size_t i = 0; i < lowerCase.size(); ++i) {
            const char c = rest_[i];
            const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
            if (lower != lowerCase[i]) return false;
        }
        rest_.remove_prefix(lowerCase.size());
        return true;
    }

  private:
    std::string_view rest_;
};

bool IsOneOrTwo(const Digits& digits) {
    return digits.count == 1 || digits.count == 2;
}

bool ReadDate(Scanner& scanner, DateTime& date) {
    std::array<Digits, 3> parts;
    parts[0] = scanner.TakeDigits();
    const char separator = scanner.Take('-') ? '-' : '/';
    if (separator == '/' && !scanner.Take('/')) return false;
    parts[1] = scanner.TakeDigits();
    if (!scanner.Take(separator)) return false;
    parts[2] = scanner.TakeDigits();

    const bool isYearFirst = parts[0].count == 4;
    if (isYearFirst) std::rotate(parts.begin(), parts.begin() + 1, parts.end());
    auto [month, day, year] = parts;
    if (!IsOneOrTwo(month) || !IsOneOrTwo(day) || year.count == 0) return false;
    if (!isYearFirst && month.value > 12) std::swap(month, day);
    date.year = year.count <= 2 ? YearFromTwoDigits(year.value) : year.value;
    date.month = month.value;
    date.day = day.value;
    return true;
}

/// Turns the hour of a twelve-hour clock into that of the day's 24.
bool ReadHalfOfDay(Scanner& scanner, int& hour, bool& isGiven) {
    const bool isMorning = scanner.TakeWord("am");
    isGiven = isMorning || scanner.TakeWord("pm");
    if (!isGiven) return true;
    if (hour < 1 || hour > 12) return false;
    hour = hour % 12 + (isMorning ? 0 : 12);
    return true;
}

bool ReadTime(Scanner& scanner, DateTime& date) {
    const Digits hour = scanner.TakeDigits();
    if (!IsOneOrTwo(hour)) return false;
    date.hour = hour.value;
    const bool hasMinutes = scanner.Take(':');
    if (hasMinutes) {
        const Digits minute = scanner.TakeDigits();
        if (!IsOneOrTwo(minute)) return false;
        date.minute = minute.value;
        if (scanner.Take(':')) {
            const Digits second = scanner.TakeDigits();
            if (!IsOneOrTwo(second)) return false;
            date.second = second.value;
        }
    }
    scanner.TakeBlanks();
    bool isHalfGiven = false;
    return ReadHalfOfDay(scanner, date.hour, isHalfGiven) && (hasMinutes || isHalfGiven);
}

}  // namespace

bool IsPossible(const DateTime& dateTime) {
    const auto isWithin = [](int value, int low, int high) {
        return value >= low && value <= high;
    };
    if (!isWithin(dateTime.year, kFirstYear, kLastYear)) return false;
    if (!isWithin(dateTime.month, 1, 12) || !isWithin(dateTime.day, 1, 31)) return false;
    const std::chrono::year_month_day day{std::chrono::year(dateTime.year),
                                          std::chrono::month(static_cast<unsigned>(dateTime.month)),
                                          std::chrono::day(static_cast<unsigned>(dateTime.day))};
    return day.ok() && isWithin(dateTime.hour, 0, 23) && isWithin(dateTime.minute, 0, 59) &&
           isWithin(dateTime.second, 0, 59);
}

int YearFromTwoDigits(int digits) {
    return digits + (digits < kPivot ? 2000 : 1900);
}

std::optional<DateTime> ParseDateLiteral(std::string_view text) {
    Scanner scanner(text);
    DateTime date;
    scanner.TakeBlanks();
    if (!ReadDate(scanner, date)) return std::nullopt;
    const bool isBlankBehind = scanner.TakeBlanks();
    if (!scanner.IsAtEnd() && (!isBlankBehind || !ReadTime(scanner, date))) return std::nullopt;
    scanner.TakeBlanks();
    if (!scanner.IsAtEnd() || !IsPossible(date)) return std::nullopt;
    return date;
}

std::string IsoText(const DateTime& dateTime) {
    std::array<char, 80> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%04d-%02d-%02d", dateTime.year, dateTime.month,
                  dateTime.day);
    std::string text = buffer.data();
    if (dateTime.hour != 0 || dateTime.minute != 0 || dateTime.second != 0) {
        std::snprintf(buffer.data(), buffer.size(), " %02d:%02d:%02d", dateTime.hour,
                      dateTime.minute, dateTime.second);
        text += buffer.data();
    }
    return text;
}

}  // namespace snippetarium
