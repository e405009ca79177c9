#include "store/author_links.h"

#include "store/database.h"
#include "store/link_removal.h"
#include "store/new_id.h"
#include "store/reads_authors_dates.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

bool IsLinked(Database& db, const Owner& owner, std::int32_t authorID) {
    const auto kind = static_cast<std::int32_t>(owner.kind);
    return AuthorIDFromAuthorLink(db, owner.id, authorID, kind) != 0;
}

}  // namespace

std::int32_t FindOrAddAuthor(Database& db, const AuthorName& name) {
    return Guarded(db.Reporter(), Procedure::FindOrAddAuthor, [&] {
        const std::int32_t found = AuthorIDByName(db, name.first, name.middle, name.last);
        if (found != 0) return found;
        const std::int32_t newID = NewID(db, "authorID", "tblAuthor");
        ExecuteSQL(db, Sql("INSERT INTO tblAuthor VALUES (", newID, ", ", SqlText50(name.first),
                           ", ", SqlText50(name.middle), ", ", SqlText50(name.last), ")"));
        return newID;
    });
}

void LinkAuthors(Database& db, const Owner& owner, std::span<const std::int32_t> authorIDs) {
    Guarded(db.Reporter(), Procedure::LinkAuthors, [&] {
        for (const std::int32_t authorID : authorIDs) {
            if (authorID < 1 || IsLinked(db, owner, authorID)) continue;
            ExecuteSQL(db, Sql("INSERT INTO tbl_Author_Link Values(", owner.id, ", ", authorID,
                               ", ", owner.kind, ")"));
        }
    });
}

void AddAuthorLink(Database& db, const Owner& owner, std::int32_t authorID) {
    Guarded(db.Reporter(), Procedure::AddAuthorLink, [&] {
        ExecuteSQL(db, Sql("INSERT INTO tbl_Author_Link(ownerID, authorID, ownerTableID) VALUES(",
                           owner.id, ", ", authorID, ", ", owner.kind, ");"));
    });
}

void RelinkAuthor(Database& db, const Owner& owner, std::int32_t oldAuthorID,
                  std::int32_t newAuthorID) {
    Guarded(db.Reporter(), Procedure::RelinkAuthor, [&] {
        if (oldAuthorID == newAuthorID) return;
        if (IsLinked(db, owner, newAuthorID)) {
            UnlinkAuthor(db, owner.kind, std::to_string(owner.id), oldAuthorID);
            return;
        }
        ExecuteSQL(db, Sql("UPDATE tbl_Author_Link SET authorID = ", newAuthorID,
                           " Where ownerID = ", owner.id, " AND authorID = ", oldAuthorID,
                           " AND ownerTableID = ", owner.kind, ";"));
    });
}

void UpdateAuthorName(Database& db, std::int32_t authorID, const AuthorName& name) {
    Guarded(db.Reporter(), Procedure::UpdateAuthorName, [&] {
        ExecuteSQL(db, Sql("UPDATE tblAuthor SET authorFName = ", SqlText50(name.first),
                           ", authorMName = ", SqlText50(name.middle), ", authorLName = ",
                           SqlText50(name.last), " WHERE authorID = ", authorID, ";"));
    });
}

bool RemoveAuthorLinks(Database& db, OwnerKind kind, std::string_view ownerIDs) {
    static constexpr SharedRows kAuthors{"tblAuthor", "authorID", "tbl_Author_Link"};
    return GuardedStage(db.Reporter(), Procedure::RemoveAuthorLinks, [&] {
        RemoveLinks(db, kAuthors, kind, ownerIDs);
        return true;
    });
}

void UnlinkAuthor(Database& db, OwnerKind kind, std::string_view ownerIDs, std::int32_t authorID) {
    Guarded(db.Reporter(), Procedure::UnlinkAuthor, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tbl_Author_Link WHERE ownerID IN (", ownerIDs,
                           ") AND ownerTableID=", kind, " AND authorID = ", authorID));
    });
}

}  // namespace snippetarium
