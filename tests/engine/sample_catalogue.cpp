#include "tests/engine/sample_catalogue.h"

#include <algorithm>
#include <stdexcept>
#include <variant>

namespace snippetarium::test {

namespace {

constexpr const char* kSchema = R"(
CREATE TABLE tblApplication(appID INTEGER PRIMARY KEY AUTOINCREMENT, appName TEXT COLLATE CATNC,
    appPath TEXT COLLATE CATNC, appComment TEXT, appVersion TEXT, keywordID INTEGER);
CREATE TABLE tblClass(classID INTEGER PRIMARY KEY AUTOINCREMENT, className TEXT COLLATE CATNC,
    appID INTEGER, languageID INTEGER, classPathInApp TEXT COLLATE CATNC, classDI TEXT,
    classComment TEXT, keywordID INTEGER);
CREATE TABLE tblCode(codeID INTEGER PRIMARY KEY AUTOINCREMENT, codeName TEXT COLLATE CATNC,
    code TEXT, codeComment TEXT, classID INTEGER, keywordID INTEGER);
CREATE TABLE tblKeyword(keywordID INTEGER PRIMARY KEY, keyword TEXT, separatorID INTEGER);
CREATE TABLE tblSearchWord(searchWordID INTEGER PRIMARY KEY, searchWord TEXT COLLATE CATNC);
CREATE TABLE tblKeyword_link_searchWord(keywordID INTEGER, searchWordID INTEGER);
CREATE TABLE tblAuthor(authorID INTEGER PRIMARY KEY, authorFName TEXT COLLATE CATNC,
    authorMName TEXT COLLATE CATNC, authorLName TEXT COLLATE CATNC);
CREATE TABLE tbl_Author_Link(ownerID INTEGER, authorID INTEGER, ownerTableID INTEGER);
CREATE TABLE tblDate(dateID INTEGER PRIMARY KEY, dDate TEXT);
CREATE TABLE tbl_date_link(ownerID INTEGER, dateID INTEGER, ownerTableID INTEGER);
CREATE TABLE tblLanguage(languageID INTEGER PRIMARY KEY, language TEXT COLLATE CATNC, Status INTEGER);
CREATE TABLE tblCode_Link_Language(codeID INTEGER, languageID INTEGER);
CREATE TABLE tblFavorite(appID INTEGER, classID INTEGER, codeID INTEGER);
CREATE TABLE tblCommonWord(commonWord TEXT COLLATE CATNC);
CREATE TABLE tblIDsToDelete(ID INTEGER, authorID INTEGER AS (ID), dateID INTEGER AS (ID));
CREATE TABLE tblWindowSize(w_hID INTEGER PRIMARY KEY, tWidth INTEGER, tHeight INTEGER, tLeft INTEGER,
    tTop INTEGER, leftChildIndex INTEGER, rightChildIndex INTEGER, wrap INTEGER,
    leftChildWidth INTEGER, rightChildWidth INTEGER, fContentPos TEXT, fIndexPos TEXT,
    fSearchPos TEXT, fBookmarkPos TEXT, lastCompactDay TEXT);
)";

// Words 1 alpha, 2 beta, 3 gamma. Procedures 3 and 6 have both alpha and beta. Language 6 is that
// of pages, 7 of scripts; procedure 5 is a script in a class of another language.
constexpr const char* kRows = R"(
INSERT INTO tblApplication VALUES(1,'Application Undefined',NULL,NULL,NULL,NULL),
    (2,'Grid tools','C:\grid','Draws grids','1.0',1), (3,'Paint','C:\paint',NULL,NULL,2);
INSERT INTO tblClass VALUES(1,'Class/Module Undefined',1,1,NULL,NULL,NULL,NULL),
    (2,'Grid.cls',2,1,'src\Grid.cls','Dim alpha As Long','A grid',3), (3,'menu.js',2,7,NULL,'',NULL,4),
    (4,'page.asp',3,6,NULL,'<% alpha %>','It''s a page',1), (5,'fill.c',3,5,NULL,'int beta;',NULL,NULL);
INSERT INTO tblCode VALUES(1,'Loose','x = 1',NULL,1,NULL), (2,'Draw','call alpha','Draws',2,1),
    (3,'Redraw','alpha beta','Draws (again)',2,3), (4,'open','function open() {}',NULL,3,4),
    (5,'close','it''s closed; -- end',NULL,2,2), (6,'Load','Response.Write "#"',NULL,4,3),
    (7,'fill','int alpha(void)','fills',5,NULL);
INSERT INTO tblKeyword VALUES(1,'alpha',1), (2,'beta',1), (3,'alpha, beta',2), (4,'gamma it''s',1);
INSERT INTO tblSearchWord VALUES(1,'alpha'), (2,'beta'), (3,'gamma'), (4,'unused');
INSERT INTO tblKeyword_link_searchWord VALUES(1,1), (2,2), (3,1), (3,2), (4,3);
INSERT INTO tblAuthor VALUES(1,'Ada','','King'), (2,'Joan','M','O''Neil'), (3,'Ada','','Smith');
INSERT INTO tbl_Author_Link VALUES(2,1,1), (3,2,1), (2,1,2), (4,2,2), (2,1,3), (4,2,3), (5,2,3), (7,1,3);
INSERT INTO tblDate VALUES(1,'2001-03-14'), (2,'2002-12-01'), (3,'1999-01-31 08:30:00'), (4,'2010-06-05');
INSERT INTO tbl_date_link VALUES(2,1,1), (3,2,1), (2,1,2), (4,2,2), (3,3,2), (2,1,3), (4,2,3), (5,2,3),
    (6,3,3), (7,1,3);
INSERT INTO tblLanguage VALUES(1,'Visual Basic',1), (5,'C',1), (6,'ASP',1), (7,'JavaScript',1), (9,'HTML',0);
INSERT INTO tblCode_Link_Language VALUES(2,1), (3,1), (4,7), (5,7), (6,6), (7,5);
INSERT INTO tblFavorite VALUES(2,2,3), (2,3,NULL);
INSERT INTO tblCommonWord VALUES('the'), ('and');
INSERT INTO tblIDsToDelete VALUES(1), (4);
INSERT INTO tblWindowSize VALUES(1,800,600,0,0,1,2,0,200,250,'left','left','right','left',NULL);
)";

int CompareWithoutCase(void*, int aSize, const void* a, int bSize, const void* b) {
    const int order = sqlite3_strnicmp(static_cast<const char*>(a), static_cast<const char*>(b),
                                       std::min(aSize, bSize));
    return order != 0 ? order : aSize - bSize;
}

void Bind(sqlite3_stmt* statement, const std::vector<SqlLiteral>& parameters) {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const int index = static_cast<int>(i) + 1;
        if (const auto* integer = std::get_if<std::int64_t>(&parameters[i])) {
            sqlite3_bind_int64(statement, index, *integer);
        } else if (const auto* real = std::get_if<double>(&parameters[i])) {
            sqlite3_bind_double(statement, index, *real);
        } else {
            const std::string& text = std::get<std::string>(parameters[i]);
            sqlite3_bind_text64(statement, index, text.data(), text.size(), SQLITE_STATIC,
                                SQLITE_UTF8);
        }
    }
}

std::string RowText(sqlite3_stmt* statement) {
    std::string row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const char type = "?irtbn"[sqlite3_column_type(statement, column)];
        const unsigned char* text = sqlite3_column_text(statement, column);
        row += type;
        row += text == nullptr ? "" : reinterpret_cast<const char*>(text);
        row += '|';
    }
    return row;
}

}  // namespace

SampleCatalogue::SampleCatalogue() {
    sqlite3* database = nullptr;
    sqlite3_open(":memory:", &database);
    database_.reset(database);
    sqlite3_create_collation(database, "CATNC", SQLITE_UTF8, nullptr, CompareWithoutCase);
    // As in the program: double quotation marks are never texts.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, static_cast<int*>(nullptr));
    Run(kSchema);
    Run(kRows);
}

Outcome SampleCatalogue::Try(const std::string& sql,
                             const std::vector<SqlLiteral>& parameters) const {
    Run("BEGIN");
    const int changesBefore = sqlite3_total_changes(Handle());
    Outcome outcome = Read(sql, parameters);
    if (sqlite3_total_changes(Handle()) != changesBefore) outcome.rows = AllRows();
    Run("ROLLBACK");
    return outcome;
}

void SampleCatalogue::Run(const char* script) const {
    char* error = nullptr;
    if (sqlite3_exec(Handle(), script, nullptr, nullptr, &error) != SQLITE_OK) {
        const std::string text = error;
        sqlite3_free(error);
        throw std::logic_error(text);
    }
}

Outcome SampleCatalogue::Read(const std::string& sql,
                              const std::vector<SqlLiteral>& parameters) const {
    Outcome outcome;
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(Handle(), sql.c_str(), -1, &statement, nullptr);
    if (result == SQLITE_OK) {
        Bind(statement, parameters);
        while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
            outcome.rows.push_back(RowText(statement));
        }
    }
    if (result != SQLITE_DONE) outcome.error = sqlite3_errmsg(Handle());
    sqlite3_finalize(statement);
    return outcome;
}

std::vector<std::string> SampleCatalogue::AllRows() const {
    std::vector<std::string> all;
    const Outcome tables =
        Read("SELECT name FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY name", {});
    for (const std::string& row : tables.rows) {
        const std::string table = row.substr(1, row.size() - 2);
        for (const std::string& line : Read("SELECT * FROM " + table, {}).rows) {
            all.push_back(table + ": " + line);
        }
    }
    return all;
}

}  // namespace snippetarium::test
