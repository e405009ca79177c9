#include "support/real_path.h"

#include <cerrno>
#include <deque>
#include <system_error>

#include "support/file_descriptor.h"

namespace snippetarium {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;

/// What a link says, or an empty path where there is no link.
fs::path LinkText(const fs::path& path) {
    std::error_code noLink;
    fs::path text = fs::read_symlink(path, noLink);
    return noLink ? fs::path() : text;
}

}  // namespace

fs::path ResolvePath(const fs::path& path) {
    const fs::path absolute = fs::absolute(path);
    std::deque<fs::path> parts(absolute.begin(), absolute.end());
    fs::path resolved;
    for (int links = 0; !parts.empty();) {
        const fs::path part = parts.front();
        parts.pop_front();
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            resolved = resolved.parent_path();
            continue;
        }
        const fs::path link = LinkText(resolved / part);
        if (link.empty()) {
            resolved /= part;
            continue;
        }
        if (++links > kMostLinks) ThrowSystemError(ELOOP);
        parts.insert(parts.begin(), link.begin(), link.end());  // "/" as a part starts anew
    }
    return resolved;
}

}  // namespace snippetarium
