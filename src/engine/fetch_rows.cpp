#include "engine/fetch_rows.h"

#include <sqlite3.h>

#include <string>
#include <vector>

#include "engine/engine_error.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

namespace {

std::vector<std::string> ColumnNames(sqlite3_stmt* statement) {
    std::vector<std::string> names;
    const int count = sqlite3_column_count(statement);
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        names.emplace_back(sqlite3_column_name(statement, i));
    return names;
}

void AddRow(sqlite3_stmt* statement, RecordsetBuilder& rows) {
    const int count = sqlite3_column_count(statement);
    for (int i = 0; i < count; ++i) {
        switch (sqlite3_column_type(statement, i)) {
            case SQLITE_NULL:
                rows.AddNull();
                break;
            case SQLITE_INTEGER:
                rows.AddInteger(sqlite3_column_int64(statement, i));
                break;
            case SQLITE_FLOAT:
                rows.AddReal(sqlite3_column_double(statement, i));
                break;
            default: {
                const void* bytes = sqlite3_column_blob(statement, i);
                const int size = sqlite3_column_bytes(statement, i);
                rows.AddText({static_cast<const char*>(bytes), static_cast<std::size_t>(size)});
                break;
            }
        }
    }
}

}  // namespace

StatementRun::~StatementRun() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

Recordset FetchRows(sqlite3* database, sqlite3_stmt* statement, std::size_t mostBytes) {
    const StatementRun run(statement);
    int result = sqlite3_step(statement);
    // Only now: the first step prepares the statement anew where the schema has changed.
    RecordsetBuilder rows(ColumnNames(statement));
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) {
        AddRow(statement, rows);
        if (rows.Size() > mostBytes) {
            throw EngineError(EngineErrorCode::QueryTooComplex,
                              "The statement finds more than can be shown. Make it find less.");
        }
    }
    if (result != SQLITE_DONE) ThrowEngineError(database, result);
    return rows.Take();
}

}  // namespace snippetarium
