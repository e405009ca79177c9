#include "store/reads_search.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset CodeClassAppRSByComment(Database& db, std::string_view comment) {
    return SearchRecordset(db, Procedure::qryCodeClassAppRSByComment,
                           {Parameter::LongText("comment", comment)});
}

Recordset CodeClassAppRSByCommentForASP(Database& db, std::string_view comment,
                                        std::int32_t languageID) {
    return SearchRecordset(
        db, Procedure::qryCodeClassAppRSByCommentForASP,
        {Parameter::LongText("comment", comment), Parameter::Long("languageID", languageID)});
}

Recordset CodeClassAppRSByCommentForScript(Database& db, std::string_view comment,
                                           std::int32_t languageID) {
    return SearchRecordset(
        db, Procedure::qryCodeClassAppRSByCommentForScript,
        {Parameter::LongText("comment", comment), Parameter::Long("languageID", languageID)});
}

Recordset CodeClassAppRSByCommentForOthers(Database& db, std::string_view comment,
                                           std::int32_t languageID) {
    return SearchRecordset(
        db, Procedure::qryCodeClassAppRSByCommentForOthers,
        {Parameter::LongText("comment", comment), Parameter::Long("languageID", languageID)});
}

Recordset CodeClassAppRSByName(Database& db, std::string_view name) {
    return SearchRecordset(db, Procedure::qryCodeClassAppRSByName,
                           {Parameter::Text255("name", name)});
}

Recordset CodeClassAppRSByNameLanguage(Database& db, std::string_view name,
                                       std::int32_t languageID) {
    return SearchRecordset(
        db, Procedure::qryCodeClassAppRSByNameLanguage,
        {Parameter::Text255("name", name), Parameter::Long("languageID", languageID)});
}

Recordset CodeClassAppRSWithSearchWordCodeName(Database& db, std::string_view name,
                                               std::string_view searchWord) {
    return ReadRecordset(
        db, Procedure::qryCodeClassAppRSWithSearchWordCodeName,
        {Parameter::Text255("name", name), Parameter::Text50("searchWord", searchWord)});
}

}  // namespace snippetarium
