#include "support/calendar.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace snippetarium {

namespace {

constexpr int kPivot = 30;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

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
