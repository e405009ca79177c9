#include "store/reads_classes.h"

#include "store/named_query.h"

namespace snippetarium {

std::string ClassNameByID(Database& db, std::int32_t classID) {
    return ReadText(db, Procedure::qryClassNameByID, {Parameter::Long("classID", classID)});
}

Recordset ClassDICommentLanIDByID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryClassDICommentLanIDByID,
                         {Parameter::Long("classID", classID)});
}

std::int32_t ClassIDByClassNameClassPathAppID(Database& db, std::string_view className,
                                              std::string_view classPath, std::int32_t appID) {
    return ReadLong(db, Procedure::qryClassIDByClassNameClassPathAppID,
                    {Parameter::Text255("className", className),
                     Parameter::LongText("classPath", classPath), Parameter::Long("appID", appID)});
}

bool IsClassNameTaken(Database& db, std::string_view className, std::int32_t appID) {
    return ReadExists(
        db, Procedure::qryClassIDByClassNameAppID,
        {Parameter::Text255("className", className), Parameter::Long("appID", appID)});
}

std::int32_t AppIDByClassID(Database& db, std::int32_t classID) {
    return ReadLong(db, Procedure::qryAppIDByClassID, {Parameter::Long("classID", classID)});
}

std::int32_t ClassIDByAppNameClassName(Database& db, std::string_view appName,
                                       std::string_view className) {
    return ReadLong(
        db, Procedure::qryClassIDByAppNameClassName,
        {Parameter::Text255("appName", appName), Parameter::Text255("className", className)});
}

std::string ClassPathInAppByClassID(Database& db, std::int32_t classID) {
    return ReadText(db, Procedure::qryClassPathInAppByClassID,
                    {Parameter::Long("classID", classID)});
}

Recordset ClassLanguageAppByClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryClassLanguageAppByClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset MiniClassRSByClassID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryMiniClassRSByClassID,
                         {Parameter::Long("classID", classID)});
}

Recordset ClassRSByAppID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryClassRSByAppID, {Parameter::Long("appID", appID)});
}

Recordset ClassIDNameRSByAppID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryClassIDNameRSByAppID, {Parameter::Long("appID", appID)});
}

Recordset ClassWithCodeCountByAppID(Database& db, std::int32_t appID) {
    return ReadRecordset(db, Procedure::qryClassWithCodeCountByAppID,
                         {Parameter::Long("appID", appID)});
}

std::string ClassDIByClassID(Database& db, std::int32_t classID) {
    return ReadText(db, Procedure::qryClassDIByClassID, {Parameter::Long("classID", classID)});
}

Recordset ClassCommentRSByID(Database& db, std::int32_t classID) {
    return ReadRecordset(db, Procedure::qryClassCommentRSByID,
                         {Parameter::Long("classID", classID)});
}

}  // namespace snippetarium
