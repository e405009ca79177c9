#pragma once

#include <filesystem>

#include "support/file_system.h"

namespace snippetarium {

/// The listing of a folder on the disk. Throws std::filesystem::filesystem_error when the folder
/// cannot be read; a name in it, whatever its bytes, is no failure.
FolderListing ListEntries(const std::filesystem::path& folder);

}  // namespace snippetarium
