#include "editors/author_naming.h"

#include "editors/catalogue_lists.h"
#include "store/database.h"
#include "store/reads_authors_dates.h"
#include "store/sql_text.h"

namespace snippetarium {

namespace {

void Unite(Database& db, std::int32_t authorID, std::int32_t otherID) {
    for (Recordset row = AuthorsLinkRSByAuthorID(db, authorID); !row.EndOfFile(); row.MoveNext()) {
        const auto kind = static_cast<OwnerKind>(row["ownerTableID"].Long());
        RelinkAuthor(db, {kind, row["ownerID"].Long()}, authorID, otherID);
    }
    ExecuteSQL(db, Sql("DELETE FROM tblAuthor WHERE authorID = ", authorID));
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
