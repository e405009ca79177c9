#include "quick/day_range.h"

#include <algorithm>
#include <cstddef>

#include "support/calendar.h"

namespace snippetarium {

namespace {

constexpr std::string_view kBetween = "..";
/// Behind every character of a date text.
constexpr std::string_view kBehind = "~";

bool AreDigits(std::string_view text, std::size_t count) {
    return text.size() >= count && std::all_of(text.begin(), text.begin() + count, [](char digit) {
               return digit >= '0' && digit <= '9';
           });
}

int Number(std::string_view digits) {
    int number = 0;
    for (const char digit : digits)
        number = number * 10 + (digit - '0');
    return number;
}

/// The longest beginning of the text that is a year, a month or a day; empty without a year.
std::string_view Day(std::string_view text) {
    constexpr std::size_t kYear = 4;
    constexpr std::size_t kMonth = 7;
    constexpr std::size_t kDay = 10;
    const auto hasPart = [text](std::size_t from) {
        return text.size() > from && text[from] == '-' && AreDigits(text.substr(from + 1), 2);
    };
    if (!AreDigits(text, kYear)) return {};
    DateTime day{.year = Number(text.substr(0, kYear)), .month = 1, .day = 1};
    if (!IsPossible(day)) return {};
    if (!hasPart(kYear)) return text.substr(0, kYear);
    day.month = Number(text.substr(kYear + 1, 2));
    if (!IsPossible(day)) return text.substr(0, kYear);
    if (!hasPart(kMonth)) return text.substr(0, kMonth);
    day.day = Number(text.substr(kMonth + 1, 2));
    return text.substr(0, IsPossible(day) ? kDay : kMonth);
}

std::string Behind(std::string_view day) {
    return std::string(day) + std::string(kBehind);
}

}  // namespace

ParsedDays ParseDays(std::string_view text) {
    const std::size_t between = text.find(kBetween);
    const std::string_view start = text.substr(0, between);
    const std::string_view first = Day(start);
    if (between == std::string_view::npos) {
        if (first.empty()) return {};
        return {DayRange{std::string(first), Behind(first)}, first == text};
    }
    const std::string_view end = text.substr(between + kBetween.size());
    const std::string_view last = Day(end);
    if (first.empty() && last.empty()) return {};
    if (first.empty() && !start.empty()) return {};
    DayRange days{std::string(first), Behind(last)};
    const bool isWhole = first == start && last == end && days.first < days.behind;
    return {std::move(days), isWhole};
}

}  // namespace snippetarium
