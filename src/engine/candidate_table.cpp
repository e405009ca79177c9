#include "engine/candidate_table.h"

#include <sqlite3.h>

#include <new>

#include "engine/sqlite_handle.h"

namespace snippetarium {

namespace {

// The library's interface for tables of ours is one of C: objects begin with its structures, and
// pointers to these are turned back. Texts that it is to free are none of ours.

constexpr int kIDColumn = 0;
constexpr int kListColumn = 1;

struct Table : sqlite3_vtab {
    const CandidateTable* lists = nullptr;
};

struct Cursor : sqlite3_vtab_cursor {
    const CandidateTable::IDs* ids = nullptr;
    std::size_t place = 0;
};

int Connect(sqlite3* database, void* lists, int, const char* const*, sqlite3_vtab** table, char**) {
    const int result =
        sqlite3_declare_vtab(database, "CREATE TABLE x(id INTEGER, list INTEGER HIDDEN)");
    if (result != SQLITE_OK) return result;
    auto* made = new (std::nothrow) Table{};
    if (made == nullptr) return SQLITE_NOMEM;
    made->lists = static_cast<const CandidateTable*>(lists);
    *table = made;
    return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
    delete static_cast<Table*>(table);
    return SQLITE_OK;
}

/// Without the number of a list there is nothing to read.
int FindBestPlan(sqlite3_vtab*, sqlite3_index_info* plan) {
    for (int i = 0; i < plan->nConstraint; ++i) {
        const auto& constraint = plan->aConstraint[i];
        if (constraint.iColumn != kListColumn || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ)
            continue;
        if (constraint.usable == 0) return SQLITE_CONSTRAINT;
        plan->aConstraintUsage[i].argvIndex = 1;
        plan->aConstraintUsage[i].omit = 1;
        plan->estimatedCost = 10.0;
        plan->estimatedRows = 10;
        // Ascending, as they are kept.
        if (plan->nOrderBy == 1 && plan->aOrderBy[0].iColumn == kIDColumn)
            plan->orderByConsumed = plan->aOrderBy[0].desc == 0 ? 1 : 0;
        return SQLITE_OK;
    }
    return SQLITE_CONSTRAINT;
}

int OpenCursor(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
    *cursor = new (std::nothrow) Cursor{};
    return *cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
    delete static_cast<Cursor*>(cursor);
    return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int, sqlite3_value** values) {
    auto& cursor = *static_cast<Cursor*>(base);
    const auto& table = *static_cast<const Table*>(base->pVtab);
    cursor.ids = table.lists->Find(sqlite3_value_int64(values[0]));
    cursor.place = 0;
    return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
    ++static_cast<Cursor*>(cursor)->place;
    return SQLITE_OK;
}

int IsAtEnd(sqlite3_vtab_cursor* base) {
    const auto& cursor = *static_cast<const Cursor*>(base);
    return cursor.ids == nullptr || cursor.place >= cursor.ids->size() ? 1 : 0;
}

int Column(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
    const auto& cursor = *static_cast<const Cursor*>(base);
    if (column == kIDColumn) sqlite3_result_int64(context, (*cursor.ids)[cursor.place]);
    return SQLITE_OK;
}

int RowID(sqlite3_vtab_cursor* base, sqlite3_int64* rowID) {
    const auto& cursor = *static_cast<const Cursor*>(base);
    *rowID = (*cursor.ids)[cursor.place];
    return SQLITE_OK;
}

constexpr sqlite3_module kModule = [] {
    sqlite3_module module{};
    module.xConnect = Connect;  // and no xCreate: it is there without being created
    module.xBestIndex = FindBestPlan;
    module.xDisconnect = Disconnect;
    module.xOpen = OpenCursor;
    module.xClose = CloseCursor;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = IsAtEnd;
    module.xColumn = Column;
    module.xRowid = RowID;
    return module;
}();

}  // namespace

void CandidateTable::Install(sqlite3* database) {
    const int result =
        sqlite3_create_module_v2(database, "tblTextCandidates", &kModule, this, nullptr);
    if (result != SQLITE_OK) ThrowEngineError(database, result);
    // The library sets the table up at its first use, by a statement that a search may not make.
    PrepareStatement(database, "SELECT id FROM tblTextCandidates(0)");
}

}  // namespace snippetarium
