#include "tests/engine/sample_statements.h"

#include <cstddef>
#include <iterator>
#include <regex>
#include <string_view>

namespace snippetarium::test {

namespace {

// clang-format off
constexpr std::string_view kDeleteKeywordLinks =
    "DELETE kls.* FROM tblKeyword_link_searchWord kls INNER JOIN tblSearchWord sw ON kls.searchWordID = sw.searchWordID WHERE sw.searchWord IN ('alpha','gamma')";
constexpr std::string_view kPlainDeleteKeywordLinks =
    "DELETE FROM tblKeyword_link_searchWord WHERE searchWordID IN (SELECT searchWordID FROM tblSearchWord WHERE searchWord IN ('alpha','gamma'))";

constexpr std::string_view kActions[] = {
    // applications, classes, procedures
    "INSERT INTO tblApplication(appName, appPath, appComment, appVersion, keywordID) VALUES('Grid', 'C:\\src', 'it''s (a; -- #comment#', '1.0', 3);",
    "INSERT INTO tblApplication(appName) VALUES('');",
    "UPDATE tblApplication SET appName = 'Grid', appComment='a ''quoted'' word', appPath= null, appVersion='2', keywordID=3 WHERE appID = 2;",
    "UPDATE tblApplication SET appName = 'Grid', appComment= null, appPath='C:\\x', appVersion= null WHERE appID = 3;",
    "INSERT INTO tblClass ( ClassName, appID, languageID, ClassPathInApp, classDI, keywordID) VALUES ('Menu', 2, 1, 'src\\Menu.cls', 'Option Explicit\r\n''***Procedure Draw***', 3)",
    "INSERT INTO tblClass ( ClassName, appID, languageID) VALUES ('Grünfläche', 1, 0)",
    "UPDATE tblClass SET classComment ='Draws; ''#1'' [x]' WHERE ClassID = 2",
    "UPDATE tblClass SET ClassName = 'Menu', appID = 2, languageID = 7, ClassPathInApp='a\\b', ClassDI='Dim x', keywordID=3 WHERE ClassID = 2",
    "UPDATE tblClass SET ClassName = 'Menu', appID = 3, languageID = 7, ClassPathInApp= null, ClassDI= null WHERE ClassID = 2",
    "UPDATE tblClass SET classComment = null WHERE ClassID = 2",
    "UPDATE tblClass SET classDI = '<!--**Procedure Load**-->' WHERE classID = 4",
    "INSERT INTO tblCode   (CodeName, Code, classID, keywordID) VALUES ('Draw', 'Sub Draw() ''comment\r\nEnd Sub', 2, 3)",
    "INSERT INTO tblCode   (CodeName, Code, classID) VALUES ('int f(char *s, ...)', '{ return \"?\"; /* # */ }', 5)",
    "UPDATE tblCode SET codeComment ='/* f */' WHERE codeID = 7",
    "UPDATE tblCode SET codeName = 'Draw2', Code = 'x', classID = 3, keywordID = 2 WHERE codeID = 2",
    "UPDATE tblCode SET codeName = 'Draw2', Code = '', classID = 1 WHERE codeID = 2",
    "UPDATE tblCode SET codeComment = null WHERE codeID = 2",
    "UPDATE tblCode SET codeName = 'Paint' WHERE codeID = 2;",
    "UPDATE tblClass SET className = 'Paint' WHERE classID = 2;",
    "UPDATE tblApplication SET appName = 'Painter' WHERE appID = 3;",
    "UPDATE tblCode_Link_Language SET languageID=5 WHERE codeID=2",
    "INSERT INTO tblCode_Link_Language VALUES (1, 1)",
    "UPDATE tblLanguage SET language = 'C99' WHERE languageID =5;",
    "INSERT INTO tblLanguage VALUES(10, 'Pascal', True);",
    "DELETE FROM tblLanguage where language ='html';",
    "INSERT INTO tblFavorite VALUES(2, 2, 2)",
    "INSERT INTO tblFavorite(appID, classID) VALUES(3, 4)",
    "UPDATE tblWindowSize SET tWidth = 1024, tHeight = 768, tLeft = -8, tTop = -8, leftChildIndex = 2, rightChildIndex = 0, wrap = 1, leftChildWidth = 300, rightChildWidth = 310 WHERE w_hID = 1;",
    "INSERT INTO tblWindowSize (tWidth, tHeight, tLeft, tTop, leftChildIndex, rightChildIndex, wrap, leftChildWidth, rightChildWidth) VALUES (1024, 768, -8, 0, 2, 0, 1, 300, 310 )",
    "UPDATE tblWindowSize SET fContentPos = 'right', fSearchPos = 'left', fIndexPos = 'left', fBookmarkPos = 'left';",
    "UPDATE tblWindowSize SET lastCompactDay = '3/14/2001'",
    // authors and dates
    "INSERT INTO tblAuthor VALUES (4, 'Sinéad', '', 'O''Connor')",
    "INSERT INTO tbl_Author_Link Values(6, 1, 3)",
    "INSERT INTO tbl_Author_Link(ownerID, authorID, ownerTableID) VALUES(6, 1, 3);",
    "UPDATE tbl_Author_Link SET authorID = 3 Where ownerID = 2 AND authorID = 1 AND ownerTableID = 3;",
    "UPDATE tblAuthor SET authorFName = 'Ada', authorMName = 'A', authorLName = 'Lovelace' WHERE authorID = 1;",
    "DELETE FROM tbl_date_link WHERE ownerID = 2 AND ownerTableID = 1",
    "INSERT INTO tbl_date_link VALUES(6, 1, 3)",
    "INSERT INTO tblDate VALUES(5, #2004-02-29#)",
    "INSERT INTO tblIDsToDelete SELECT authorID AS ID FROM tbl_Author_Link WHERE ownerID IN (2,4,5) AND ownerTableID=3",
    "DELETE FROM tbl_Author_Link WHERE ownerID IN (2,4,5) AND ownerTableID=3",
    "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT authorID FROM tbl_Author_Link)",
    "DELETE FROM tblAuthor WHERE authorID IN (SELECT authorID FROM tblIDsToDelete)",
    "INSERT INTO tblIDsToDelete SELECT dateID AS ID FROM tbl_date_link WHERE ownerID IN (SELECT codeID FROM tblCode WHERE classID =2) AND ownerTableID=3",
    "DELETE FROM tbl_date_link WHERE ownerID IN (SELECT cd.codeID FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID = 2) AND ownerTableID=3",
    "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT dateID FROM tbl_date_link)",
    "DELETE FROM tblDate WHERE dateID IN (SELECT dateID FROM tblIDsToDelete)",
    "DELETE FROM tblIDsToDelete",
    "DELETE FROM tbl_Author_Link WHERE ownerID IN (2,3) AND ownerTableID=1 AND authorID = 1",
    // deletion
    "DELETE FROM tblCode_Link_Language WHERE codeID IN (SELECT codeID FROM tblCode WHERE classID =2)",
    "DELETE FROM tblFavorite WHERE codeID IN (3)",
    "DELETE FROM tblCode WHERE codeID IN (SELECT cd.codeID FROM tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID = 2)",
    "DELETE FROM tblClass WHERE classID IN (SELECT classID FROM tblClass WHERE appID =2 AND classID > 1)",
    "DELETE FROM tblApplication WHERE appID IN (3)",
    "INSERT INTO tblIDsToDelete SELECT searchWordID AS ID FROM tblKeyword_link_searchWord WHERE keywordID IN(SELECT cd.keywordID FROM tblCode cd INNER JOIN tblClass cl ON cd.classID = cl.classID WHERE cd.keywordID is not null AND cl.appID = 2)",
    "DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (SELECT KeywordID FROM tblClass WHERE classID = 2 AND keywordID IS NOT NULL)",
    "DELETE FROM tblKeyword_link_searchWord WHERE keywordID IN (SELECT kl.keywordID FROM tblKeyword_link_searchWord kl INNER JOIN tblCode cd ON kl.keywordID = cd.keywordID WHERE cd.classID = 2)",
    "DELETE FROM tblKeyword WHERE keywordID IN (SELECT k.keywordID FROM (tblKeyword k INNER JOIN tblCode cd ON k.keywordID = cd.keywordID) INNER JOIN tblClass cls ON cd.classID = cls.classID WHERE cls.appID =2)",
    "DELETE FROM tblKeyword WHERE keywordID IN (SELECT k.keywordID FROM tblKeyword k INNER JOIN tblClass cls ON k.keywordID = cls.keywordID WHERE cls.appID = 2)",
    "DELETE FROM tblIDsToDelete WHERE ID IN (SELECT searchWordID FROM tblKeyword_link_searchWord)",
    "DELETE FROM tblSearchWord WHERE searchWordID IN (SELECT ID FROM tblIDsToDelete)",
    "DELETE FROM tblFavorite WHERE appID = 2 AND classID = 3 AND codeID IS NULL",
    "DELETE FROM tblFavorite WHERE appID = 2 AND classID = 2 AND codeID = 3",
    "UPDATE tblCode SET keywordID = null WHERE codeID = 2",
    // keywords, search words and noise words
    "INSERT INTO tblKeyword VALUES(5, 'alpha, it''s', 2)",
    "INSERT INTO tblSearchWord VALUES(5, 'delta');",
    "INSERT INTO tblKeyword_link_searchWord VALUES(4, 1);",
    "UPDATE tblClass SET keywordID = 3 WHERE classID=2",
    "UPDATE tblKeyword SET keyword = 'alpha; beta', separatorID = 3 WHERE keywordID = 3;",
    "UPDATE tblSearchWord SET searchWord = 'delta' WHERE searchWordID = 3;",
    "UPDATE tblKeyword_link_searchWord SET searchWordID = 4 WHERE searchWordID = 3 AND keywordID = 4;",
    "DELETE FROM tblSearchWord WHERE searchWordID = 4",
    "INSERT INTO tblCommonWord (commonWord) VALUES ('a')",
    kDeleteKeywordLinks,
    "DELETE FROM tblSearchWord WHERE searchWord IN ('alpha','it''s')",
    "DELETE FROM tblCommonWord WHERE CommonWord = 'THE';",
};

constexpr std::string_view kExistenceTests[] = {
    "SELECT codeID FROM tblFavorite WHERE codeID = 3",
    "SELECT * FROM tblWindowSize WHERE w_hID = 1;",
    "SELECT * FROM tblCommonWord WHERE commonWord='AND'",
    "SELECT max(codeID) FROM tblCode",
    "SELECT dateID FROM tblDate WHERE dDate = #2001-03-14#;",
    "SELECT authorID FROM tbl_Author_Link WHERE ownerID IN     (SELECT codeID FROM tblCode      WHERE classID IN         (SELECT classID FROM tblClass          WHERE appID = 2)) AND ownerTableID = 3",
};

constexpr std::string_view kSearchTexts[] = {
    /*  0 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID WHERE ",
    /*  1 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID WHERE cls.languageID = ",
    /*  2 */ " SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID WHERE cl.languageID = ",
    /*  3 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID WHERE cls.languageID = ",
    /*  4 */ "SELECT a.appName, a.appID, 0, 'N/A', 0, 'N/A' FROM tblApplication a INNER JOIN tblKeyword k ON a.keywordID = k.keywordID ",
    /*  5 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID ",
    /*  6 */ "SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID ",
    /*  7 */ "SELECT a.appName, a.appID, 0, 'N/A', 0, 'N/A' FROM ((tblApplication a INNER JOIN tblKeyword k ON a.keywordID = k.keywordID) INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID  WHERE sw.searchWord = '",
    /*  8 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID)  INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID  WHERE sw.searchWord = '",
    /*  9 */ "SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID) INNER JOIN tblKeyword_link_searchWord kl ON k.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID  WHERE sw.searchWord = '",
    /* 10 */ "SELECT a.appName, a.appID, 0, 'N/A', 0, 'N/A' FROM tblApplication a INNER JOIN (tblKeyword_link_searchWord kl INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID) ON a.keywordID = kl.keywordID WHERE ",
    /* 11 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN (tblKeyword_link_searchWord kls INNER JOIN tblSearchWord sw ON kls.searchWordID = sw.searchWordID) ON cd.keywordID = kls.keywordID WHERE ",
    /* 12 */ "SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN (tblKeyword_link_searchWord kl INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID) ON cls.keywordID = kl.keywordID WHERE ",
    /* 13 */ "SELECT a.appName, a.appID, 0, 'N/A', 0, 'N/A' FROM ((tblApplication a INNER JOIN tblKeyword_link_searchWord kls0 ON a.keywordID = kls0.keywordID)  INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 14 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword_link_searchWord kls0 ON cd.keywordID = kls0.keywordID)  INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 15 */ "SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword_link_searchWord kls0 ON cls.keywordID = kls0.keywordID)  INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 16 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblKeyword k  ON cd.keywordID = k.keywordID",
    /* 17 */ " SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID",
    /* 18 */ " SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID ",
    /* 19 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblKeyword_link_searchWord kl  ON cd.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID WHERE cls.languageID = ",
    /* 20 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblKeyword_link_searchWord kl  ON cd.keywordID = kl.keywordID) INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID WHERE cl.languageID = ",
    /* 21 */ " SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN (tblKeyword_link_searchWord kl INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID) ON cd.keywordID = kl.keywordID WHERE cls.languageID = ",
    /* 22 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN (tblKeyword_link_searchWord kl INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID) ON cd.keywordID = kl.keywordID WHERE cls.languageID = ",
    /* 23 */ " SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN (tblKeyword_link_searchWord kl INNER JOIN tblSearchWord sw ON kl.searchWordID = sw.searchWordID) ON cls.keywordID = kl.keywordID  WHERE cls.languageID = ",
    /* 24 */ "SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM (((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblKeyword_link_searchWord kls0  ON cd.keywordID = kls0.keywordID) INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 25 */ " SELECT a.appName, a.appID, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblKeyword_link_searchWord kls0 ON cd.keywordID = kls0.keywordID) INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 26 */ " SELECT a.appName, a.appID, cls.classID, cls.className, 0, 'N/A' FROM (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblKeyword_link_searchWord kls0 ON cls.keywordID = kls0.keywordID)  INNER JOIN tblSearchWord sw0 ON kls0.searchWordID = sw0.searchWordID)",
    /* 27 */ "SELECT a.appID, a.appName, 0, 'N/A', 0, 'N/A' FROM (tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblApplication a ON al.ownerID = a.appID WHERE al.ownerTableID = 1 AND ",
    /* 28 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblCode cd ON al.ownerID = cd.codeID) INNER JOIN tblClass cls ON cd.classID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 3 AND ",
    /* 29 */ "SELECT a.appID, a.appName, cls.classID, cls.className, 0, 'N/A' FROM (tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) ON al.ownerID = cls.classID WHERE al.ownerTableID = 2 AND ",
    /* 30 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblCode cd ON al.ownerID = cd.codeID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblClass cls ON cd.classID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 3 AND cls.languageID = ",
    /* 31 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM ((((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblCode cd ON al.ownerID = cd.codeID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) INNER JOIN tblClass cls ON cd.classID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 3 AND cl.languageID = ",
    /* 32 */ " SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblCode cd ON al.ownerID = cd.codeID) INNER JOIN tblClass cls ON cd.classID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 3 AND cls.languageID = ",
    /* 33 */ " SELECT a.appID, a.appName, cls.classID, cls.className, 0, 'N/A' FROM ((tblAuthor au INNER JOIN tbl_Author_Link al ON au.authorID = al.authorID) INNER JOIN tblClass cls ON al.ownerID = cls.classID) INNER JOIN tblApplication a ON cls.appID = a.appID WHERE al.ownerTableID = 2 AND cls.languageID = ",
    /* 34 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tbl_date_link dl INNER JOIN tblDate d ON dl.dateID = d.dateID) INNER JOIN ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd  ON cls.classID = cd.classID) ON dl.ownerID = cd.codeID WHERE dl.ownerTableID =3 AND d.dDate BETWEEN #",
    /* 35 */ "SELECT a.appID, a.appName, 0, 'N/A', 0, 'N/A' FROM (tbl_date_link dl INNER JOIN tblDate d ON dl.dateID = d.dateID) INNER JOIN tblApplication a ON dl.ownerID = a.appID WHERE dl.ownerTableID = 1 AND d.dDate BETWEEN #",
    /* 36 */ "SELECT a.appID, a.appName, cls.classID, cls.className, 0, 'N/A' FROM (tbl_date_link dl INNER JOIN tblDate d ON dl.dateID = d.dateID) INNER JOIN (tblApplication a INNER JOIN tblClass cls  ON a.appID = cls.appID) ON dl.ownerID = cls.classID WHERE dl.ownerTableID = 2 AND d.dDate BETWEEN #",
    /* 37 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tblDate d INNER JOIN tbl_date_link dl ON d.dateID = dl.dateID) INNER JOIN (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) ON dl.ownerID = cd.codeID WHERE dl.ownerTableID =3 AND d.dDate BETWEEN #",
    /* 38 */ " SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tblDate d INNER JOIN tbl_date_link dl ON d.dateID = dl.dateID) INNER JOIN ((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) ON dl.ownerID = cd.codeID WHERE dl.ownerTableID =3 AND d.dDate BETWEEN #",
    /* 39 */ "SELECT a.appID, a.appName, cls.classID, cls.className, cd.codeID, cd.codeName FROM (tblDate d INNER JOIN tbl_date_link dl ON d.dateID = dl.dateID) INNER JOIN (((tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) INNER JOIN tblCode cd ON cls.classID = cd.classID) INNER JOIN tblCode_Link_Language cl ON cd.codeID = cl.codeID) ON dl.ownerID = cd.codeID WHERE dl.ownerTableID = 3 AND d.dDate BETWEEN #",
    /* 40 */ " SELECT a.appID, a.appName, cls.classID, cls.className, 0, 'N/A' FROM (tblDate d INNER JOIN tbl_date_link dl ON d.dateID = dl.dateID) INNER JOIN (tblApplication a INNER JOIN tblClass cls ON a.appID = cls.appID) ON dl.ownerID = cls.classID WHERE dl.ownerTableID =2 AND d.dDate BETWEEN #",
};

// {12} stands for the text of that number, {or} and the like for the conditions below.
constexpr std::string_view kSearches[] = {
    "{0}{code};",
    "{3}6 AND ({code});",
    "{1}7 AND ({code}) UNION {2}7 AND ({code});",
    "{1}1 AND ({code});",
    "{5}{phrase} UNION {4}{phrase} UNION {6}{phrase};",
    "{16}{phrase} AND cls.languageID = 6 UNION {18}{phrase} AND cls.languageID = 6;",
    "{16}{phrase} AND cl.languageID = 7 UNION {17}{phrase} AND cls.languageID = 7 UNION {18}{phrase} AND cls.languageID = 7;",
    "{17}{phrase} AND cls.languageID = 1 UNION {18}{phrase} AND cls.languageID = 1;",
    "{8}alpha' UNION {7}alpha' UNION {9}alpha';",
    "{11}{or} UNION {10}{or} UNION {12}{or};",
    "{19}6 AND ({or}) UNION {23}6 AND ({or});",
    "{20}7 AND ({or}) UNION {21}7 AND ({or}) UNION {23}7 AND ({or});",
    "{22}1 AND ({or}) UNION {23}1 AND ({or});",
    "{24}{and} AND cls.languageID = 6 UNION {26}{and} AND cls.languageID = 6;",
    "{24}{and} AND cl.languageID = 1 UNION {25}{and} AND cls.languageID = 1 UNION {26}{and} AND cls.languageID = 1;",
    "{25}{and} AND cls.languageID = 1 UNION {26}{and} AND cls.languageID = 1;",
    "{28}{author} UNION {27}{author} UNION {29}{author};",
    "{30}6 AND ({author}) UNION {33}6 AND ({author});",
    "{31}7 AND ({author}) UNION {32}7 AND ({author}) UNION {33}7 AND ({author});",
    "{32}1 AND ({author}) UNION {33}1 AND ({author});",
    "{34}{range}#  UNION {35}{range}#  UNION {36}{range}#;",
    "{37}{range}# AND cls.languageID = 6 UNION {40}{range}# AND cls.languageID = 6;",
    "{39}{range}# AND cl.languageID = 7 UNION {38}{range}# AND cls.languageID = 7 UNION {40}{range}# AND cls.languageID = 7;",
    "{38}{range}# AND cls.languageID = 5 UNION {40}{range}# AND cls.languageID = 5;",
};

constexpr std::string_view kAndJoins =
    " INNER JOIN tblKeyword_link_searchWord KLS{i} ON kls{i-1}.keywordID = kls{i}.keywordID) INNER JOIN tblSearchWord sw{i} ON kls{i}.searchWordID = sw{i}.searchWordID)";

struct Condition {
    std::string_view name;
    std::string_view text;
};

constexpr Condition kConditions[] = {
    {"code",   "( cd.Code LIKE '%alpha%' or not cd.Code LIKE '%(;--#%' )  OR cls.classDI ='int beta;' "},
    {"phrase", " WHERE k.keyword LIKE '%a%'"},
    {"or",     "sw.searchWord LIKE 'al%' or sw.searchWord LIKE '_eta' or ( sw.searchWord ='gamma' )"},
    {"author", "au.authorFName ='ADA' or au.authorFName LIKE 'J%' OR au.authorMName ='M' OR au.authorLName LIKE 'O_Neil' "},
    {"range",  "1999-01-01# AND #2002-12-31"},
};
// clang-format on

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t i = 0; (i = text.find(from, i)) != std::string::npos; i += to.size()) {
        text.replace(i, from.size(), to);
    }
    return text;
}

/// What follows the first search word's joins: two joins for each further word, then the condition.
std::string AndCondition(int wordCount) {
    std::string joins;
    std::string condition = " WHERE (sw0.searchWord ='alpha' ";
    for (int i = 1; i < wordCount; ++i) {
        const std::string previous = std::to_string(i - 1);
        const std::string number = std::to_string(i);
        joins += Replaced(Replaced(std::string(kAndJoins), "{i-1}", previous), "{i}", number);
        condition += Replaced("AND sw{i}.searchWord ='beta' ", "{i}", number);
    }
    return joins + condition + ")";
}

std::string Expanded(std::string_view recipe, int wordCount) {
    std::string text(recipe);
    for (const Condition& condition : kConditions) {
        text = Replaced(text, "{" + std::string(condition.name) + "}", condition.text);
    }
    for (std::size_t i = 0; i < std::size(kSearchTexts); ++i) {
        text = Replaced(text, "{" + std::to_string(i) + "}", kSearchTexts[i]);
    }
    if (text.find("{and}") == std::string::npos) return text;
    const std::string brackets(2 * static_cast<std::size_t>(wordCount - 1), '(');
    return Replaced(Replaced(text, "{and}", AndCondition(wordCount)), "(tblApplication",
                    brackets + "(tblApplication");
}

}  // namespace

std::vector<std::string> ActionStatements() {
    return std::vector<std::string>(std::begin(kActions), std::end(kActions));
}

std::vector<std::string> ReadStatements() {
    std::vector<std::string> statements(std::begin(kExistenceTests), std::end(kExistenceTests));
    for (const std::string_view recipe : kSearches)
        statements.push_back(Expanded(recipe, 2));
    statements.push_back(KeywordAndSearch(2));
    return statements;
}

std::string KeywordAndSearch(int wordCount) {
    return Expanded("{14}{and} UNION {13}{and} UNION {15}{and};", wordCount);
}

std::string PlainStatement(const std::string& statement) {
    if (statement == kDeleteKeywordLinks) return std::string(kPlainDeleteKeywordLinks);
    return std::regex_replace(statement, std::regex("#(\\d{4}-\\d\\d-\\d\\d)#"), "'$1'");
}

}  // namespace snippetarium::test
