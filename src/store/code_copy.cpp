#include "store/code_copy.h"

#include "store/class_markers.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/name_rules.h"
#include "store/owner_copy.h"
#include "store/reads_keywords.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "support/error.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// Adds the row alone. It is null where the original is.
std::int32_t CopyRow(Database& db, std::int32_t codeID, std::int32_t classID,
                     std::string_view name) {
    const auto copied =
        ExecuteSQL(db, Sql("INSERT INTO tblCode(codeName, code, codeComment, classID) SELECT ",
                           SqlText255(name), ", code, codeComment, ", classID,
                           " FROM tblCode WHERE codeID = ", codeID));
    if (copied == 0) {
        throw Error(error_number::kInvalidCall,
                    "The procedure to be copied does not exist any more. Refresh the contents.");
    }
    return MaxIDValue(db, "codeID", "tblCode");
}

void CopyBelongings(Database& db, std::int32_t codeID, std::int32_t copyID) {
    OwnerCopier copier(db, Procedure::CopyCode);
    try {
        copier.CopyLinks({OwnerKind::Procedure, codeID}, copyID);
        copier.CopyKeyword(KeywordIDByCodeID(db, codeID), {OwnerKind::Procedure, copyID});
        AddMarker(db, copyID);
    } catch (...) {
        copier.RemoveLooseKeyword();
        DeleteCodeQuietly(db, copyID);
        throw;
    }
}

}  // namespace

std::int32_t CopyCode(Database& db, std::int32_t codeID, std::int32_t classID,
                      std::string_view name) {
    return Guarded(db.Reporter(), Procedure::CopyCode, [&] {
        const std::int32_t target = ClassOrUndefined(classID);
        if (!MayAddCode(db, name, target)) return std::int32_t{0};
        const std::int32_t copyID = CopyRow(db, codeID, target, name);
        CopyBelongings(db, codeID, copyID);
        return copyID;
    });
}

}  // namespace snippetarium
