#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/cancel_poll.h"
#include "engine/on_progress.h"
#include "engine/sqlite_handle.h"
#include "engine/table_layout.h"

namespace snippetarium {

/// Row numbers, both included.
struct RowRange {
    std::int64_t first = 0;
    std::int64_t last = 0;
};

/// What became of one table.
struct SalvagedTable {
    std::string name;
    std::int64_t savedRows = 0;
    /// Row numbers, the IDs in most tables, at which nothing could be read. There may have been
    /// fewer rows: numbers of deleted rows count here too where their places cannot be read.
    std::vector<RowRange> unreadable;
    /// Rows that were saved although they hold a text that is none: damage that cannot be told from
    /// content. At most the first hundred.
    std::vector<std::int64_t> suspect;
    /// True when nobody knows how many rows are lost: the table is missing, or it has no row
    /// numbers and could not be read to its end or holds suspect rows.
    bool hasUncountedLoss = false;

    std::int64_t UnreadableCount() const;
    bool IsComplete() const { return unreadable.empty() && suspect.empty() && !hasUncountedLoss; }
};

/// The counter from which a table's next ID comes; nothing where the table has none, or where it is
/// unreadable or no possible ID.
std::optional<std::int64_t> TryReadCounter(sqlite3* database, const std::string& table);

/// Copies the rows of one table out of a damaged database into the same table of another, as far as
/// they can be read. A row that is there already in the target stays.
class TableSalvage {
  public:
    /// The layout holds for both tables and must outlive this; the poll may be null.
    TableSalvage(sqlite3* source, sqlite3* target, const TableLayout& layout,
                 const CancelPoll* poll);

    /// Throws EngineError: what writing into the target throws, and Cancelled. Damage of the source
    /// only shows in the result.
    SalvagedTable Run(const OnProgress& onProgress);

  private:
    /// How reading a stretch, or looking one number up, ended.
    enum class Outcome { End, Row, Damage };

    void ReadByNumber();
    void ReadByKey();
    Outcome ReadForward();
    Outcome ReadBackward();
    void ReadBetween();
    Outcome LookUp(std::int64_t number);
    Outcome ReadAll(sqlite3_stmt* statement);
    Outcome Step(sqlite3_stmt* statement);
    std::int64_t HighestNumber() const;
    void Save(sqlite3_stmt* row);
    void MarkUnreadable(std::int64_t number);
    void Report();

    sqlite3* source_;
    sqlite3* target_;
    const TableLayout& layout_;
    const CancelPoll* poll_;
    const OnProgress* onProgress_ = nullptr;
    StatementHandle insert_;
    StatementHandle forward_;  // these three are null where damage makes even preparing impossible
    StatementHandle backward_;
    StatementHandle lookUp_;
    SalvagedTable result_;
    std::int64_t done_;   // all numbers up to this one have been dealt with
    std::int64_t above_;  // and all from this one on
    std::int64_t expectedRows_ = 0;
    std::int64_t steps_ = 0;
};

}  // namespace snippetarium
