#pragma once

#include <string>

namespace snippetarium {

// A program folder's catalogue may be a link to a file elsewhere. What stands beside the catalogue
// and belongs to it (the engine's log, the writer's lock, the file that is to take its place)
// stands beside the file itself then: whoever comes by another link must find it too.

/// The file itself, there or not. Throws std::system_error for links that lead in a circle.
std::string CatalogueFile(const std::string& programFolder);

/// Held by the program that may write: "QRT_SN.lock" beside "QRT_SN.mde".
std::string WriterLockPath(const std::string& programFolder);

}  // namespace snippetarium
