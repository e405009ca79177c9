#pragma once

#include <string>
#include <vector>

#include "engine/cancel_poll.h"

namespace snippetarium {

class Inspection;

/// Everything that is wrong with the build of a database file, in the library's words, at most a
/// hundred; empty for a sound file. It reads the whole file, each index against its table, which
/// takes seconds for each gigabyte. Throws EngineError: Cancelled, DiskError ... Damage is no
/// failure here but an answer.
std::vector<std::string> FindIntegrityProblems(const Inspection& inspection);

/// The same for a file, also one that cannot even be opened as a database.
std::vector<std::string> FindIntegrityProblems(const std::string& path, const CancelPoll* poll);

}  // namespace snippetarium
