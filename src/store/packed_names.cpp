#include "store/packed_names.h"

#include <set>
#include <string>
#include <vector>

#include "store/database.h"
#include "store/owner.h"
#include "store/sql_text.h"

namespace snippetarium {

namespace {

/// Where the names of one level of the catalogue are.
struct NamedTable {
    OwnerKind kind;
    std::string_view table;
    std::string_view idColumn;
    std::string_view nameColumn;
};

// clang-format off
constexpr NamedTable kNamedTables[] = {
    {OwnerKind::Application, "tblApplication", "appID",   "appName"},
    {OwnerKind::Class,       "tblClass",       "classID", "className"},
    {OwnerKind::Procedure,   "tblCode",        "codeID",  "codeName"},
};
// clang-format on

std::int32_t NewestBlock(Connection& connection, const NamedTable& table) {
    const auto row =
        connection.OpenCursor(Sql("SELECT max(", table.idColumn, ") FROM ", table.table));
    return row->Next() ? static_cast<std::int32_t>(row->Number(0) / kIDsInNameBlock) : 0;
}

bool HasRows(Connection& connection, const NamedTable& table, std::int32_t block) {
    const auto first = std::int64_t{block} * kIDsInNameBlock;
    return connection
        .OpenCursor(Sql("SELECT 1 FROM ", table.table, " WHERE ", table.idColumn,
                        " BETWEEN ?1 AND ?2 LIMIT 1"),
                    first, first + kIDsInNameBlock - 1)
        ->Next();
}

/// The blocks that are not there although they are full and have rows.
std::vector<std::int32_t> MissingBlocks(Connection& connection, const NamedTable& table) {
    std::set<std::int32_t> present;
    {
        // With a "+", so that the engine compares what it reads of a row anyway: to find a level's
        // rows by their key, it would read all names.
        const auto row =
            connection.OpenCursor("SELECT block FROM tblNameBlock WHERE +ownerTableID = ?1",
                                  static_cast<std::int64_t>(table.kind));
        while (row->Next())
            present.insert(static_cast<std::int32_t>(row->Number(0)));
    }
    std::vector<std::int32_t> missing;
    const std::int32_t newest = NewestBlock(connection, table);
    for (std::int32_t block = 0; block < newest; ++block) {
        if (!present.contains(block) && HasRows(connection, table, block)) missing.push_back(block);
    }
    return missing;
}

std::string MakingOf(const NamedTable& table, std::int32_t block) {
    const std::int32_t first = block * kIDsInNameBlock;
    return Sql("INSERT INTO tblNameBlock(ownerTableID, block, entries, names) SELECT ", table.kind,
               ", ", block, ", group_concat(substr('000' || (", table.idColumn,
               " % 1024), -4) || substr('000' || length(CAST(", table.nameColumn,
               " AS BLOB)), -4), ''), group_concat(", table.nameColumn, ", '\n') FROM ",
               table.table, " WHERE ", table.idColumn, " BETWEEN ", first, " AND ",
               first + kIDsInNameBlock - 1, ";\n");
}

}  // namespace

bool PackNames(Database& db, std::size_t mostBlocks) {
    Connection& connection = db.GetConnection();
    std::string script;
    std::size_t missing = 0;
    for (const NamedTable& table : kNamedTables) {
        for (const std::int32_t block : MissingBlocks(connection, table)) {
            if (++missing <= mostBlocks) script += MakingOf(table, block);
        }
    }
    if (!script.empty()) connection.RunScript(script);
    return missing > mostBlocks;
}

}  // namespace snippetarium
