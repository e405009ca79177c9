#include "support/date_text.h"

#include <gtest/gtest.h>

#include <string>

namespace snippetarium::test {
namespace {

std::string IsoOf(std::string_view text) {
    const std::optional<DateTime> day = ParseDateText(text);
    EXPECT_EQ(IsDate(text), day.has_value()) << text;
    return day ? IsoText(*day) : "none";
}

TEST(DateText, ReadsTheFormsThatPeopleWrite) {
    struct Case {
        std::string_view text;
        std::string_view iso;
    };
    // clang-format off
    constexpr Case kCases[] = {
        {"2001-03-14",             "2001-03-14"},
        {"2001/3/14",              "2001-03-14"},
        {"2001.03.04",             "2001-03-04"},
        {"3/14/2001",              "2001-03-14"},
        {"3-4-2001",               "2001-03-04"},
        {"14/3/2001",              "2001-03-14"},  // 14 is no month
        {"14.03.2001",             "2001-03-14"},
        {"4.3.2001",               "2001-03-04"},
        {"03.14.2001",             "2001-03-14"},  // nor is it here
        {"12.11.01",               "2001-11-12"},
        {"14-Mar-2001",            "2001-03-14"},
        {"14 march 2001",          "2001-03-14"},
        {"1st Sept. 2001",         "2001-09-01"},
        {"14/MAR/2001",            "2001-03-14"},
        {"14Mar2001",              "2001-03-14"},
        {"March 14, 2001",         "2001-03-14"},
        {"Mar. 2nd 2001",          "2001-03-02"},
        {"dec-31-99",              "1999-12-31"},
        {"May 3rd,2001",           "2001-05-03"},
        {"2001 Mar 14",            "2001-03-14"},
        {"3/14/29",                "2029-03-14"},
        {"3/14/30",                "1930-03-14"},
        {"14-Mar-00",              "2000-03-14"},
        {"29 Feb 2000",            "2000-02-29"},
        {" \t2001-03-14\r\n",      "2001-03-14"},
        {"\u200F14.03.2001\u00A0", "2001-03-14"},  // marks and blanks that nobody sees
        {"2001-03-14 13:05:09",    "2001-03-14"},
        {"March 14, 2001 1:05 PM", "2001-03-14"},
    };
    // clang-format on
    for (const auto& [text, iso] : kCases)
        EXPECT_EQ(IsoOf(text), iso) << text;
}

TEST(DateText, RefusesWhatIsNoDay) {
    // clang-format off
    constexpr std::string_view kTexts[] = {
        "", " ", "today", "2001", "March", "March 2001", "14 March", "March 14", "3/14", "10:30",
        "2001-02-29", "31.04.2001", "Feb 30, 2001", "0.1.2001", "14.13.2001", "13/13/2001",
        "32-Mar-2001", "0 March 2001", "2001-13-01", "0099-01-01",
        "1.2.3", "14.3.100", "3/14/1", "14-Mar-001", "March 14, 20011", "12001-03-14",
        "14-Ma-2001", "14-Marx-2001", "14-Marches-2001", "Mar142001", "March 14th2001", "14-M\u00E4r-2001",
        "2001-03.14", "3/14-2001", "March 14,, 2001", "14--Mar-2001", "-14-Mar-2001", "March th, 2001",
        "2001-03-14 25:00", "2001-03-14 10", "2001-03-14 10:30x", "2001-03-14x", "2001-03-14 2001-03-14",
        "3/14/2001'); DELETE FROM tblCode", "#3/14/2001#", "Date: 3/14/2001",
    };
    // clang-format on
    for (const std::string_view text : kTexts)
        EXPECT_EQ(IsoOf(text), "none") << text;
}

TEST(DateText, ReadsEveryMonthByItsNameAndByEachOfItsAbbreviations) {
    constexpr std::string_view kNames[] = {"January",   "February", "March",    "April",
                                           "May",       "June",     "July",     "August",
                                           "September", "October",  "November", "December"};
    int month = 0;
    for (const std::string_view name : kNames) {
        ++month;
        for (std::size_t length = 0; length <= name.size(); ++length) {
            const std::string text = "2 " + std::string(name.substr(0, length)) + " 2001";
            const std::string expected = length < 3 ? "none" : IsoText({2001, month, 2});
            EXPECT_EQ(IsoOf(text), expected) << text;
        }
    }
}

TEST(DateText, ReadsItsOwnFormBackForEveryDay) {
    for (int year = 1999; year <= 2004; ++year) {
        for (int month = 0; month <= 13; ++month) {
            for (int day = 0; day <= 32; ++day) {
                const DateTime date{year, month, day};
                const std::string text = IsoText(date);
                EXPECT_EQ(IsoOf(text), IsPossible(date) ? text : "none");
            }
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
