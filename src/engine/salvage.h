#pragma once

#include <string>
#include <vector>

#include "engine/cancel_poll.h"
#include "engine/on_progress.h"
#include "engine/table_salvage.h"

namespace snippetarium {

/// What a recovered catalogue is to look like.
struct SalvagePlan {
    /// Makes a new catalogue, in the engine's own SQL.
    std::string creationScript;
    /// Tables whose rows the script gives; those of the damaged file are not read.
    std::vector<std::string> deliveredTables;
    /// Tables that the damaged file need not have, because it is older than they are.
    std::vector<std::string> newerTables;
    /// Tables in which the script's rows must be there, whatever the damaged file holds.
    std::vector<std::string> tablesWithPermanentRows;
};

struct SalvageReport {
    std::vector<SalvagedTable> tables;

    bool IsComplete() const;
};

/// Recovers what can be read of a damaged catalogue into a new file, row by row (see
/// engine/table_salvage.h). Rows keep their IDs, and the counters go on where they stood, so that
/// no ID comes back. Of a table with unreadable places, the rows that the script delivers are put
/// back too where they are missing. The new file is there whole or not at all. The damaged file,
/// which this program must not have open, stays as it is; changes in its log are recovered too.
///
/// Throws EngineError: UnrecognisedFormat or Corrupted when not even the list of the file's tables
/// can be read, CannotOpen when something exists at the target, DiskFull, Cancelled ... The poll
/// may be null.
SalvageReport SalvageDatabase(const std::string& damagedPath, const std::string& targetPath,
                              const SalvagePlan& plan, const OnProgress& onProgress,
                              const CancelPoll* poll);

}  // namespace snippetarium
