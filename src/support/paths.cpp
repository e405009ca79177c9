#include "support/paths.h"

#include <algorithm>
#include <filesystem>

namespace snippetarium {

namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr char kCatalogueSeparator = '\\';
constexpr char kPlatformSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

bool IsSeparator(char character) {
    return character == '\\' || character == '/';
}

bool IsDriveLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

std::string WithSeparator(std::string_view path, char separator) {
    std::string result(path);
    std::replace_if(result.begin(), result.end(), IsSeparator, separator);
    return result;
}

/// The length of "\\server\share" at the start of the path, 0 when it does not start so.
std::size_t ShareLength(std::string_view path) {
    if (!path.starts_with("\\\\")) return 0;
    const std::size_t serverEnd = path.find_first_of(kSeparators, 2);
    if (serverEnd == std::string_view::npos || serverEnd == 2) return 0;
    const std::size_t shareEnd =
        std::min(path.find_first_of(kSeparators, serverEnd + 1), path.size());
    return shareEnd == serverEnd + 1 ? 0 : shareEnd;
}

/// "C:" counts only in front of a separator or alone: elsewhere a file may be named "C:notes.txt".
std::size_t DriveLength(std::string_view path) {
    if (const std::size_t share = ShareLength(path); share > 0) return share;
    if (path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == ':' &&
        (path.size() == 2 || IsSeparator(path[2]))) {
        return 2;
    }
    return !path.empty() && IsSeparator(path[0]) ? 1 : 0;
}

/// The length of what no parent lies above: the drive and the separator behind it.
std::size_t RootLength(std::string_view path) {
    const std::size_t drive = DriveLength(path);
    const bool separatorFollows = drive > 1 && drive < path.size();
    return separatorFollows ? drive + 1 : drive;
}

/// The path without the separators at its end, as far as they are not the root's.
std::string_view TrimEnd(std::string_view path) {
    const std::size_t root = RootLength(path);
    while (path.size() > root && IsSeparator(path.back()))
        path.remove_suffix(1);
    return path;
}

}  // namespace

std::string ToPlatformPath(std::string_view path) {
    return WithSeparator(path, kPlatformSeparator);
}

std::string ToCataloguePath(std::string_view path) {
    return WithSeparator(path, kCatalogueSeparator);
}

std::string JoinPath(std::string_view folder, std::string_view entry) {
    std::string path(folder);
    if (!path.empty() && !IsSeparator(path.back())) path += kCatalogueSeparator;
    path += entry;
    return path;
}

std::string_view DriveName(std::string_view path) {
    return path.substr(0, DriveLength(path));
}

std::string_view ParentFolder(std::string_view path) {
    const std::string_view name = FileName(path);
    if (name.empty()) return {};
    const std::string_view trimmed = TrimEnd(path);
    return TrimEnd(trimmed.substr(0, trimmed.size() - name.size()));
}

std::string_view FileName(std::string_view path) {
    const std::string_view trimmed = TrimEnd(path);
    const std::size_t separator = trimmed.find_last_of(kSeparators);
    const std::size_t behindSeparator = separator == std::string_view::npos ? 0 : separator + 1;
    return trimmed.substr(std::max(behindSeparator, RootLength(trimmed)));
}

std::string_view BaseName(std::string_view path) {
    const std::string_view name = FileName(path);
    return name.substr(0, name.rfind('.'));
}

std::string_view FileExtension(std::string_view path) {
    const std::string_view name = FileName(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
}

}  // namespace snippetarium
