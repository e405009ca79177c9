#pragma once

#include <string>
#include <string_view>

#include "support/file_system.h"

namespace snippetarium {

/// Where a class's file goes, or why it goes nowhere.
struct ClassDestination {
    std::string path;
    /// Empty where it may be written, else what is wrong with the stored path: the rest of a
    /// sentence that begins with it.
    std::string refusal;
};

/// The place below the destination folder that a class's stored path means.
///
/// Stored paths come from whoever wrote the catalogue, and an export replaces files, so nothing
/// outside the destination is ever written: a path that begins at a root, a drive or a share, one
/// with "..", and one that a link would lead out are refused. So is a path that is no file's.
ClassDestination TargetBelow(const FileSystem& files, std::string_view destination,
                             std::string_view storedPath);

/// Throws Error where the path is one of the catalogue's own files in the program folder, which an
/// export must not replace.
void RefuseCatalogueFile(const FileSystem& files, std::string_view programFolder,
                         std::string_view path);

/// True when both paths lead to the same file or folder, there or not. Empty ones lead nowhere.
bool IsSamePlace(const FileSystem& files, std::string_view a, std::string_view b);

}  // namespace snippetarium
