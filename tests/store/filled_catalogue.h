#pragma once

#include <string>

namespace snippetarium::test {

/// A script that fills a new catalogue with as many procedures, all with a class, a keyword, a
/// search word, an author, a date and a language, and with a little of everything else.
inline std::string FillScript(int procedures) {
    const std::string numbers =
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
        std::to_string(procedures) + ") ";
    return numbers +
           "INSERT INTO tblCode(codeID, codeName, code, codeComment, classID, keywordID) "
           "SELECT i, 'Draw' || i, 'Sub Draw' || i || '()' || hex(zeroblob(i % 500)), "
           "CASE WHEN i % 3 THEN 'draws ' || i END, 2 + i / 20, 1 + i % 50 FROM n;" +
           numbers +
           "INSERT INTO tblClass(classID, className, appID, languageID, classDI, keywordID) "
           "SELECT DISTINCT 2 + i / 20, 'Grid' || (i / 20), 2 + i / 400, 1, 'Option Explicit', "
           "NULL FROM n;" +
           numbers +
           "INSERT INTO tblApplication(appID, appName, keywordID) "
           "SELECT DISTINCT 2 + i / 400, 'Paint ' || (i / 400), 1 FROM n;" +
           numbers + "INSERT INTO tblCode_Link_Language SELECT i, 1 + i % 11 FROM n;" + numbers +
           "INSERT INTO tbl_Author_Link SELECT i, 1 + i % 2, 3 FROM n;" + numbers +
           "INSERT INTO tbl_date_link SELECT i, 1 + i % 3, 3 FROM n;" +
           "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 50) "
           "INSERT INTO tblKeyword SELECT i, 'word' || i, 1 FROM n;"
           "INSERT INTO tblSearchWord SELECT keywordID, keyword FROM tblKeyword;"
           "INSERT INTO tblKeyword_link_searchWord SELECT keywordID, keywordID FROM tblKeyword;"
           "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee'), (2, 'Bob', 'M', 'O''Hara');"
           "INSERT INTO tblDate VALUES (1, '2001-03-14'), (2, '2002-12-01 08:30:00'), (3, "
           "'2024-02-29');"
           "INSERT INTO tbl_Author_Link VALUES (2, 1, 1), (2, 1, 2);"
           "INSERT INTO tbl_date_link VALUES (2, 1, 1), (2, 1, 2);"
           "INSERT INTO tblFavorite VALUES (2, 2, 3), (2, 2, NULL);"
           "INSERT INTO tblSourceForm VALUES (2, 'utf-8');"
           "INSERT INTO tblOverlong VALUES (2, 1, 'appComment', 'x'), (2, 2, 'classDI', 'y'), (3, "
           "3, 'code', 'z');"
           "INSERT INTO tblSetting VALUES ('theme', 'dark');";
}

}  // namespace snippetarium::test
