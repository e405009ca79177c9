#pragma once

#include <string>

#include "engine/salvage.h"
#include "support/host.h"

namespace snippetarium {

/// Puts a backup, or any other catalogue file, in the place of the folder's catalogue, which must
/// be closed in this program. The backup counts only after it has been copied and read back whole.
/// The catalogue that was there is kept: as a backup if it is sound, else aside under another name
/// (see store/catalogue_exchange.h). Returns where it is now, empty when there was none.
///
/// Throws Error, and nothing has changed: EngineError OpenElsewhere when another program has the
/// catalogue open, UnrecognisedFormat for a file that is no catalogue or of a newer program,
/// Corrupted for a damaged backup, and what reading and writing throw.
std::string RestoreCatalogue(const Host& host, const std::string& programFolder,
                             const std::string& backupPath);

struct SalvageResult {
    SalvageReport report;
    /// Where the damaged file is now.
    std::string keptPath;
};

/// Recovers what can be read of the folder's catalogue, which must be closed in this program, into
/// a new file that takes its place; the damaged one is kept beside it. The user can cancel it.
/// Throws Error, and nothing has changed, as RestoreCatalogue does; also for a file of a newer
/// program. What it recovers of an older file is of this program's version.
SalvageResult SalvageCatalogue(const Host& host, const std::string& programFolder);

}  // namespace snippetarium
