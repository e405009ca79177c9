#include "store/reads_keywords.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset KeywordByID(Database& db, std::int32_t keywordID) {
    return ReadRecordset(db, Procedure::qryKeywordByID, {Parameter::Long("keywordID", keywordID)});
}

std::int32_t KeywordIDByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryKeywordIDByAppID, {Parameter::Long("appID", appID)});
}

std::int32_t KeywordIDByClassID(Database& db, std::int32_t classID) {
    return ReadLong(db, Procedure::qryKeywordIDByClassID, {Parameter::Long("classID", classID)});
}

std::int32_t KeywordIDByCodeID(Database& db, std::int32_t codeID) {
    return ReadLong(db, Procedure::qryKeywordIDByCodeID, {Parameter::Long("codeID", codeID)});
}

Recordset KeywordIDFromTblCodeByClassID(Database& db, std::int32_t newClassID) {
    return ReadRecordset(db, Procedure::qryKeywordIDFromTblCodeByClassID,
                         {Parameter::Long("newClassID", newClassID)});
}

Recordset KeywordRSWithAppID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryKeywordRSWithAppID, {Parameter::Long("appID", appID)});
}

Recordset KeywordRSWithClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryKeywordRSWithClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset KeywordRSWithCodeID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryKeywordRSWithCodeID,
                         {Parameter::Long("codeID", codeID)});
}

std::string SeparatorByID(Database& db, std::int32_t separatorID) {
    return ReadText(db, Procedure::qrySeparatorByID, {Parameter::Long("separatorID", separatorID)});
}

Recordset SeparatorKeywordSearchWordsBySearchWords(Database& db, std::string_view searchWord) {
    return ReadRecordset(db, Procedure::qrySeparatorKeywordSearchWordsBySearchWords,
                         {Parameter::Text50("searchWord", searchWord)});
}

Recordset AllSearchWords(Database& db) {
    return ReadRecordset(db, Procedure::qryAllSearchWords, {});
}

std::int32_t SearchWordIDBySearchWord(Database& db, std::string_view searchWord) {
    return ReadLong(db, Procedure::qrySearchWordIDBySearchWord,
                    {Parameter::Text50("searchWord", searchWord)});
}

std::int32_t SearchWordIDByKeywordIDSearchWordID(Database& db, std::int32_t keywordID,
                                                 std::int32_t searchWordID) {
    return ReadLong(
        db, Procedure::qrySearchWordIDByKeywordIDSearchWordID,
        {Parameter::Long("keywordID", keywordID), Parameter::Long("searchWordID", searchWordID)});
}

std::int32_t CountCodeKeywordLinksByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryCountCodeKeywordLinksByAppID,
                    {Parameter::Long("appID", appID)});
}

std::int32_t CountCodeKeywordsByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryCountCodeKeywordsByAppID, {Parameter::Long("appID", appID)});
}

std::int32_t CountClassKeywordLinksByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryCountClassKeywordLinksByAppID,
                    {Parameter::Long("appID", appID)});
}

std::int32_t CountClassKeywordsByAppID(Database& db, std::int32_t appID) {
    return ReadLong(db, Procedure::qryCountClassKeywordsByAppID, {Parameter::Long("appID", appID)});
}

std::int32_t CountCodeKeywordLinksByClassID(Database& db, std::int32_t classID) {
    return ReadLong(db, Procedure::qryCountCodeKeywordLinksByClassID,
                    {Parameter::Long("classID", classID)});
}

std::int32_t CountCodeKeywordsByClassID(Database& db, std::int32_t classID) {
    return ReadLong(db, Procedure::qryCountCodeKeywordsByClassID,
                    {Parameter::Long("classID", classID)});
}

}  // namespace snippetarium
