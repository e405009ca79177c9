#include "store/owner_copy.h"

#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/new_id.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

void OwnerCopier::CopyLinks(const Owner& original, std::int32_t copyID) const {
    const OwnerKind kind = original.kind;
    const std::string ofOriginal =
        Sql(" WHERE ownerID = ", original.id, " AND ownerTableID = ", kind);
    ExecuteSQL(db_, Sql("INSERT INTO tbl_Author_Link SELECT ", copyID, ", authorID, ", kind,
                        " FROM tbl_Author_Link", ofOriginal));
    ExecuteSQL(db_, Sql("INSERT INTO tbl_date_link SELECT ", copyID, ", dateID, ", kind,
                        " FROM tbl_date_link", ofOriginal));
    ExecuteSQL(db_, Sql("INSERT INTO tblOverlong SELECT ", copyID, ", ", kind,
                        ", part, text FROM tblOverlong", ofOriginal));
    if (kind != OwnerKind::Procedure) return;
    ExecuteSQL(db_, Sql("INSERT INTO tblCode_Link_Language SELECT ", copyID,
                        ", languageID FROM tblCode_Link_Language WHERE codeID = ", original.id));
}

void OwnerCopier::CopyKeyword(std::int32_t keywordID, const Owner& copy) {
    if (keywordID == 0) return;
    looseKeywordID_ = NewID(db_, "keywordID", "tblKeyword");
    const auto copied = ExecuteSQL(
        db_, Sql("INSERT INTO tblKeyword SELECT ", looseKeywordID_,
                 ", keyword, separatorID FROM tblKeyword WHERE keywordID = ", keywordID));
    if (copied > 0) {
        ExecuteSQL(db_, Sql("INSERT INTO tblKeyword_link_searchWord SELECT ", looseKeywordID_,
                            ", searchWordID FROM tblKeyword_link_searchWord WHERE keywordID = ",
                            keywordID));
        SetOwnerKeyword(db_, copy, looseKeywordID_);
    }
    looseKeywordID_ = 0;
}

void OwnerCopier::RemoveLooseKeyword() {
    if (looseKeywordID_ == 0) return;
    GuardedStage(db_.Reporter(), procedure_, [&] {
        ExecuteSQL(db_, Sql("DELETE FROM tblKeyword WHERE keywordID = ", looseKeywordID_));
    });
}

}  // namespace snippetarium
