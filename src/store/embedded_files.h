#pragma once

#include <span>
#include <string_view>

namespace snippetarium {

/// A file of the source folder that is a part of the program.
struct EmbeddedFile {
    /// Below the folder data, with slashes: "queries/classes.sql".
    std::string_view path;
    std::string_view text;
};

/// The files that the library's CMakeLists.txt names, in its order. cmake/EmbedFiles.cmake writes
/// the source of this function.
std::span<const EmbeddedFile> EmbeddedFiles();

}  // namespace snippetarium
