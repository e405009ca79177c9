#pragma once

#include <string>
#include <string_view>

#include "engine/connection.h"
#include "engine/create_database.h"
#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"
#include "tests/temporary_folder.h"

namespace snippetarium::test {

// A small stand-in for the delivered catalogue: enough tables for the engine to show what it does.
inline constexpr std::string_view kTestSchema = R"(
CREATE TABLE tblApplication(appID INTEGER PRIMARY KEY AUTOINCREMENT, appName TEXT COLLATE CATNC,
    keywordID INTEGER);
CREATE TABLE tblCode(codeID INTEGER PRIMARY KEY AUTOINCREMENT, codeName TEXT COLLATE CATNC,
    code TEXT COLLATE CATNC, classID INTEGER);
CREATE TABLE tblDate(dateID INTEGER PRIMARY KEY, dDate TEXT);
CREATE TABLE tblNamedQuery(name TEXT PRIMARY KEY, parameters TEXT, body TEXT);
CREATE INDEX ixCodeName ON tblCode(codeName);
INSERT INTO tblApplication VALUES (1, 'Application Undefined', NULL), (2, 'Grid', 7), (3, 'grid view', 8);
INSERT INTO tblCode VALUES (1, 'Draw', 'Sub Draw()', 1), (2, 'Fill', NULL, 1), (3, 'draw', 'int draw', 2);
INSERT INTO tblNamedQuery VALUES
    ('qryCodeNameByID', 'codeID I', 'SELECT codeName FROM tblCode WHERE codeID = [codeID]'),
    ('qryCodeIDByCodeNameClassID', 'codeName T255, classID I',
     'SELECT codeID FROM tblCode WHERE codeName = [codeName] AND classID = [classID]'),
    ('qryAllCodes', '', 'SELECT codeID, codeName FROM tblCode ORDER BY codeID'),
    ('qryWrites', '', 'DELETE FROM tblCode'),
    ('qryBadKind', 'codeID Z', 'SELECT 1');
)";

inline std::string ConnectionStringOf(const std::string& path) {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + path;
}

/// A catalogue in a folder of its own, open for writing.
class TestCatalogue {
  public:
    TestCatalogue() : connection(CatalogueProviders()) {
        CreateDatabase(Path(), kTestSchema);
        connection.SetConnectionString(ConnectionStringOf(Path()));
        connection.Open();
    }
    std::string Path() const { return folder.File("QRT_SN.mde"); }
    std::string Scalar(std::string_view sql) {
        const Recordset row = connection.Execute(sql);
        return row.EndOfFile() ? "no row" : row[std::size_t{0}].Text();
    }

    TemporaryFolder folder;
    Connection connection;
};

/// The number of the EngineError that an action throws, 0 when it throws none.
template <typename Action>
int ErrorNumberOf(Action&& action) {
    try {
        action();
    } catch (const EngineError& error) {
        return error.Number();
    }
    return 0;
}

}  // namespace snippetarium::test
