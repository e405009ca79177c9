#include "editors/author_naming.h"

#include "editors/catalogue_lists.h"
#include "store/database.h"
#include "store/reads_authors_dates.h"

namespace snippetarium {

namespace {

/// All at once, so that a failure leaves both authors as they were.
void Unite(Database& db, std::int32_t authorID, std::int32_t otherID) {
    const std::vector<BoundValue> ids{authorID, otherID};
    const BoundStatement statements[] = {
        {"DELETE FROM tbl_Author_Link WHERE authorID = ?1 AND EXISTS (SELECT 1 FROM "
         "tbl_Author_Link other WHERE other.authorID = ?2 AND other.ownerID = "
         "tbl_Author_Link.ownerID AND other.ownerTableID = tbl_Author_Link.ownerTableID)",
         ids},
        {"UPDATE tbl_Author_Link SET authorID = ?2 WHERE authorID = ?1", ids},
        {"DELETE FROM tblAuthor WHERE authorID = ?1", {authorID}},
    };
    db.GetConnection().RunTransaction(statements);
}

}  // namespace

std::vector<KnownAuthor> KnownAuthors(Database& db) {
    std::vector<KnownAuthor> authors;
    for (Recordset row = AllAuthors(db); !row.EndOfFile(); row.MoveNext()) {
        authors.push_back(
            {row["authorID"].Long(),
             {row["authorFName"].Text(), row["authorMName"].Text(), row["authorLName"].Text()},
             row["ownerCount"].Long()});
    }
    return authors;
}

std::int32_t RenameAuthor(Database& db, std::int32_t authorID, const AuthorName& name) {
    const std::int32_t holder = AuthorIDByName(db, name.first, name.middle, name.last);
    if (holder == 0 || holder == authorID) {
        UpdateAuthorName(db, authorID, name);
        return authorID;
    }
    Unite(db, authorID, holder);
    return holder;
}

}  // namespace snippetarium
