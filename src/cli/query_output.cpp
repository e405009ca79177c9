#include "cli/query_output.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/text_table.h"

namespace snippetarium {

namespace {

TextTable::Cell CellOf(const Value& value) {
    const bool isText = value.GetKind() == Value::Kind::Text;
    return {value.Text(), isText ? TextTable::Align::Left : TextTable::Align::Right};
}

Json DocumentOf(const Value& value) {
    switch (value.GetKind()) {
        case Value::Kind::Null:
            return nullptr;
        case Value::Kind::Integer:
            return value.Integer64();
        default:
            return value.Text();
    }
}

}  // namespace

void PrintRows(std::ostream& output, Recordset rows) {
    std::vector<std::string> headings;
    for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
        headings.push_back(rows.ColumnName(i));
    TextTable table(headings);
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        std::vector<TextTable::Cell> cells;
        for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
            cells.push_back(CellOf(rows[i]));
        table.AddRow(std::move(cells));
    }
    table.Print(output);
    output << "(" << rows.RowCount() << (rows.RowCount() == 1 ? " row)\n" : " rows)\n");
}

Json RowsDocument(Recordset rows) {
    Json document = Json::array();
    for (; !rows.EndOfFile(); rows.MoveNext()) {
        Json fields = Json::object();
        for (std::size_t i = 0; i < rows.ColumnCount(); ++i)
            fields[rows.ColumnName(i)] = DocumentOf(rows[i]);
        document.push_back(std::move(fields));
    }
    return document;
}

}  // namespace snippetarium
