#include "store/reads_authors_dates.h"

#include "store/named_query.h"

namespace snippetarium {

Recordset AuthorsRSByOwner(Database& db, std::int32_t ownerID, std::int32_t ownerTableID) {
    return ReadRecordset(
        db, Procedure::qryAuthorsRSByOwner,
        {Parameter::Long("ownerID", ownerID), Parameter::Long("ownerTableID", ownerTableID)});
}

Recordset AuthorRSByID(Database& db, std::int32_t authorID) {
    return ReadRecordset(db, Procedure::qryAuthorRSByID, {Parameter::Long("authorID", authorID)});
}

Recordset AuthorRSByName(Database& db, std::string_view fName, std::string_view lName) {
    return ReadRecordset(db, Procedure::qryAuthorRSByName,
                         {Parameter::Text50("fName", fName), Parameter::Text50("lName", lName)});
}

Recordset AuthorRSByFullName(Database& db, std::string_view fName, std::string_view mName,
                             std::string_view lName) {
    return ReadRecordset(db, Procedure::qryAuthorRSByFullName,
                         {Parameter::Text50("fName", fName), Parameter::Text50("mName", mName),
                          Parameter::Text50("lName", lName)});
}

std::int32_t AuthorIDByName(Database& db, std::string_view fName, std::string_view mName,
                            std::string_view lName) {
    return ReadLong(db, Procedure::qryAuthorIDByName,
                    {Parameter::Text50("fName", fName), Parameter::Text50("mName", mName),
                     Parameter::Text50("lName", lName)});
}

Recordset AuthorsLinkRSByAuthorID(Database& db, std::int32_t authorID) {
    return ReadRecordset(db, Procedure::qryAuthorsLinkRSByAuthorID,
                         {Parameter::Long("authorID", authorID)});
}

std::int32_t AuthorIDFromAuthorLink(Database& db, std::int32_t ownerID, std::int32_t authorID,
                                    std::int32_t ownerTableID) {
    return ReadLong(db, Procedure::qryAuthorIDFromAuthorLink,
                    {Parameter::Long("ownerID", ownerID), Parameter::Long("authorID", authorID),
                     Parameter::Long("ownerTableID", ownerTableID)});
}

Recordset DateRSByOwner(Database& db, std::int32_t ownerID, std::int32_t ownerTableID) {
    return ReadRecordset(
        db, Procedure::qryDateRSByOwner,
        {Parameter::Long("ownerID", ownerID), Parameter::Long("ownerTableID", ownerTableID)});
}

}  // namespace snippetarium
