#include "store/class_copy.h"

#include "store/class_markers.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/name_rules.h"
#include "store/owner_copy.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_keywords.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "support/error.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// The copying of one class. Rows are copied within the engine (store/owner_copy.h), and are null
/// where they were null.
class ClassCopier {
  public:
    ClassCopier(Database& db, std::int32_t classID)
        : db_(db), copier_(db, Procedure::CopyClass), classID_(classID) {}

    std::int32_t CopyInto(std::int32_t appID, std::string_view name) {
        try {
            CopyRow(appID, name);
            CopyProcedures();
            return copyID_;
        } catch (...) {
            Undo();
            throw;
        }
    }

  private:
    void CopyRow(std::int32_t appID, std::string_view name) {
        ExecuteSQL(db_, Sql("INSERT INTO tblClass(className, appID, languageID, classPathInApp, "
                            "classDI, classComment) SELECT ",
                            SqlText255(name), ", ", appID,
                            ", languageID, classPathInApp, classDI, classComment FROM tblClass "
                            "WHERE classID = ",
                            classID_));
        copyID_ = MaxIDValue(db_, "classID", "tblClass");
        ExecuteSQL(db_, Sql("INSERT INTO tblSourceForm SELECT ", copyID_,
                            ", form FROM tblSourceForm WHERE classID = ", classID_));
        copier_.CopyLinks({OwnerKind::Class, classID_}, copyID_);
        copier_.CopyKeyword(KeywordIDByClassID(db_, classID_), {OwnerKind::Class, copyID_});
    }

    /// All of them in one statement, so that the copy has all or none.
    void CopyProcedures() {
        ExecuteSQL(db_,
                   Sql("INSERT INTO tblCode(codeName, code, codeComment, classID) SELECT "
                       "codeName, code, codeComment, ",
                       copyID_, " FROM tblCode WHERE classID = ", classID_, " ORDER BY codeID"));
        Recordset pair = OldNewCodeIDRSByClassID(db_, classID_, copyID_);
        for (; !pair.EndOfFile(); pair.MoveNext())
            CopyBelongings(pair["oldCodeID"].Long(), pair["newCodeID"].Long());
    }

    void CopyBelongings(std::int32_t oldCodeID, std::int32_t newCodeID) {
        copier_.CopyLinks({OwnerKind::Procedure, oldCodeID}, newCodeID);
        copier_.CopyKeyword(KeywordIDByCodeID(db_, oldCodeID), {OwnerKind::Procedure, newCodeID});
        if (classID_ == kUndefinedClassID) AddMarker(db_, newCodeID);
    }

    void Undo() {
        copier_.RemoveLooseKeyword();
        if (copyID_ != 0) DeleteClassQuietly(db_, copyID_);
    }

    Database& db_;
    OwnerCopier copier_;
    std::int32_t classID_;
    std::int32_t copyID_ = 0;
};

void RequireBoth(Database& db, std::int32_t classID, std::int32_t appID) {
    if (ClassDICommentLanIDByID(db, classID).EndOfFile()) {
        throw Error(error_number::kInvalidCall,
                    "The class to be copied does not exist any more. Refresh the contents.");
    }
    if (ApplicationRSByID(db, appID).EndOfFile()) {
        throw Error(error_number::kInvalidCall,
                    "The application to copy into does not exist any more. Choose another one.");
    }
}

}  // namespace

std::int32_t CopyClass(Database& db, std::int32_t classID, std::int32_t appID,
                       std::string_view name) {
    return Guarded(db.Reporter(), Procedure::CopyClass, [&] {
        const std::int32_t target = ApplicationOrUndefined(appID);
        RequireBoth(db, classID, target);
        if (!MayAddClass(db, name, target)) return std::int32_t{0};
        BulkWriting writing(db.GetConnection());
        const std::int32_t copyID = ClassCopier(db, classID).CopyInto(target, name);
        FinishWriting(db, writing);
        return copyID;
    });
}

}  // namespace snippetarium
