#include "store/class_copy.h"

#include "store/class_markers.h"
#include "store/database.h"
#include "store/deletion.h"
#include "store/keyword_rows.h"
#include "store/name_rules.h"
#include "store/owner.h"
#include "store/reads_applications.h"
#include "store/reads_classes.h"
#include "store/reads_keywords.h"
#include "store/reads_procedures.h"
#include "store/sql_text.h"
#include "support/error.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// The copying of one class. Rows are copied within the engine, so that they are the same to the
/// byte, and null where they were null.
class ClassCopier {
  public:
    ClassCopier(Database& db, std::int32_t classID) : db_(db), classID_(classID) {}

    std::int32_t CopyInto(std::int32_t appID) {
        try {
            CopyRow(appID);
            CopyProcedures();
            return copyID_;
        } catch (...) {
            Undo();
            throw;
        }
    }

  private:
    void CopyRow(std::int32_t appID) {
        ExecuteSQL(db_, Sql("INSERT INTO tblClass(className, appID, languageID, classPathInApp, "
                            "classDI, classComment) SELECT className, ",
                            appID,
                            ", languageID, classPathInApp, classDI, classComment FROM tblClass "
                            "WHERE classID = ",
                            classID_));
        copyID_ = MaxIDValue(db_, "classID", "tblClass");
        ExecuteSQL(db_, Sql("INSERT INTO tblSourceForm SELECT ", copyID_,
                            ", form FROM tblSourceForm WHERE classID = ", classID_));
        CopyLinks(OwnerKind::Class, classID_, copyID_);
        CopyKeyword(KeywordIDByClassID(db_, classID_), {OwnerKind::Class, copyID_});
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
        ExecuteSQL(db_, Sql("INSERT INTO tblCode_Link_Language SELECT ", newCodeID,
                            ", languageID FROM tblCode_Link_Language WHERE codeID = ", oldCodeID));
        CopyLinks(OwnerKind::Procedure, oldCodeID, newCodeID);
        CopyKeyword(KeywordIDByCodeID(db_, oldCodeID), {OwnerKind::Procedure, newCodeID});
        if (classID_ == kUndefinedClassID) AddMarker(db_, newCodeID);
    }

    void CopyLinks(OwnerKind kind, std::int32_t oldID, std::int32_t newID) {
        const std::string ofOld = Sql(" WHERE ownerID = ", oldID, " AND ownerTableID = ", kind);
        ExecuteSQL(db_, Sql("INSERT INTO tbl_Author_Link SELECT ", newID, ", authorID, ", kind,
                            " FROM tbl_Author_Link", ofOld));
        ExecuteSQL(db_, Sql("INSERT INTO tbl_date_link SELECT ", newID, ", dateID, ", kind,
                            " FROM tbl_date_link", ofOld));
        ExecuteSQL(db_, Sql("INSERT INTO tblOverlong SELECT ", newID, ", ", kind,
                            ", part, text FROM tblOverlong", ofOld));
    }

    void CopyKeyword(std::int32_t keywordID, const Owner& owner) {
        if (keywordID == 0) return;
        looseKeywordID_ = MaxIDValue(db_, "keywordID", "tblKeyword") + 1;
        const auto copied = ExecuteSQL(
            db_, Sql("INSERT INTO tblKeyword SELECT ", looseKeywordID_,
                     ", keyword, separatorID FROM tblKeyword WHERE keywordID = ", keywordID));
        if (copied > 0) {
            ExecuteSQL(db_, Sql("INSERT INTO tblKeyword_link_searchWord SELECT ", looseKeywordID_,
                                ", searchWordID FROM tblKeyword_link_searchWord WHERE keywordID = ",
                                keywordID));
            SetOwnerKeyword(db_, owner, looseKeywordID_);
        }
        looseKeywordID_ = 0;
    }

    void Undo() {
        if (looseKeywordID_ != 0) {
            GuardedStage(db_.Reporter(), Procedure::CopyClass, [&] {
                ExecuteSQL(db_, Sql("DELETE FROM tblKeyword WHERE keywordID = ", looseKeywordID_));
            });
        }
        if (copyID_ != 0) DeleteClassQuietly(db_, copyID_);
    }

    Database& db_;
    std::int32_t classID_;
    std::int32_t copyID_ = 0;
    /// A keyword string that is there and that no owner has yet.
    std::int32_t looseKeywordID_ = 0;
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

std::int32_t CopyClass(Database& db, std::int32_t classID, std::int32_t appID) {
    return Guarded(db.Reporter(), Procedure::CopyClass, [&] {
        const std::int32_t target = ApplicationOrUndefined(appID);
        RequireBoth(db, classID, target);
        if (!MayAddClass(db, ClassNameByID(db, classID), target)) return std::int32_t{0};
        BulkWriting writing(db.GetConnection());
        const std::int32_t copyID = ClassCopier(db, classID).CopyInto(target);
        writing.Finish();
        return copyID;
    });
}

}  // namespace snippetarium
