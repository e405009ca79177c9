#pragma once

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// What the editors of shared things list: all of a kind, with how often each is used. Closed on a
// failure.

/// authorID, authorFName, authorMName, authorLName, ownerCount; by last name.
Recordset AllAuthors(Database& db);
/// dateID, dDate, ownerCount; the earliest first.
Recordset AllDates(Database& db);
/// languageID, language, Status, classCount, codeCount; by name.
Recordset AllLanguages(Database& db);
/// separatorID, separator, separatorDescription.
Recordset AllSeparators(Database& db);
/// Every owner with a keyword string: appID, classID, codeID (0 where the owner is above that
/// level), ownerName, keyword; by keyword.
Recordset AllOwnersWithKeywords(Database& db);

}  // namespace snippetarium
