#include "export/export_path.h"

#include <algorithm>
#include <cstddef>

#include "store/database.h"
#include "support/error.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr char kSeparator = '\\';
/// The longest name that disks take, in bytes.
constexpr std::size_t kLongestName = 255;

constexpr std::string_view kLeadsOut = "leads out of the destination folder";
constexpr std::string_view kIsNoFile = "is not the path of a file";
constexpr std::string_view kCannotBeNamed = "has a name that no file can have";

/// "C:\x" and also "C:x", which means a place on that drive too.
bool StartsAtRootOrDrive(std::string_view path) {
    return path.starts_with(kSeparator) || (path.size() >= 2 && path[1] == ':');
}

/// What is wrong with the path by its text alone; empty for nothing.
std::string_view RefusalOf(std::string_view path) {
    if (StartsAtRootOrDrive(path)) return kLeadsOut;
    if (path.find('\0') != path.npos) return kCannotBeNamed;
    std::string_view part;
    for (std::string_view rest = path; !rest.empty();) {
        const std::size_t end = std::min(rest.find(kSeparator), rest.size());
        part = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (part == "..") return kLeadsOut;
        if (part.size() > kLongestName) return kCannotBeNamed;
    }
    const bool namesFile = !part.empty() && part != "." && !path.ends_with(kSeparator);
    return namesFile ? std::string_view() : kIsNoFile;
}

/// Both as RealPath gives them.
bool IsInside(std::string_view path, const std::string& folder) {
    const std::string separator = ToPlatformPath(std::string_view(&kSeparator, 1));
    return path.starts_with(folder.ends_with(separator) ? folder : folder + separator);
}

}  // namespace

ClassDestination TargetBelow(const FileSystem& files, std::string_view destination,
                             std::string_view storedPath) {
    const std::string entry = ToCataloguePath(storedPath);
    if (const std::string_view refusal = RefusalOf(entry); !refusal.empty()) {
        return {{}, std::string(refusal)};
    }
    std::string path = JoinPath(destination, entry);
    if (!IsInside(files.RealPath(path), files.RealPath(destination))) {
        return {{}, std::string(kLeadsOut) + " by a link"};
    }
    return {std::move(path), {}};
}

void RefuseCatalogueFile(const FileSystem& files, std::string_view programFolder,
                         std::string_view path) {
    const std::string place = files.RealPath(path);
    for (const std::string_view name :
         {kCatalogueFileName, kCompactionFileName, kWriterLockFileName}) {
        // The database library keeps files of its own beside the catalogue, with longer names.
        if (!place.starts_with(files.RealPath(JoinPath(programFolder, name)))) continue;
        throw Error(error_number::kPermissionDenied,
                    "The file '" + ToPlatformPath(path) +
                        "' belongs to the catalogue. Choose another folder or another name.");
    }
}

bool IsSamePlace(const FileSystem& files, std::string_view a, std::string_view b) {
    if (a.empty() || b.empty()) return false;
    return files.RealPath(a) == files.RealPath(b);
}

}  // namespace snippetarium
