#include "store/trash_ids.h"

#include <array>

#include "store/database.h"
#include "store/sql_text.h"

namespace snippetarium {

namespace {

struct Numbered {
    std::string_view scratch;
    std::string_view table;
    std::string_view trashTable;
    std::string_view id;
    /// The ID of the row s that is there already for the row t of the trash, or null.
    std::string_view found;
};

// A row of the tree that has the ID of a deleted one is that one, and was not deleted after all. It
// must look like it too: other programs, or a damaged counter, may have given the ID again. Class 1
// and application 1 always are themselves.
//
// A keyword belongs to one owner: it is the same only if nobody else has it.

// clang-format off
constexpr std::array kNumbered = {
    Numbered{"tblBackApplication", "tblApplication", "tblTrashApplication", "appID",
        "(SELECT s.appID FROM tblApplication s WHERE s.appID = t.appID AND (s.appID = 1 OR s.appName = t.appName))"},
    Numbered{"tblBackClass", "tblClass", "tblTrashClass", "classID",
        "(SELECT s.classID FROM tblClass s WHERE s.classID = t.classID AND (s.classID = 1 OR s.className = t.className AND s.classDI IS t.classDI COLLATE BINARY))"},
    Numbered{"tblBackCode", "tblCode", "tblTrashCode", "codeID",
        "(SELECT s.codeID FROM tblCode s WHERE s.codeID = t.codeID AND s.codeName = t.codeName AND s.code IS t.code COLLATE BINARY AND s.codeComment IS t.codeComment COLLATE BINARY)"},
    Numbered{"tblBackKeyword", "tblKeyword", "tblTrashKeyword", "keywordID",
        "(SELECT s.keywordID FROM tblKeyword s WHERE s.keywordID = t.keywordID AND s.keyword IS t.keyword COLLATE BINARY AND s.separatorID IS t.separatorID"
        " AND NOT EXISTS (SELECT 1 FROM tblApplication o WHERE o.keywordID = s.keywordID AND o.appID NOT IN (SELECT new FROM tblBackApplication WHERE isThere))"
        " AND NOT EXISTS (SELECT 1 FROM tblClass o WHERE o.keywordID = s.keywordID AND o.classID NOT IN (SELECT new FROM tblBackClass WHERE isThere))"
        " AND NOT EXISTS (SELECT 1 FROM tblCode o WHERE o.keywordID = s.keywordID AND o.codeID NOT IN (SELECT new FROM tblBackCode WHERE isThere)))"},
    Numbered{"tblBackSearchWord", "tblSearchWord", "tblTrashSearchWord", "searchWordID",
        "coalesce((SELECT s.searchWordID FROM tblSearchWord s WHERE s.searchWordID = t.searchWordID AND s.searchWord = t.searchWord),"
        " (SELECT min(s.searchWordID) FROM tblSearchWord s WHERE s.searchWord = t.searchWord))"},
    Numbered{"tblBackAuthor", "tblAuthor", "tblTrashAuthor", "authorID",
        "coalesce((SELECT s.authorID FROM tblAuthor s WHERE s.authorID = t.authorID AND s.authorFName IS t.authorFName AND s.authorMName IS t.authorMName AND s.authorLName IS t.authorLName),"
        " (SELECT min(s.authorID) FROM tblAuthor s WHERE s.authorFName IS t.authorFName AND s.authorMName IS t.authorMName AND s.authorLName IS t.authorLName))"},
    Numbered{"tblBackDate", "tblDate", "tblTrashDate", "dateID",
        "coalesce((SELECT s.dateID FROM tblDate s WHERE s.dateID = t.dateID AND s.dDate IS t.dDate),"
        " (SELECT min(s.dateID) FROM tblDate s WHERE s.dDate IS t.dDate))"},
    Numbered{"tblBackLanguage", "tblLanguage", "tblTrashLanguage", "languageID",
        "coalesce((SELECT s.languageID FROM tblLanguage s WHERE s.languageID = t.languageID AND s.language = t.language),"
        " (SELECT min(s.languageID) FROM tblLanguage s WHERE s.language = t.language))"},
};
// clang-format on

const Numbered& OfKind(OwnerKind kind) {
    return kNumbered.at(static_cast<std::size_t>(kind) - 1);
}

std::string FindScript(const Numbered& numbered, const TrashEntry& entry) {
    return Sql("INSERT OR IGNORE INTO ", numbered.scratch, "(old, new) SELECT t.", numbered.id,
               ", ", numbered.found, " FROM ", numbered.trashTable,
               " t WHERE t.trashID = ", entry.trashID, ";\nUPDATE ", numbered.scratch,
               " SET isThere = 1 WHERE new IS NOT NULL;\n");
}

/// Gives an ID to each row that is not there.
std::string NumberScript(const Numbered& numbered) {
    const auto& [scratch, table, trashTable, id, found] = numbered;
    const std::string highest =
        Sql("max((SELECT coalesce(max(", id, "), 0) FROM ", table,
            "), (SELECT coalesce(max(new), 0) FROM ", scratch,
            "), (SELECT coalesce(max(seq), 0) FROM sqlite_sequence WHERE name = '", table, "'))");
    return Sql("UPDATE ", scratch, " SET new = old WHERE new IS NULL AND old NOT IN (SELECT ", id,
               " FROM ", table, ");\nUPDATE ", scratch, " SET new = r.id FROM (SELECT old, ",
               highest, " + row_number() OVER (ORDER BY old) AS id FROM ", scratch,
               " WHERE new IS NULL) AS r WHERE r.old = ", scratch, ".old;\n");
}

/// What takes the entry in, as a row that is there.
std::string PlaceScript(const TrashEntry& entry, const TrashPlace& place) {
    switch (entry.owner.kind) {
        case OwnerKind::Class:
            return Sql("INSERT INTO tblBackApplication VALUES (", entry.appID, ", ", place.appID,
                       ", 1);\n");
        case OwnerKind::Procedure:
            return Sql("INSERT INTO tblBackClass VALUES (", entry.classID, ", ", place.classID,
                       ", 1);\n");
        case OwnerKind::Application:
            break;
    }
    return {};
}

}  // namespace

std::string NumberingScript(const TrashEntry& entry, const TrashPlace& place) {
    std::string script;
    for (const Numbered& numbered : kNumbered) {
        script += Sql("DROP TABLE IF EXISTS temp.", numbered.scratch, ";\nCREATE TEMP TABLE ",
                      numbered.scratch,
                      "(old INTEGER PRIMARY KEY, new INTEGER, isThere INTEGER NOT NULL DEFAULT "
                      "0);\n");
    }
    script += PlaceScript(entry, place);
    for (const Numbered& numbered : kNumbered)
        script += FindScript(numbered, entry) + NumberScript(numbered);
    return script;
}

std::string ForgetNumberingScript() {
    std::string script;
    for (const Numbered& numbered : kNumbered)
        script += Sql("DROP TABLE temp.", numbered.scratch, ";\n");
    return script;
}

std::int32_t ReadNewID(Database& db, const TrashEntry& entry) {
    return ScalarLong(db, Sql("SELECT new FROM ", OfKind(entry.owner.kind).scratch,
                              " WHERE old = ", entry.owner.id));
}

}  // namespace snippetarium
