#pragma once

#include <string_view>

namespace snippetarium {

/// A file of the folder data that is a part of the program. cmake/EmbedFiles.cmake writes the
/// sources that hold them.
struct EmbeddedFile {
    /// Below its folder, with slashes: "queries/classes.sql".
    std::string_view path;
    /// The bytes of the file.
    std::string_view text;
};

}  // namespace snippetarium
