#pragma once

#include <cstddef>
#include <limits>

#include "engine/recordset.h"

struct sqlite3;
struct sqlite3_stmt;

namespace snippetarium {

/// Resets a statement when its run is over, so that its locks and bound texts are not kept.
class StatementRun {
  public:
    explicit StatementRun(sqlite3_stmt* statement) : statement_(statement) {}
    ~StatementRun();
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

  private:
    sqlite3_stmt* statement_;
};

/// Runs a statement whose values are bound and returns all its rows. Throws EngineError; where the
/// rows take more than `mostBytes` of memory, QueryTooComplex.
Recordset FetchRows(sqlite3* database, sqlite3_stmt* statement,
                    std::size_t mostBytes = std::numeric_limits<std::size_t>::max());

}  // namespace snippetarium
