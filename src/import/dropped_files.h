#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "import/folder_walk.h"

namespace snippetarium {

// Files and folders that a user drags onto the list of files to import. Their paths are absolute.

/// The deepest folder that holds everything that was dropped, a dropped folder counting as one that
/// holds itself. `preferred`, where that holds it all; empty for nothing that is there.
///
///     /src/Paint/a.bas, /src/Paint/sub  ->  /src/Paint
std::string FolderOfDropped(const FileSystem& files, std::span<const std::string> paths,
                            std::string_view preferred);

/// The entries below the root of what was dropped: each file, whatever its kind, and in folders
/// every file that has a kind. What is not there becomes a problem. Walks behind the progress
/// window; false where that was cancelled.
bool ListDropped(FolderWalk& walk, std::span<const std::string> paths, std::string_view root,
                 WalkedFiles& target);

}  // namespace snippetarium
