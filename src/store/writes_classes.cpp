#include "store/writes_classes.h"

#include "store/database.h"
#include "store/date_links.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

std::string InsertText(const ClassFields& fields) {
    InsertLists lists("ClassName, appID, languageID",
                      Sql(SqlText255(fields.name), ", ", ApplicationOrUndefined(fields.appID), ", ",
                          fields.languageID));
    lists.AddText("ClassPathInApp", fields.pathInApp);
    lists.AddText("classDI", fields.declarations);
    lists.AddID("keywordID", fields.keywordID);
    return Sql("INSERT INTO tblClass ( ", lists.Columns(), ") VALUES (", lists.Values(), ")");
}

std::string UpdateText(std::int32_t classID, const ClassFields& fields) {
    const std::string keyword =
        fields.keywordID != 0 ? Sql(", keywordID=", fields.keywordID) : std::string();
    return Sql(
        "UPDATE tblClass SET ClassName = ", SqlText255(fields.name),
        ", appID = ", ApplicationOrUndefined(fields.appID), ", languageID = ", fields.languageID,
        ", ClassPathInApp=", SqlTextOrNull(fields.pathInApp),
        ", ClassDI=", SqlTextOrNull(fields.declarations), keyword, " WHERE ClassID = ", classID);
}

/// A comment is always written by a statement of its own.
std::string CommentText(std::int32_t classID, std::string_view comment) {
    return Sql("UPDATE tblClass SET classComment =", SqlTextOrNull(comment),
               " WHERE ClassID = ", classID);
}

}  // namespace

std::int32_t AddClass(Database& db, const ClassFields& fields) {
    return Guarded(db.Reporter(), Procedure::AddClass, [&] {
        ExecuteSQL(db, InsertText(fields));
        const std::int32_t classID = MaxIDValue(db, "classID", "tblClass");
        if (!fields.comment.empty()) ExecuteSQL(db, CommentText(classID, fields.comment));
        ReplaceGivenDateLinks(db, {OwnerKind::Class, classID}, fields.dates);
        return classID;
    });
}

bool UpdateClass(Database& db, std::int32_t classID, const ClassFields& fields) {
    return Guarded(db.Reporter(), Procedure::UpdateClass, [&] {
        if (ExecuteSQL(db, UpdateText(classID, fields)) == 0) return false;
        ExecuteSQL(db, CommentText(classID, fields.comment));
        ReplaceGivenDateLinks(db, {OwnerKind::Class, classID}, fields.dates);
        return true;
    });
}

bool RenameClass(Database& db, std::int32_t classID, std::string_view name) {
    return Guarded(db.Reporter(), Procedure::RenameClass, [&] {
        return ExecuteSQL(db, Sql("UPDATE tblClass SET className = ", SqlText255(name),
                                  " WHERE classID = ", classID, ";")) > 0;
    });
}

}  // namespace snippetarium
