#include "store/reads_languages.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset Language(Database& db) {
    return ReadRecordset(db, Procedure::qryLanguage, {});
}

std::int32_t LanguageID(Database& db, std::string_view language) {
    return ReadLong(db, Procedure::qryLanguageID, {Parameter::Text50("language", language)});
}

std::string LanguageByID(Database& db, std::int32_t languageID) {
    return ReadText(db, Procedure::qryLanguageByID, {Parameter::Long("languageID", languageID)});
}

std::string LanguageByClassID(Database& db, std::int32_t classID) {
    return ReadText(db, Procedure::qryLanguageByClassID, {Parameter::Long("classID", classID)});
}

std::string LanguageByCodeID(Database& db, std::int32_t codeID) {
    return ReadText(db, Procedure::qryLanguageByCodeID, {Parameter::Long("codeID", codeID)});
}

std::int32_t LanguageIDByClassID(Database& db, std::int32_t classID) {
    return ReadLong(db, Procedure::qryLanguageIDByClassID, {Parameter::Long("classID", classID)});
}

std::int32_t LanguageIDByCodeID(Database& db, std::int32_t codeID) {
    return ReadLong(db, Procedure::qryLanguageIDByCodeID, {Parameter::Long("codeID", codeID)});
}

Recordset LanguageRSByAppID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryLanguageRSByAppID, {Parameter::Long("appID", appID)});
}

Recordset StatusRSByLanguage(Database& db, std::string_view language) {
    return ReadRecordset(db, Procedure::qryStatusRSByLanguage,
                         {Parameter::Text50("language", language)});
}

Recordset ClassIDCodeIDRSByLanguage(Database& db, std::string_view language) {
    return ReadRecordset(db, Procedure::qryClassIDCodeIDRSByLanguage,
                         {Parameter::Text50("language", language)});
}

}  // namespace snippetarium
