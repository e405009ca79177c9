#include "store/keyword_rows.h"

#include "store/database.h"
#include "store/new_id.h"
#include "store/reads_keywords.h"
#include "store/sql_text.h"
#include "support/error.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

/// As the column takes it. Cut before its quotes are doubled, so that no pair of them is torn.
std::string SqlSearchWord(std::string_view word) {
    if (word.empty()) {
        throw Error(error_number::kInvalidCall,
                    "A search word cannot be empty. Enter at least one character.");
    }
    return SqlText50(word);
}

/// 'one','two'
std::string SqlTextList(std::span<const std::string> words) {
    std::string list;
    for (const std::string& word : words) {
        if (!list.empty()) list += ',';
        list += SqlText50(word);
    }
    return list;
}

/// Where an owner's keywordID stands.
struct OwnerTable {
    std::string_view name;
    std::string_view idColumn;
};

constexpr OwnerTable TableOf(OwnerKind kind) {
    switch (kind) {
        case OwnerKind::Application:
            return {"tblApplication", "appID"};
        case OwnerKind::Class:
            return {"tblClass", "classID"};
        case OwnerKind::Procedure:
            break;
    }
    return {"tblCode", "codeID"};
}

/// Gives all keywords of one search word the other in its place.
void ReplaceSearchWord(Database& db, SearchWordChange change) {
    Recordset link = db.GetConnection().Execute(
        Sql("SELECT keywordID FROM tblKeyword_link_searchWord WHERE searchWordID = ",
            change.oldSearchWordID));
    for (; !link.EndOfFile(); link.MoveNext())
        RelinkSearchWord(db, link["keywordID"].Long(), change);
    DeleteSearchWord(db, change.oldSearchWordID);
}

}  // namespace

std::int32_t AddKeyword(Database& db, std::string_view keyword, std::int32_t separatorID) {
    return Guarded(db.Reporter(), Procedure::AddKeyword, [&] {
        const std::int32_t keywordID = NewID(db, "keywordID", "tblKeyword");
        ExecuteSQL(db, Sql("INSERT INTO tblKeyword VALUES(", keywordID, ", ", SqlText(keyword),
                           ", ", separatorID, ")"));
        return keywordID;
    });
}

void UpdateKeyword(Database& db, std::int32_t keywordID, std::string_view keyword,
                   std::int32_t separatorID) {
    Guarded(db.Reporter(), Procedure::UpdateKeyword, [&] {
        ExecuteSQL(db, Sql("UPDATE tblKeyword SET keyword = ", SqlText(keyword),
                           ", separatorID = ", separatorID, " WHERE keywordID = ", keywordID, ";"));
    });
}

void SetOwnerKeyword(Database& db, const Owner& owner, std::int32_t keywordID) {
    Guarded(db.Reporter(), Procedure::SetOwnerKeyword, [&] {
        const OwnerTable table = TableOf(owner.kind);
        ExecuteSQL(db, Sql("UPDATE ", table.name, " SET keywordID = ", keywordID, " WHERE ",
                           table.idColumn, "=", owner.id));
    });
}

void ClearOwnerKeyword(Database& db, const Owner& owner) {
    Guarded(db.Reporter(), Procedure::ClearOwnerKeyword, [&] {
        const OwnerTable table = TableOf(owner.kind);
        ExecuteSQL(db, Sql("UPDATE ", table.name, " SET keywordID = null WHERE ", table.idColumn,
                           " = ", owner.id));
    });
}

Recordset KeywordsWithSeparators(Database& db) {
    return Guarded(db.Reporter(), Procedure::KeywordsWithSeparators, [&] {
        db.SetCurrentStatement(
            "SELECT k.keywordID, k.keyword, k.separatorID, s.separator FROM tblKeyword k LEFT JOIN "
            "tblSeparator s ON k.separatorID = s.separatorID");
        return db.GetConnection().Execute(db.CurrentStatement());
    });
}

void LinkKeywordSearchWords(Database& db, std::int32_t keywordID,
                            std::span<const std::string_view> words) {
    Guarded(db.Reporter(), Procedure::LinkKeywordSearchWords, [&] {
        for (const std::string_view word : words) {
            if (word.empty()) continue;
            std::int32_t searchWordID = FindSearchWord(db, word);
            if (searchWordID == 0) searchWordID = AddSearchWord(db, word);
            LinkSearchWord(db, keywordID, searchWordID);
        }
    });
}

std::int32_t FindSearchWord(Database& db, std::string_view word) {
    return Guarded(db.Reporter(), Procedure::FindSearchWord,
                   [&] { return SearchWordIDBySearchWord(db, word); });
}

std::int32_t AddSearchWord(Database& db, std::string_view word) {
    return Guarded(db.Reporter(), Procedure::AddSearchWord, [&] {
        const std::string text = SqlSearchWord(word);
        const std::int32_t searchWordID = NewID(db, "searchWordID", "tblSearchWord");
        ExecuteSQL(db, Sql("INSERT INTO tblSearchWord VALUES(", searchWordID, ", ", text, ");"));
        return searchWordID;
    });
}

void LinkSearchWord(Database& db, std::int32_t keywordID, std::int32_t searchWordID) {
    Guarded(db.Reporter(), Procedure::LinkSearchWord, [&] {
        if (SearchWordIDByKeywordIDSearchWordID(db, keywordID, searchWordID) != 0) return;
        ExecuteSQL(db, Sql("INSERT INTO tblKeyword_link_searchWord VALUES(", keywordID, ", ",
                           searchWordID, ");"));
    });
}

void RenameSearchWord(Database& db, std::int32_t searchWordID, std::string_view word) {
    Guarded(db.Reporter(), Procedure::RenameSearchWord, [&] {
        const std::string text = SqlSearchWord(word);
        const std::int32_t holder = FindSearchWord(db, word);
        if (holder != 0 && holder != searchWordID) {
            ReplaceSearchWord(db, {.oldSearchWordID = searchWordID, .newSearchWordID = holder});
            return;
        }
        ExecuteSQL(db, Sql("UPDATE tblSearchWord SET searchWord = ", text,
                           " WHERE searchWordID = ", searchWordID, ";"));
    });
}

void RelinkSearchWord(Database& db, std::int32_t keywordID, SearchWordChange change) {
    Guarded(db.Reporter(), Procedure::RelinkSearchWord, [&] {
        const auto& [oldID, newID] = change;
        if (oldID == newID) return;
        const std::string oldLink =
            Sql(" WHERE searchWordID = ", oldID, " AND keywordID = ", keywordID, ";");
        const bool isLinked = SearchWordIDByKeywordIDSearchWordID(db, keywordID, newID) != 0;
        ExecuteSQL(
            db, isLinked
                    ? Sql("DELETE FROM tblKeyword_link_searchWord", oldLink)
                    : Sql("UPDATE tblKeyword_link_searchWord SET searchWordID = ", newID, oldLink));
    });
}

void DeleteSearchWord(Database& db, std::int32_t searchWordID) {
    Guarded(db.Reporter(), Procedure::DeleteSearchWord, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tblSearchWord WHERE searchWordID = ", searchWordID));
    });
}

void DeleteSearchWords(Database& db, std::span<const std::string> words) {
    Guarded(db.Reporter(), Procedure::DeleteSearchWords, [&] {
        const std::string list = SqlTextList(words);
        ExecuteSQL(
            db, Sql("DELETE kls.* FROM tblKeyword_link_searchWord kls INNER JOIN tblSearchWord sw "
                    "ON kls.searchWordID = sw.searchWordID WHERE sw.searchWord IN (",
                    list, ")"));
        ExecuteSQL(db, Sql("DELETE FROM tblSearchWord WHERE searchWord IN (", list, ")"));
    });
}

void AddNoiseWordRows(Database& db, std::span<const std::string> words) {
    Guarded(db.Reporter(), Procedure::AddNoiseWordRows, [&] {
        for (const std::string& word : words) {
            const std::string text = SqlText255(word);
            if (RecordExists(db, Sql("SELECT * FROM tblCommonWord WHERE commonWord=", text)))
                continue;
            ExecuteSQL(db, Sql("INSERT INTO tblCommonWord (commonWord) VALUES (", text, ")"));
        }
    });
}

void DeleteNoiseWordRow(Database& db, std::string_view word) {
    Guarded(db.Reporter(), Procedure::DeleteNoiseWordRow, [&] {
        ExecuteSQL(db, Sql("DELETE FROM tblCommonWord WHERE CommonWord = ", SqlText255(word), ";"));
    });
}

}  // namespace snippetarium
