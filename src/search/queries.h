#pragma once

#include <cstdint>
#include <string_view>

#include "engine/recordset.h"
#include "search/statements.h"

namespace snippetarium {

class Database;

// The searches. Each runs one statement and returns topics: rows with appName, appID, className,
// classID, codeName and codeID, where 0 and 'N/A' stand for a level that the topic does not reach.
// The statement is kept as the database's last search statement.
//
// Typed text reaches the statements, so they run under the guard of searches
// (engine/statement_guard.h). What the engine refuses, and a search that was cancelled, is reported
// and gives a closed recordset.

Recordset CodeTextSearch(Database& db, std::string_view condition);
Recordset CodeTextSearchLanguage(Database& db, std::string_view condition, std::int16_t languageID);
Recordset KeywordPhraseSearch(Database& db, std::string_view where);
Recordset KeywordPhraseSearchLanguage(Database& db, std::string_view where,
                                      std::int16_t languageID);
Recordset IndexWordSearch(Database& db, std::string_view word);
Recordset KeywordOrSearch(Database& db, std::string_view condition);
Recordset KeywordOrSearchLanguage(Database& db, std::string_view condition,
                                  std::int16_t languageID);
Recordset KeywordAndSearch(Database& db, const KeywordAndCondition& condition);
Recordset KeywordAndSearchLanguage(Database& db, const KeywordAndCondition& condition,
                                   std::int16_t languageID);
Recordset AuthorSearch(Database& db, std::string_view condition);
Recordset AuthorSearchLanguage(Database& db, std::string_view condition, std::int16_t languageID);
Recordset DateRangeSearch(Database& db, const DateRange& range);
Recordset DateRangeSearchLanguage(Database& db, const DateRange& range, std::int16_t languageID);

// These two are stored queries. The last search statement is then the query with its values, as
// "EXECUTE qryCodeClassAppRSByName 'draw';".

/// A part of a procedure's name.
Recordset NameSearch(Database& db, std::string_view name);
Recordset NameSearchLanguage(Database& db, std::string_view name, std::int16_t languageID);
/// A part of a comment. "%", "_" and "[" in it are wildcards.
Recordset CommentSearch(Database& db, std::string_view comment);
Recordset CommentSearchLanguage(Database& db, std::string_view comment, std::int16_t languageID);

}  // namespace snippetarium
