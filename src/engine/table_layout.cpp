#include "engine/table_layout.h"

#include <sqlite3.h>

#include <algorithm>

#include "engine/fetch_rows.h"
#include "engine/sqlite_handle.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

Recordset Read(sqlite3* database, const std::string& sql) {
    const StatementHandle statement = PrepareStatement(database, sql);
    return FetchRows(database, statement.get());
}

TableLayout ReadLayout(sqlite3* database, const std::string& name, bool hasRowNumbers) {
    TableLayout layout;
    layout.name = name;
    layout.hasRowNumbers = hasRowNumbers;
    Recordset column = Read(database, "SELECT name, type, pk FROM pragma_table_xinfo('" + name +
                                          "') WHERE hidden = 0 ORDER BY cid");
    for (; !column.EndOfFile(); column.MoveNext()) {
        const bool isKey = column["pk"].Boolean();
        if (isKey && !hasRowNumbers) layout.keyColumns.push_back(column["name"].Text());
        if (isKey && hasRowNumbers && column["type"].Text() == "INTEGER") continue;
        layout.columns.push_back(column["name"].Text());
    }
    return layout;
}

}  // namespace

std::string TableLayout::ColumnList() const {
    std::string list = hasRowNumbers ? "rowid" : "";
    for (const std::string& column : columns) {
        if (!list.empty()) list += ", ";
        list += column;
    }
    return list;
}

std::vector<TableLayout> ReadTableLayouts(sqlite3* database) {
    std::vector<TableLayout> layouts;
    Recordset table =
        Read(database,
             "SELECT name, wr FROM pragma_table_list WHERE schema = 'main' AND type = "
             "'table' AND name NOT GLOB 'sqlite_*' ORDER BY name");
    for (; !table.EndOfFile(); table.MoveNext()) {
        layouts.push_back(ReadLayout(database, table["name"].Text(), !table["wr"].Boolean()));
    }
    return layouts;
}

std::vector<std::string> KeyWithoutRowNumbers(sqlite3* database, std::string_view table) {
    const StatementHandle statement = PrepareStatement(
        database,
        "SELECT c.name FROM pragma_table_list t, pragma_table_info(t.name) c "
        "WHERE t.schema = 'main' AND t.name = ?1 COLLATE NOCASE AND t.wr AND c.pk > 0");
    sqlite3_bind_text(statement.get(), 1, table.data(), static_cast<int>(table.size()),
                      SQLITE_STATIC);
    std::vector<std::string> key;
    for (Recordset column = FetchRows(database, statement.get()); !column.EndOfFile();
         column.MoveNext())
        key.push_back(column[std::size_t{0}].Text());
    return key;
}

void KeepCommonColumns(TableLayout& layout, const TableLayout& other) {
    std::erase_if(layout.columns, [&](const std::string& column) {
        return std::none_of(other.columns.begin(), other.columns.end(),
                            [&](const std::string& candidate) {
                                return EqualsIgnoringAsciiCase(candidate, column);
                            });
    });
}

}  // namespace snippetarium
