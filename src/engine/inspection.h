#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/cancel_poll.h"
#include "engine/read_snapshot.h"
#include "engine/recordset.h"
#include "engine/sqlite_handle.h"

namespace snippetarium {

/// A look into a database from beside, by a connection of its own that only reads. The database may
/// be open in this program meanwhile. Everything is seen as it was at one moment.
///
/// Statements are the program's own texts in the engine's own SQL, as they stand; system tables and
/// pragmas are open to them. Every operation throws EngineError.
class Inspection {
  public:
    /// The poll may be null; else it must outlive this. It ends a statement with Cancelled.
    explicit Inspection(const std::string& path, const CancelPoll* poll = nullptr);

    /// A new database in memory, filled by a script in the engine's own SQL.
    static Inspection OfScript(const std::string& script);

    Recordset Read(std::string_view sql) const;
    /// The first field of the first row; 0 without a row.
    std::int64_t ReadNumber(std::string_view sql) const;

  private:
    Inspection(DatabaseHandle database, const CancelPoll* poll);

    DatabaseHandle database_;
    std::unique_ptr<ReadSnapshot> snapshot_;  // behind the handle that it uses
};

}  // namespace snippetarium
