#pragma once

#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace snippetarium {

/// How a table is read and written row by row.
struct TableLayout {
    std::string name;
    /// Rows have numbers of their own, in whose order the file keeps them. A table without them is
    /// kept in the order of its key.
    bool hasRowNumbers = true;
    /// The key of a table without row numbers.
    std::vector<std::string> keyColumns;
    /// The columns that hold values of their own. Left out are computed ones, and the ID column
    /// that is but another name of the row number.
    std::vector<std::string> columns;

    /// "rowid, className, appID" or, without row numbers, "name, value".
    std::string ColumnList() const;
};

/// The layouts of all tables but the library's own. Throws EngineError.
std::vector<TableLayout> ReadTableLayouts(sqlite3* database);

/// The key of a table without row numbers, in the table's order; empty for all others, and where
/// there is no such table. Throws EngineError.
std::vector<std::string> KeyWithoutRowNumbers(sqlite3* database, std::string_view table);

/// Takes out the columns that the other layout lacks.
void KeepCommonColumns(TableLayout& layout, const TableLayout& other);

}  // namespace snippetarium
