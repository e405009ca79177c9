#include "tests/cli/sample_catalogue.h"

#include <iterator>
#include <string>
#include <string_view>

#include "store/database.h"

namespace snippetarium {

namespace {

// In an empty catalogue the application becomes number 2, the classes become 2 and 3, and the
// procedures 1 to 5.
// clang-format off
constexpr std::string_view kStatements[] = {
    "INSERT INTO tblKeyword VALUES(1, 'calendar, leap year, month', 2)",
    "INSERT INTO tblKeyword VALUES(2, 'ring buffer, queue', 2)",
    "INSERT INTO tblSearchWord VALUES(1, 'calendar');",
    "INSERT INTO tblSearchWord VALUES(2, 'leap');",
    "INSERT INTO tblSearchWord VALUES(3, 'year');",
    "INSERT INTO tblSearchWord VALUES(4, 'month');",
    "INSERT INTO tblSearchWord VALUES(5, 'ring');",
    "INSERT INTO tblSearchWord VALUES(6, 'buffer');",
    "INSERT INTO tblSearchWord VALUES(7, 'queue');",
    "INSERT INTO tblKeyword_link_searchWord VALUES(1, 1);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(1, 2);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(1, 3);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(1, 4);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(2, 5);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(2, 6);",
    "INSERT INTO tblKeyword_link_searchWord VALUES(2, 7);",

    "INSERT INTO tblApplication(appName, appPath, appComment, appVersion)"
    " VALUES('Tide Tables', 'C:\\Projects\\Tides', 'Prints a harbour''s tides for a year.', '1.4');",

    R"(INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp, classDI, keywordID) VALUES ('modCalendar', 2, 1, 'modCalendar.bas', 'Attribute VB_Name = "modCalendar"
Option Explicit

''***Procedure IsLeapYear***
''***Procedure DaysInMonth***
''***Procedure DayOfYear***', 1))",
    "UPDATE tblClass SET classComment ='Days, months and years of the Gregorian calendar.' WHERE ClassID = 2",

    R"(INSERT INTO tblCode   (CodeName, Code, classID, keywordID) VALUES ('IsLeapYear', 'Public Function IsLeapYear(ByVal yearNumber As Integer) As Boolean
    IsLeapYear = (yearNumber Mod 4 = 0 And yearNumber Mod 100 <> 0) Or yearNumber Mod 400 = 0
End Function', 2, 1))",
    "UPDATE tblCode SET codeComment ='''Every fourth year, but only every fourth turn of a century.' WHERE codeID = 1",
    R"(INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('DaysInMonth', 'Public Function DaysInMonth(ByVal monthNumber As Integer, ByVal yearNumber As Integer) As Integer
    Select Case monthNumber
        Case 4, 6, 9, 11
            DaysInMonth = 30
        Case 2
            DaysInMonth = IIf(IsLeapYear(yearNumber), 29, 28)
        Case Else
            DaysInMonth = 31
    End Select
End Function', 2))",
    R"(INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('DayOfYear', 'Public Function DayOfYear(ByVal someDay As Date) As Integer
    DayOfYear = someDay - DateSerial(Year(someDay), 1, 1) + 1
End Function', 2))",

    R"(INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp, classDI, keywordID) VALUES ('HeightRing', 2, 2, 'src\HeightRing.java', 'final class HeightRing {
    private final double[] heights = new double[96];
    private int count;

    /***Procedure HeightRing.add(double height)***/

    /***Procedure HeightRing.mean()***/
}', 2))",
    R"(INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('HeightRing.add(double height)', 'void add(double height) {
        heights[count++ % heights.length] = height;
    }', 3))",
    R"(INSERT INTO tblCode   (CodeName, Code, classID, keywordID) VALUES ('HeightRing.mean()', 'double mean() {
        int known = Math.min(count, heights.length);
        double sum = 0;
        for (int i = 0; i < known; i++) sum += heights[i];
        return known == 0 ? 0 : sum / known;
    }', 3, 2))",
    "UPDATE tblCode SET codeComment ='/** The mean of the last day''s heights, in metres. */' WHERE codeID = 5",

    "INSERT INTO tblCode_Link_Language VALUES (1, 1)",
    "INSERT INTO tblCode_Link_Language VALUES (2, 1)",
    "INSERT INTO tblCode_Link_Language VALUES (3, 1)",
    "INSERT INTO tblCode_Link_Language VALUES (4, 2)",
    "INSERT INTO tblCode_Link_Language VALUES (5, 2)",

    "INSERT INTO tblAuthor VALUES (1, 'Marta', 'J.', 'Lindqvist')",
    "INSERT INTO tblAuthor VALUES (2, 'Tom', '', 'Okafor')",
    "INSERT INTO tbl_Author_Link Values(2, 1, 1)",
    "INSERT INTO tbl_Author_Link Values(2, 2, 1)",
    "INSERT INTO tbl_Author_Link Values(3, 2, 2)",
    "INSERT INTO tblDate VALUES(1, #1999-11-07#)",
    "INSERT INTO tblDate VALUES(2, #2003-02-18#)",
    "INSERT INTO tbl_date_link VALUES (2, 1, 1)",
    "INSERT INTO tbl_date_link VALUES (3, 2, 2)",
};
// clang-format on

/// The catalogue's line ends.
std::string WithCrLf(std::string_view text) {
    std::string result;
    for (const char character : text) {
        if (character == '\n') result += '\r';
        result += character;
    }
    return result;
}

}  // namespace

std::size_t AddSampleCatalogue(Database& db) {
    for (const std::string_view statement : kStatements)
        ExecuteSQL(db, WithCrLf(statement));
    return std::size(kStatements);
}

}  // namespace snippetarium
