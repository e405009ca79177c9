#include "store/writes_codes.h"

#include "store/database.h"
#include "store/date_links.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string InsertText(const CodeFields& fields) {
    InsertLists lists("CodeName, Code, classID",
                      Sql(SqlText255(fields.name), ", ", SqlText(fields.code), ", ",
                          ClassOrUndefined(fields.classID)));
    lists.AddID("keywordID", fields.keywordID);
    return Sql("INSERT INTO tblCode   (", lists.Columns(), ") VALUES (", lists.Values(), ")");
}

std::string UpdateText(std::int32_t codeID, const CodeFields& fields) {
    const std::string keyword =
        fields.keywordID > 0 ? Sql(", keywordID = ", fields.keywordID) : std::string();
    return Sql("UPDATE tblCode SET codeName = ", SqlText255(fields.name),
               ", Code = ", SqlText(fields.code), ", classID = ", ClassOrUndefined(fields.classID),
               keyword, " WHERE codeID = ", codeID);
}

/// A comment is always written by a statement of its own.
std::string CommentText(std::int32_t codeID, std::string_view comment) {
    return Sql("UPDATE tblCode SET codeComment =", SqlTextOrNull(comment),
               " WHERE codeID = ", codeID);
}

std::string AddLanguageText(std::int32_t codeID, std::int32_t languageID) {
    return Sql("INSERT INTO tblCode_Link_Language VALUES (", codeID, ", ", languageID, ")");
}

}  // namespace

std::int32_t AddCode(Database& db, const CodeFields& fields) {
    return Guarded(db.Reporter(), Procedure::AddCode, [&] {
        ExecuteSQL(db, InsertText(fields));
        const std::int32_t codeID = MaxIDValue(db, "codeID", "tblCode");
        if (!fields.comment.empty()) ExecuteSQL(db, CommentText(codeID, fields.comment));
        ReplaceGivenDateLinks(db, {OwnerKind::Procedure, codeID}, fields.dates);
        return codeID;
    });
}

bool UpdateCode(Database& db, std::int32_t codeID, const CodeFields& fields) {
    return Guarded(db.Reporter(), Procedure::UpdateCode, [&] {
        if (ExecuteSQL(db, UpdateText(codeID, fields)) == 0) return false;
        ExecuteSQL(db, CommentText(codeID, fields.comment));
        ReplaceGivenDateLinks(db, {OwnerKind::Procedure, codeID}, fields.dates);
        return true;
    });
}

bool RenameCode(Database& db, std::int32_t codeID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RenameCode, [&] {
        return ExecuteSQL(db, Sql("UPDATE tblCode SET codeName = ", SqlText255(name),
                                  " WHERE codeID = ", codeID, ";")) > 0;
    });
}

bool SetCodeComment(Database& db, std::int32_t codeID, std::string_view comment) {
    return Guarded(db.Reporter(), Procedure::SetCodeComment, [&] {
        return ExecuteSQL(db, Sql("UPDATE tblCode SET codeComment = ", SqlText(comment),
                                  " WHERE codeID = ", codeID)) > 0;
    });
}

void SetCodeLanguage(Database& db, std::int32_t codeID, std::int32_t languageID) {
    Guarded(db.Reporter(), Procedure::SetCodeLanguage, [&] {
        const bool hasOne =
            RecordExists(db, Sql("SELECT * FROM tblCode_Link_Language WHERE codeID=", codeID));
        ExecuteSQL(db, hasOne ? Sql("UPDATE tblCode_Link_Language SET languageID=", languageID,
                                    " WHERE codeID=", codeID)
                              : AddLanguageText(codeID, languageID));
    });
}

void AddCodeLanguage(Database& db, std::int32_t codeID, std::int32_t languageID) {
    Guarded(db.Reporter(), Procedure::AddCodeLanguage,
            [&] { ExecuteSQL(db, AddLanguageText(codeID, languageID)); });
}

}  // namespace snippetarium
