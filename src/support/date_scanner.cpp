#include "support/date_scanner.h"

#include <algorithm>
#include <array>
#include <utility>

namespace snippetarium {

namespace {

constexpr std::size_t kMostDigits = 4;

char ToLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsLetter(char c) {
    return ToLower(c) >= 'a' && ToLower(c) <= 'z';
}

bool IsOneOrTwo(const WrittenNumber& number) {
    return number.count == 1 || number.count == 2;
}

/// Turns the hour of a twelve-hour clock into that of the day's 24.
bool ReadHalfOfDay(DateScanner& scanner, int& hour, bool& isGiven) {
    const bool isMorning = scanner.TakeWord("am");
    isGiven = isMorning || scanner.TakeWord("pm");
    if (!isGiven) return true;
    if (hour < 1 || hour > 12) return false;
    hour = hour % 12 + (isMorning ? 0 : 12);
    return true;
}

}  // namespace

bool DateScanner::Take(char c) {
    if (!rest_.starts_with(c)) return false;
    rest_.remove_prefix(1);
    return true;
}

char DateScanner::TakeOneOf(std::string_view characters) {
    const auto found = std::ranges::find_if(characters, [this](char c) { return Take(c); });
    return found == characters.end() ? '\0' : *found;
}

bool DateScanner::TakeBlanks() {
    const std::size_t before = rest_.size();
    while (Take(' '))
        continue;
    return rest_.size() < before;
}

WrittenNumber DateScanner::TakeNumber() {
    WrittenNumber number;
    while (number.count < kMostDigits && !rest_.empty() && rest_[0] >= '0' && rest_[0] <= '9') {
        number.value = number.value * 10 + (rest_[0] - '0');
        ++number.count;
        rest_.remove_prefix(1);
    }
    return number;
}

bool DateScanner::TakeWord(std::string_view lowerCase) {
    if (rest_.size() < lowerCase.size()) return false;
    if (!std::ranges::equal(rest_.substr(0, lowerCase.size()), lowerCase, {}, ToLower)) {
        return false;
    }
    rest_.remove_prefix(lowerCase.size());
    return true;
}

std::string_view DateScanner::TakeLetters() {
    const auto end = std::ranges::find_if_not(rest_, IsLetter);
    const std::string_view letters(rest_.begin(), end);
    rest_.remove_prefix(letters.size());
    return letters;
}

std::optional<WrittenDate> ReadNumericDate(DateScanner& scanner, std::string_view separators) {
    std::array<WrittenNumber, 3> parts;
    parts[0] = scanner.TakeNumber();
    const char separator = scanner.TakeOneOf(separators);
    if (separator == '\0') return std::nullopt;
    parts[1] = scanner.TakeNumber();
    if (!scanner.Take(separator)) return std::nullopt;
    parts[2] = scanner.TakeNumber();

    const auto& [first, second, third] = parts;
    if (first.count == kMostDigits) return WrittenDate{first, second, third};
    WrittenDate written{third, first, second};
    if (separator == '.') std::swap(written.month, written.day);
    if (written.month.value > 12) std::swap(written.month, written.day);
    return written;
}

bool SetDay(const WrittenDate& written, DateTime& date) {
    const auto& [year, month, day] = written;
    if (!IsOneOrTwo(month) || !IsOneOrTwo(day) || year.count == 0) return false;
    date.year = year.count <= 2 ? YearFromTwoDigits(year.value) : year.value;
    date.month = month.value;
    date.day = day.value;
    return true;
}

bool ReadTimeOfDay(DateScanner& scanner, DateTime& date) {
    const WrittenNumber hour = scanner.TakeNumber();
    if (!IsOneOrTwo(hour)) return false;
    date.hour = hour.value;
    const bool hasMinutes = scanner.Take(':');
    if (hasMinutes) {
        const WrittenNumber minute = scanner.TakeNumber();
        if (!IsOneOrTwo(minute)) return false;
        date.minute = minute.value;
        if (scanner.Take(':')) {
            const WrittenNumber second = scanner.TakeNumber();
            if (!IsOneOrTwo(second)) return false;
            date.second = second.value;
        }
    }
    scanner.TakeBlanks();
    bool isHalfGiven = false;
    return ReadHalfOfDay(scanner, date.hour, isHalfGiven) && (hasMinutes || isHalfGiven);
}

}  // namespace snippetarium
