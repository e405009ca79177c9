#pragma once

#include <span>

#include "engine/fetch_rows.h"
#include "engine/row_cursor.h"

struct sqlite3;
struct sqlite3_stmt;

namespace snippetarium {

/// Gives a statement's parameters their values. Throws EngineError.
void BindValues(sqlite3* database, sqlite3_stmt* statement, std::span<const BoundValue> values);

/// A cursor on a prepared statement, which it resets when it is done.
class SqliteCursor final : public RowCursor {
  public:
    /// Binds the values to ?1, ?2 and so on.
    SqliteCursor(sqlite3* database, sqlite3_stmt* statement, std::span<const BoundValue> values);

    bool Next() override;
    std::int64_t Number(std::size_t column) const override;
    std::string_view Text(std::size_t column) const override;

  private:
    sqlite3* database_;
    sqlite3_stmt* statement_;
    StatementRun run_;
};

}  // namespace snippetarium
