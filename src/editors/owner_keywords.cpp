#include "editors/owner_keywords.h"

#include <string>

#include "keywords/keyword_saving.h"
#include "keywords/words.h"
#include "store/database.h"
#include "store/keyword_rows.h"
#include "store/reads_keywords.h"
#include "store/sql_text.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

constexpr std::string_view kOwnerTables[] = {"tblApplication", "tblClass", "tblCode"};

std::int32_t KeywordIDOf(Database& db, const Owner& owner) {
    switch (owner.kind) {
        case OwnerKind::Application:
            return KeywordIDByAppID(db, owner.id);
        case OwnerKind::Class:
            return KeywordIDByClassID(db, owner.id);
        case OwnerKind::Procedure:
            break;
    }
    return KeywordIDByCodeID(db, owner.id);
}

bool IsUsed(Database& db, std::int32_t keywordID) {
    for (const std::string_view table : kOwnerTables) {
        if (RecordExists(db,
                         Sql("SELECT keywordID FROM ", table, " WHERE keywordID = ", keywordID)))
            return true;
    }
    return false;
}

/// "3,7", or "0", which no search word has.
std::string SearchWordsOf(Database& db, std::int32_t keywordID) {
    std::string ids = "0";
    Recordset row = db.GetConnection().Execute(
        Sql("SELECT searchWordID FROM tblKeyword_link_searchWord WHERE keywordID = ", keywordID));
    for (; !row.EndOfFile(); row.MoveNext())
        ids += "," + std::to_string(row["searchWordID"].Long());
    return ids;
}

void RemoveIfUnused(Database& db, std::int32_t keywordID) {
    if (keywordID == 0 || IsUsed(db, keywordID)) return;
    const std::string words = SearchWordsOf(db, keywordID);
    ExecuteSQL(db, Sql("DELETE FROM tblKeyword_link_searchWord WHERE keywordID = ", keywordID));
    ExecuteSQL(db, Sql("DELETE FROM tblKeyword WHERE keywordID = ", keywordID));
    ExecuteSQL(db, Sql("DELETE FROM tblSearchWord WHERE searchWordID IN (", words,
                       ") AND searchWordID NOT IN (SELECT searchWordID FROM "
                       "tblKeyword_link_searchWord WHERE searchWordID IN (",
                       words, "))"));
}

}  // namespace

void ReplaceOwnerKeywords(Database& db, const NoiseWords& noise, const Owner& owner,
                          std::string_view keyword, std::int32_t separatorID) {
    Guarded(db.Reporter(), Procedure::ReplaceOwnerKeywords, [&] {
        const std::int32_t before = KeywordIDOf(db, owner);
        if (TrimBlanks(keyword).empty()) {
            ClearOwnerKeyword(db, owner);
        } else {
            SetOwnerKeyword(db, owner, SaveKeyword(db, noise, keyword, separatorID));
        }
        RemoveIfUnused(db, before);
    });
}

}  // namespace snippetarium
