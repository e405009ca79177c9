#pragma once

#include <filesystem>

namespace snippetarium {

/// Where the path leads: absolute, every link followed, also one that leads to what is not there,
/// and without "." and "..". Of a path whose last parts do not exist yet, these stay as they are.
/// The system's own function for this stops at a link that leads nowhere, but a file written
/// through such a link is made where it leads.
///
/// Throws std::system_error for links that lead in a circle.
std::filesystem::path ResolvePath(const std::filesystem::path& path);

}  // namespace snippetarium
