#pragma once

#include <string>

#include "engine/on_progress.h"

struct sqlite3;

namespace snippetarium {

/// Copies a database, page by page, into a new file of one piece, whole or not at all (see
/// engine/whole_database.h). The copy is the database at the moment when copying began, whatever is
/// written meanwhile, and also takes what the source has only in its log so far. What `onProgress`
/// throws ends the copying. Throws EngineError: CannotOpen when something exists at the target,
/// DiskFull, Corrupted when the copy turns out damaged ...
///
/// The source may be open in this program, this thread included.
void CopyDatabase(const std::string& sourcePath, const std::string& targetPath,
                  const OnProgress& onProgress);

/// Copies what an open handle sees. It has no transaction under way.
void CopyDatabase(sqlite3* source, const std::string& targetPath, const OnProgress& onProgress);

}  // namespace snippetarium
