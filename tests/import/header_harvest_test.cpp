#include "import/header_harvest.h"

#include <gtest/gtest.h>

#include <ostream>

namespace snippetarium {

void PrintTo(const AuthorName& name, std::ostream* out) {
    *out << name.first << '|' << name.middle << '|' << name.last;
}

namespace {

using Authors = std::vector<AuthorName>;
using Dates = std::vector<std::string>;

struct AuthorCase {
    std::string_view line;
    Authors authors;
};

TEST(HeaderHarvest, SplitsAuthorsIntoPeopleAndTheirNames) {
    // clang-format off
    const std::vector<AuthorCase> cases{
        {"' Author: Ann Lee",                          {{"Ann", "", "Lee"}}},
        {"' author:Moss",                              {{"", "", "Moss"}}},
        {" * Written by: Ann B. C. Lee  */",           {{"Ann", "B. C.", "Lee"}}},
        {"'* Authors: Ann Lee, Bob Moss and Cy Orr",   {{"Ann", "", "Lee"}, {"Bob", "", "Moss"}, {"Cy", "", "Orr"}}},
        {"//Programmer: Ann Lee & Bob Moss;Cy Orr",    {{"Ann", "", "Lee"}, {"Bob", "", "Moss"}, {"Cy", "", "Orr"}}},
        {"rem Developer: Andrea Sand",                 {{"Andrea", "", "Sand"}}},
        {"'Created by: Ann Lee <ann@example.org>",     {{"Ann", "", "Lee"}}},
        {"'Author: Ann Lee (the first [of two]) Orr",  {{"Ann", "Lee", "Orr"}}},
        {"'Author: ann@example.org",                   {}},
        {"'Author: Ann Lee, 14-Mar-2001, 17",          {{"Ann", "", "Lee"}}},
        {"'Author: Ann Lee, ANN LEE, Ann Lee",         {{"Ann", "", "Lee"}, {"ANN", "", "LEE"}}},
        {"'Author: Ann Lee <ann@example.org, Bob",     {{"Ann", "", "Lee"}}},
        {"'Author: J\xC3\xBCrg M\xC3\xBCller",         {{"J\xC3\xBCrg", "", "M\xC3\xBCller"}}},
        {"'Author: \xD0\x8F",                          {{"", "", "\xD0\x8F"}}},
        {"'Author:",                                   {}},
        {"'Author: , and ; &",                         {}},
        {"<!-- Author: Ann Lee -->",                   {{"Ann", "", "Lee"}}},
        {"'*  Author: Ann Lee          *",             {{"Ann", "", "Lee"}}},
        {"' The Author: Ann Lee",                      {}},
        {"' Authority: none",                          {}},
    };
    // clang-format on
    for (const AuthorCase& test : cases)
        EXPECT_EQ(HarvestHeader(test.line).authors, test.authors) << test.line;
}

struct DateCase {
    std::string_view line;
    Dates dates;
};

TEST(HeaderHarvest, FindsEveryDateOfALine) {
    // clang-format off
    const std::vector<DateCase> cases{
        {"' Date: 2001-03-14",                              {"2001-03-14"}},
        {"' Created: March 14, 2001 */",                    {"2001-03-14"}},
        {"' Created on: 3/14/2001 13:05",                   {"2001-03-14"}},
        {"' Last modified: 14-Mar-2001, by Bob.",           {"2001-03-14"}},
        {"' Modified: 3/14/2001, 4/1/2002; 3/14/2001",      {"2001-03-14", "2002-04-01"}},
        {"' Modified: by Bob on (14.03.2001) for the fair", {"2001-03-14"}},
        {"' Date: some day",                                {}},
        {"' Date: 30 February 2001",                        {}},
        {"' Updated: 2001-03-14",                           {}},
    };
    // clang-format on
    for (const DateCase& test : cases)
        EXPECT_EQ(HarvestHeader(test.line).dates, test.dates) << test.line;
}

TEST(HeaderHarvest, TakesKeywordsAsTheyStandAndJoinsLines) {
    EXPECT_EQ(HarvestHeader("' Keywords: grid, C++ ; C#").keywords, "grid, C++ ; C#");
    EXPECT_EQ(HarvestHeader("/*\r\n * Keywords: grid\r\n * keywords:\r\n * KEYWORDS: ring *\r\n */")
                  .keywords,
              "grid, ring");
}

TEST(HeaderHarvest, ReadsEachLineOfACommentByItself) {
    const HarvestedHeader header = HarvestHeader(
        "'******************\r\n"
        "' Draws the grid.\r\n"
        "'   Author:  Ann Lee\r\n"
        "'   Date:    1/2/1999\n"
        "'   Written by: Bob Moss\r\n"
        "'   Modified: 5/6/1999 by Author: Cy Orr\r\n"
        "'******************");
    EXPECT_EQ(header.authors, (Authors{{"Ann", "", "Lee"}, {"Bob", "", "Moss"}}));
    EXPECT_EQ(header.dates, (Dates{"1999-01-02", "1999-05-06"}));
    EXPECT_EQ(header.keywords, "");
    EXPECT_EQ(HarvestHeader(""), HarvestedHeader{});
}

}  // namespace
}  // namespace snippetarium
