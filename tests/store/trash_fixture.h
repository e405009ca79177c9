#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/deletion.h"
#include "store/trash.h"
#include "tests/store/catalogue_fixture.h"
#include "tests/store/delivered_catalogue.h"

namespace snippetarium::test {

// Two applications that share words, authors and dates with each other and with what belongs to
// nothing; each kind of owner has everything that an owner can have.
//
// clang-format off
inline constexpr std::string_view kTrashSample =
    "INSERT INTO tblLanguage VALUES (12, 'Forth', 1);"
    "INSERT INTO tblKeyword VALUES (1, 'Grid, Cell', 2), (2, 'Grid', 1), (3, 'it''s a cell', 1), (4, 'Text', 1), (5, 'Lost', 3), (6, 'Undefined Grid', 1), (7, 'Apps', 1);"
    "INSERT INTO tblSearchWord VALUES (1, 'Grid'), (2, 'Cell'), (3, 'it''s'), (4, 'Text'), (5, 'Lost'), (6, 'Undefined'), (7, 'Apps');"
    "INSERT INTO tblKeyword_link_searchWord VALUES (1, 1), (1, 2), (2, 1), (3, 3), (3, 2), (4, 4), (5, 5), (6, 6), (6, 1), (7, 7);"
    "INSERT INTO tblApplication(appID, appName, appPath, appComment, appVersion, keywordID) VALUES (2, 'Paint', 'c:\\paint', 'draws', '1.0', 1), (3, 'Text', NULL, NULL, NULL, 4);"
    "UPDATE tblApplication SET keywordID = 7 WHERE appID = 1;"
    "UPDATE tblClass SET keywordID = 6 WHERE classID = 1;"
    "INSERT INTO tblClass(classID, className, appID, languageID, classPathInApp, classDI, classComment, keywordID) VALUES "
    "(2, 'grid.cpp', 2, 4, 'src\\grid.cpp', 'int top;' || char(13, 10) || '/***Procedure Draw()***/' || char(13, 10) || 'int middle;' || char(13, 10) || '/***Procedure it''s***/' || char(13, 10) || 'int end;', 'a grid', 2), "
    "(3, 'Form1', 2, 1, 'Form1.frm', 'Option Explicit' || char(13, 10) || '''***Procedure Draw***' || char(13, 10), NULL, NULL), "
    "(4, 'Form1', 2, 12, 'sub\\Form1.frm', NULL, NULL, NULL), "
    "(5, 'Main', 3, 1, NULL, NULL, NULL, NULL), "
    "(6, 'Loose', 1, 4, NULL, '/***Procedure Loosen***/', NULL, NULL);"
    "INSERT INTO tblCode(codeID, codeName, code, codeComment, classID, keywordID) VALUES "
    "(1, 'Draw()', 'void Draw() {}', 'draws', 2, 3), (2, 'it''s', 'void its() {}', NULL, 2, NULL), "
    "(3, 'Draw', 'Sub Draw()', NULL, 3, NULL), (4, 'draw', 'Sub draw()', NULL, 3, NULL), (5, 'words', ': words ;', NULL, 4, NULL), "
    "(6, 'Run', 'Sub Run()', NULL, 5, NULL), (7, 'Nowhere', 'Sub Nowhere()', 'lost', 1, 5), (8, 'Loosen', 'void Loosen() {}', NULL, 6, NULL);"
    "INSERT INTO tblCode_Link_Language VALUES (1, 4), (2, 4), (3, 1), (5, 12), (6, 1), (7, 1), (8, 4);"
    "INSERT INTO tblAuthor VALUES (1, 'Ann', '', 'Lee'), (2, 'Bob', 'M', 'O''Hara'), (3, 'Cid', '', ''), (4, 'Dan', '', 'Lee');"
    "INSERT INTO tbl_Author_Link VALUES (2, 2, 1), (2, 1, 1), (1, 3, 1), (2, 1, 2), (1, 4, 2), (1, 2, 3), (1, 1, 3), (6, 1, 3), (7, 4, 3), (8, 3, 3);"
    "INSERT INTO tblDate VALUES (1, '2001-03-14'), (2, '2002-12-01 08:30:00'), (3, '2024-02-29'), (4, '1999-09-09');"
    "INSERT INTO tbl_date_link VALUES (2, 2, 1), (1, 3, 1), (2, 1, 2), (1, 4, 2), (1, 3, 3), (1, 1, 3), (6, 1, 3), (7, 4, 3);"
    "INSERT INTO tblFavorite VALUES (2, 2, 1), (2, 3, NULL), (1, 1, 7), (1, 1, NULL), (3, 5, 6), (2, 2, NULL);"
    "INSERT INTO tblSourceForm VALUES (2, 'utf-8'), (3, 'windows-1252');"
    "INSERT INTO tblOverlong VALUES (2, 1, 'appComment', 'x'), (2, 2, 'classDI', 'y'), (1, 3, 'code', 'z'), (7, 3, 'code', 'zz');";

// Everything that a catalogue holds, with names in the place of IDs.
inline constexpr std::string_view kDumpQueries[] = {
    "SELECT 'application', a.appName, a.appPath, a.appComment, a.appVersion, k.keyword, k.separatorID FROM tblApplication a LEFT JOIN tblKeyword k ON a.keywordID = k.keywordID",
    "SELECT 'class', a.appName, c.className, c.classPathInApp, l.language, c.classDI, c.classComment, k.keyword, k.separatorID FROM ((tblClass c LEFT JOIN tblApplication a ON c.appID = a.appID) LEFT JOIN tblLanguage l ON c.languageID = l.languageID) LEFT JOIN tblKeyword k ON c.keywordID = k.keywordID",
    "SELECT 'procedure', c.className, c.classPathInApp, d.codeName, d.code, d.codeComment, k.keyword, k.separatorID FROM (tblCode d LEFT JOIN tblClass c ON d.classID = c.classID) LEFT JOIN tblKeyword k ON d.keywordID = k.keywordID",
    "SELECT 'language of', d.code, l.language FROM (tblCode_Link_Language cl LEFT JOIN tblCode d ON cl.codeID = d.codeID) LEFT JOIN tblLanguage l ON cl.languageID = l.languageID",
    "SELECT 'word of', k.keyword, k.separatorID, w.searchWord FROM (tblKeyword_link_searchWord kl LEFT JOIN tblKeyword k ON kl.keywordID = k.keywordID) LEFT JOIN tblSearchWord w ON kl.searchWordID = w.searchWordID",
    "SELECT 'author of', al.ownerTableID, a.appName, c.className, c.classPathInApp, d.code, au.authorFName, au.authorMName, au.authorLName, (SELECT count(*) FROM tbl_Author_Link x WHERE x.ownerID = al.ownerID AND x.ownerTableID = al.ownerTableID AND x.rowid < al.rowid) FROM (((tbl_Author_Link al LEFT JOIN tblAuthor au ON al.authorID = au.authorID) LEFT JOIN tblApplication a ON al.ownerTableID = 1 AND al.ownerID = a.appID) LEFT JOIN tblClass c ON al.ownerTableID = 2 AND al.ownerID = c.classID) LEFT JOIN tblCode d ON al.ownerTableID = 3 AND al.ownerID = d.codeID",
    "SELECT 'date of', dl.ownerTableID, a.appName, c.className, c.classPathInApp, d.code, dt.dDate FROM (((tbl_date_link dl LEFT JOIN tblDate dt ON dl.dateID = dt.dateID) LEFT JOIN tblApplication a ON dl.ownerTableID = 1 AND dl.ownerID = a.appID) LEFT JOIN tblClass c ON dl.ownerTableID = 2 AND dl.ownerID = c.classID) LEFT JOIN tblCode d ON dl.ownerTableID = 3 AND dl.ownerID = d.codeID",
    "SELECT 'bookmark', a.appName, c.className, c.classPathInApp, d.code FROM ((tblFavorite f LEFT JOIN tblApplication a ON f.appID = a.appID) LEFT JOIN tblClass c ON f.classID = c.classID) LEFT JOIN tblCode d ON f.codeID = d.codeID",
    "SELECT 'source form', c.className, c.classPathInApp, s.form FROM tblSourceForm s LEFT JOIN tblClass c ON s.classID = c.classID",
    "SELECT 'overlong', o.ownerTableID, a.appName, c.className, d.code, o.part, o.text FROM ((tblOverlong o LEFT JOIN tblApplication a ON o.ownerTableID = 1 AND o.ownerID = a.appID) LEFT JOIN tblClass c ON o.ownerTableID = 2 AND o.ownerID = c.classID) LEFT JOIN tblCode d ON o.ownerTableID = 3 AND o.ownerID = d.codeID",
    "SELECT 'keyword', keyword, separatorID FROM tblKeyword",
    "SELECT 'word', searchWord FROM tblSearchWord",
    "SELECT 'author', authorFName, authorMName, authorLName FROM tblAuthor",
    "SELECT 'date', dDate FROM tblDate",
    "SELECT 'language', language, Status FROM tblLanguage",
    "SELECT 'left over', ID FROM tblIDsToDelete",
};
// clang-format on

constexpr Owner Application(std::int32_t id) {
    return {OwnerKind::Application, id};
}
constexpr Owner Class(std::int32_t id) {
    return {OwnerKind::Class, id};
}
constexpr Owner Code(std::int32_t id) {
    return {OwnerKind::Procedure, id};
}

class TrashFixture : public OpenCatalogueFixture {
  protected:
    TrashFixture() { db_.GetConnection().RunScript(kTrashSample); }

    using Rows = std::vector<std::string>;

    Rows Select(std::string_view sql) {
        return DeliveredCatalogue::AllRows(db_.GetConnection().Execute(sql));
    }
    std::string Field(std::string_view sql) {
        const Rows rows = Select(sql);
        return rows.empty() ? "no row" : rows.front();
    }
    Rows Dump() {
        Rows dump;
        for (const std::string_view query : kDumpQueries)
            std::ranges::move(Select(query), std::back_inserter(dump));
        std::ranges::sort(dump);
        return dump;
    }
    /// What of this dump is not there ("-"), and what is there besides ("+").
    std::string DifferenceTo(const Rows& expected) {
        const Rows dump = Dump();
        Rows missing;
        Rows added;
        std::ranges::set_difference(expected, dump, std::back_inserter(missing));
        std::ranges::set_difference(dump, expected, std::back_inserter(added));
        std::string text;
        for (const std::string& row : missing)
            text += "- " + row + "\n";
        for (const std::string& row : added)
            text += "+ " + row + "\n";
        return text;
    }
    void Delete(const Owner& owner) {
        switch (owner.kind) {
            case OwnerKind::Application:
                return DeleteApplication(db_, owner.id);
            case OwnerKind::Class:
                return DeleteClass(db_, owner.id);
            case OwnerKind::Procedure:
                return DeleteCode(db_, owner.id);
        }
    }
    /// Brings the newest entry back.
    TrashReturn RestoreNewest() {
        const std::vector<TrashEntry> entries = ListTrash(db_);
        return entries.empty() ? TrashReturn() : RestoreFromTrash(db_, entries.front().trashID);
    }
    void ExpectEmptyTrash() {
        for (const std::string_view table : CatalogueTables()) {
            if (!table.starts_with("tblTrash")) continue;
            EXPECT_EQ(Field("SELECT count(*) FROM " + std::string(table)), "0") << table;
        }
    }
};

}  // namespace snippetarium::test
