#include "store/reads_procedures.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset CodeByID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryCodeByID, {Parameter::Long("codeID", codeID)});
}

std::string CodeNameByID(Database& db, std::int32_t codeID) {
    return ReadText(db, Procedure::qryCodeNameByID, {Parameter::Long("codeID", codeID)});
}

Recordset CodeIDByName(Database& db, std::string_view codeName) {
    return ReadRecordset(db, Procedure::qryCodeIDByName,
                         {Parameter::Text255("codeName", codeName)});
}

std::int32_t CodeIDByCodeNameClassID(Database& db, std::string_view codeName,
                                     std::int32_t classID) {
    return ReadLong(
        db, Procedure::qryCodeIDByCodeNameClassID,
        {Parameter::Text255("codeName", codeName), Parameter::Long("classID", classID)});
}

bool IsCodeNameTaken(Database& db, std::string_view codeName, std::int32_t classID) {
    return ReadExists(
        db, Procedure::qryCodeIDByCodeNameClassID,
        {Parameter::Text255("codeName", codeName), Parameter::Long("classID", classID)});
}

Recordset CodeCommentCodeByID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryCodeCommentCodeByID,
                         {Parameter::Long("codeID", codeID)});
}

Recordset CodeCommentCodeByClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryCodeCommentCodeByClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset CodeNameCommentCodeByClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryCodeNameCommentCodeByClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset CodeClassAppLanRSByCodeID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryCodeClassAppLanRSByCodeID,
                         {Parameter::Long("codeID", codeID)});
}

Recordset MiniCodeRSByCodeID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryMiniCodeRSByCodeID, {Parameter::Long("codeID", codeID)});
}

Recordset AppIDClassIDRSByCodeID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryAppIDClassIDRSByCodeID,
                         {Parameter::Long("codeID", codeID)});
}

Recordset CodeIDCodeNameByClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryCodeIDCodeNameByClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset ClassCodeRSByCodeID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryClassCodeRSByCodeID,
                         {Parameter::Long("codeID", codeID)});
}

Recordset OldNewCodeIDRSByClassID(Database& db, std::int32_t oldClassID, std::int32_t newClassID) {
    return ReadRecordset(
        db, Procedure::qryOldNewCodeIDRSByClassID,
        {Parameter::Long("oldClassID", oldClassID), Parameter::Long("newClassID", newClassID)});
}

Recordset CodeCommentRSByID(Database& db, std::int32_t codeID) {
    return ReadRecordset(db, Procedure::qryCodeCommentRSByID, {Parameter::Long("codeID", codeID)});
}

}  // namespace snippetarium
