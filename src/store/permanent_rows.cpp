#include "store/permanent_rows.h"

#include <array>
#include <set>
#include <string>
#include <utility>

namespace snippetarium {

namespace {

constexpr std::array kTables = {
    PermanentTable{"tblApplication", "appID"},
    PermanentTable{"tblClass", "classID"},
    PermanentTable{"tblSeparator", "separatorID"},
    PermanentTable{"tblWindowSize", "w_hID"},
};

std::set<std::int64_t> ReadKeys(const Inspection& inspection, const PermanentTable& table) {
    std::set<std::int64_t> keys;
    Recordset row =
        inspection.Read("SELECT " + std::string(table.key) + " FROM " + std::string(table.name));
    for (; !row.EndOfFile(); row.MoveNext())
        keys.insert(row[std::size_t{0}].Integer64());
    return keys;
}

/// The statement that puts one delivered row back.
std::string InsertText(const Inspection& delivered, const PermanentTable& table,
                       const std::string& where) {
    const std::string name(table.name);
    std::string columns;
    std::string quoted;
    Recordset column = delivered.Read("SELECT name FROM pragma_table_info('" + name + "')");
    for (; !column.EndOfFile(); column.MoveNext()) {
        const std::string text = column["name"].Text();
        columns += (columns.empty() ? "" : ", ") + text;
        quoted += (quoted.empty() ? "quote(" : " || ', ' || quote(") + text + ")";
    }
    const Recordset row = delivered.Read("SELECT " + quoted + " FROM " + name + where);
    return "INSERT INTO " + name + "(" + columns + ") VALUES (" + row[std::size_t{0}].Text() + ")";
}

}  // namespace

std::span<const PermanentTable> TablesWithPermanentRows() {
    return kTables;
}

std::vector<CheckFinding> FindMissingPermanentRows(const Inspection& catalogue,
                                                   const Inspection& delivered) {
    std::vector<CheckFinding> findings;
    for (const PermanentTable& table : kTables) {
        CheckFinding finding;
        finding.kind = FindingKind::MissingPermanentRow;
        finding.what = "permanent rows of " + std::string(table.name) + " that are missing";
        finding.advice = "New rows go astray without them. Mending puts them back.";
        const std::set<std::int64_t> found = ReadKeys(catalogue, table);
        for (const std::int64_t key : ReadKeys(delivered, table)) {
            if (found.contains(key)) continue;
            const std::string title = std::string(table.key) + " " + std::to_string(key);
            ++finding.count;
            finding.examples.push_back(title);
            finding.mendingScript +=
                InsertText(delivered, table,
                           " WHERE " + std::string(table.key) + " = " + std::to_string(key)) +
                ";\n";
        }
        if (finding.count > 0) findings.push_back(std::move(finding));
    }
    return findings;
}

}  // namespace snippetarium
