#include "editors/catalogue_lists.h"

#include <string_view>

#include "store/database.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

constexpr std::string_view kAuthors = R"(
SELECT au.authorID, au.authorFName, au.authorMName, au.authorLName,
    (SELECT count(*) FROM tbl_Author_Link al WHERE al.authorID = au.authorID) AS ownerCount
FROM tblAuthor au
ORDER BY au.authorLName, au.authorFName, au.authorMName, au.authorID)";

constexpr std::string_view kDates = R"(
SELECT d.dateID, d.dDate,
    (SELECT count(*) FROM tbl_date_link dl WHERE dl.dateID = d.dateID) AS ownerCount
FROM tblDate d
ORDER BY d.dDate, d.dateID)";

constexpr std::string_view kLanguages = R"(
SELECT lan.languageID, lan.language, lan.Status,
    (SELECT count(*) FROM tblClass cls WHERE cls.languageID = lan.languageID) AS classCount,
    (SELECT count(*) FROM tblCode_Link_Language cl WHERE cl.languageID = lan.languageID)
        AS codeCount
FROM tblLanguage lan
ORDER BY lan.language, lan.languageID)";

constexpr std::string_view kSeparators = R"(
SELECT separatorID, separator, separatorDescription
FROM tblSeparator
ORDER BY separatorID)";

constexpr std::string_view kOwnersWithKeywords = R"(
SELECT a.appID, 0 AS classID, 0 AS codeID, a.appName AS ownerName, k.keyword
FROM tblApplication a INNER JOIN tblKeyword k ON a.keywordID = k.keywordID
UNION ALL
SELECT cls.appID, cls.classID, 0, cls.className, k.keyword
FROM tblClass cls INNER JOIN tblKeyword k ON cls.keywordID = k.keywordID
UNION ALL
SELECT cls.appID, cls.classID, cd.codeID, cd.codeName, k.keyword
FROM (tblCode cd INNER JOIN tblClass cls ON cd.classID = cls.classID)
    INNER JOIN tblKeyword k ON cd.keywordID = k.keywordID
ORDER BY keyword, appID, classID, codeID)";

Recordset Read(Database& db, Procedure procedure, std::string_view statement) {
    return Guarded(db.Reporter(), procedure, [&] { return db.GetConnection().Execute(statement); });
}

}  // namespace

Recordset AllAuthors(Database& db) {
    return Read(db, Procedure::AllAuthors, kAuthors);
}

Recordset AllDates(Database& db) {
    return Read(db, Procedure::AllDates, kDates);
}

Recordset AllLanguages(Database& db) {
    return Read(db, Procedure::AllLanguages, kLanguages);
}

Recordset AllSeparators(Database& db) {
    return Read(db, Procedure::AllSeparators, kSeparators);
}

Recordset AllOwnersWithKeywords(Database& db) {
    return Read(db, Procedure::AllOwnersWithKeywords, kOwnersWithKeywords);
}

}  // namespace snippetarium
