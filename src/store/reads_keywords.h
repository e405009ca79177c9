#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/recordset.h"

namespace snippetarium {

class Database;

// Reads of keyword strings, search words and separators.
// Each operation runs the named query of its name; store/named_query.h says how.

Recordset KeywordByID(Database& db, std::int32_t keywordID);
std::int32_t KeywordIDByAppID(Database& db, std::int32_t appID);
std::int32_t KeywordIDByClassID(Database& db, std::int32_t classID);
std::int32_t KeywordIDByCodeID(Database& db, std::int32_t codeID);
/// The keywords of the procedures of a class.
Recordset KeywordIDFromTblCodeByClassID(Database& db, std::int32_t newClassID);
/// An owner's keyword string with its separator and search words.
Recordset KeywordRSWithAppID(Database& db, std::int32_t appID);
Recordset KeywordRSWithClassID(Database& db, std::int32_t classID);
Recordset KeywordRSWithCodeID(Database& db, std::int32_t codeID);
std::string SeparatorByID(Database& db, std::int32_t separatorID);
/// The keyword strings that hold a search word.
Recordset SeparatorKeywordSearchWordsBySearchWords(Database& db, std::string_view searchWord);
/// Every search word, sorted.
Recordset AllSearchWords(Database& db);
std::int32_t SearchWordIDBySearchWord(Database& db, std::string_view searchWord);
/// Not 0 when the keyword is linked to the search word.
std::int32_t SearchWordIDByKeywordIDSearchWordID(Database& db, std::int32_t keywordID,
                                                 std::int32_t searchWordID);
/// How many search-word links, or keyword rows, the owners of one kind still have. The loops of a
/// deletion end by these.
std::int32_t CountCodeKeywordLinksByAppID(Database& db, std::int32_t appID);
std::int32_t CountCodeKeywordsByAppID(Database& db, std::int32_t appID);
std::int32_t CountClassKeywordLinksByAppID(Database& db, std::int32_t appID);
std::int32_t CountClassKeywordsByAppID(Database& db, std::int32_t appID);
std::int32_t CountCodeKeywordLinksByClassID(Database& db, std::int32_t classID);
std::int32_t CountCodeKeywordsByClassID(Database& db, std::int32_t classID);

}  // namespace snippetarium
