#include "engine/sql_dates.h"

#include <gtest/gtest.h>

namespace snippetarium::test {
namespace {

std::string IsoOf(std::string_view literal) {
    const std::optional<DateTime> date = ParseDateLiteral(literal);
    return date ? IsoText(*date) : "none";
}

TEST(SqlDates, ReadsEveryOrderTheDialectKnows) {
    struct Case {
        std::string_view literal;
        std::string_view iso;
    };
    // clang-format off
    constexpr Case kCases[] = {
        {"2001-03-14",              "2001-03-14"},
        {"2001/3/4",                "2001-03-04"},
        {"3/14/2001",               "2001-03-14"},
        {"3-4-2001",                "2001-03-04"},
        {"14/3/2001",               "2001-03-14"},  // 14 is no month
        {"12/11/2001",              "2001-12-11"},
        {"13/12/2001",              "2001-12-13"},
        {"  3/14/2001  ",           "2001-03-14"},
        {"3/14/0",                  "2000-03-14"},
        {"3/14/29",                 "2029-03-14"},
        {"3/14/30",                 "1930-03-14"},
        {"3/14/99",                 "1999-03-14"},
        {"3/14/100",                "0100-03-14"},
        {"9999-12-31",              "9999-12-31"},
        {"2000-02-29",              "2000-02-29"},
        {"3/14/2001 00:00",         "2001-03-14"},
        {"3/14/2001 00:00:01",      "2001-03-14 00:00:01"},
        {"2001-03-14  13:05",       "2001-03-14 13:05:00"},
        {"3/14/2001 1:05:09 PM",    "2001-03-14 13:05:09"},
        {"3/14/2001 12:00 am",      "2001-03-14"},
        {"3/14/2001 12:30AM",       "2001-03-14 00:30:00"},
        {"3/14/2001 12 pm",         "2001-03-14 12:00:00"},
        {"3/14/2001 11:59:59 pm ",  "2001-03-14 23:59:59"},
    };
    // clang-format on
    for (const auto& [literal, iso] : kCases)
        EXPECT_EQ(IsoOf(literal), iso) << literal;
}

TEST(SqlDates, RefusesWhatIsNoDate) {
    // clang-format off
    constexpr std::string_view kTexts[] = {
        "", " ", "x", "2001", "3/14", "10:30", "2001-03", "2001-03-", "3/14/", "/3/14/2001", "3//2001",
        "2001-13-01", "2001-14-03", "13/13/2001", "0/1/2001", "1/0/2001", "1/32/2001", "2/29/2001",
        "1900-02-29", "4/31/2001", "2001-3/14", "3/14-2001", "14.03.2001", "0099-01-01", "3/14/0001",
        "99-01-01", "100-01-01", "12001-01-01", "3/14/20010", "003/14/2001", "2001-003-14", "-2001-03-14",
        "2001-03-14x", "2001-03-1410:30", "2001-03-14 10", "2001-03-14 24:00", "2001-03-14 10:60",
        "2001-03-14 10:30:60", "2001-03-14 13:00 pm", "2001-03-14 0:30 am", "2001-03-14 10:30 xm",
        "2001-03-14 10:30 pm x", "2001-03-14 10:", "2001-03-14 pm", "2001-03-14 10:30:15:00",
        "2001-03-14\t10:30", "2001-03-14\n",
    };
    // clang-format on
    for (const std::string_view text : kTexts)
        EXPECT_EQ(IsoOf(text), "none") << text;
}

TEST(SqlDates, EveryDayOfAGregorianCycleIsItsOwnText) {
    int days = 0;
    std::string previous;
    for (int year = 2000; year < 2400; ++year) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const DateTime date{year, month, day};
                if (!IsPossible(date)) continue;
                const std::string text = IsoText(date);
                EXPECT_LT(previous, text);
                EXPECT_EQ(ParseDateLiteral(text), date);
                previous = text;
                ++days;
            }
        }
    }
    EXPECT_EQ(days, 146097);
}

}  // namespace
}  // namespace snippetarium::test
