#include "support/folder_lister.h"

#include <algorithm>
#include <system_error>

#include "support/case_fold.h"
#include "support/utf8.h"

namespace snippetarium {

namespace {

namespace fs = std::filesystem;

/// True when one of the folders on the path, the last included, is the one that the link leads to.
/// Only the path as it was walked tells: in a circle of two links neither target lies in the other.
bool LeadsBack(const fs::path& link, const fs::path& folder) {
    fs::path above = fs::absolute(folder);
    while (true) {
        std::error_code cannotTell;
        if (fs::equivalent(link, above, cannotTell)) return true;
        if (above == above.parent_path()) return false;
        above = above.parent_path();
    }
}

std::string ShownName(std::string_view name) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string shown;
    for (std::size_t i = 0; i < name.size();) {
        const std::size_t start = i;
        const auto byte = static_cast<unsigned char>(name[start]);
        DecodeUtf8(name, i);
        const bool isMalformed = byte >= 0x80 && i == start + 1;
        if (isMalformed) {
            shown += {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
        } else {
            shown += name.substr(start, i - start);
        }
    }
    return shown;
}

void List(const fs::directory_entry& entry, const fs::path& folder, FolderListing& listing) {
    const std::string name = entry.path().filename().native();
    const auto leaveOut = [&](UnlistedReason reason) {
        listing.unlisted.push_back({ShownName(name), reason});
    };
    if (!IsValidUtf8(name)) return leaveOut(UnlistedReason::NotUtf8);
    if (name.find('\\') != std::string::npos) return leaveOut(UnlistedReason::Backslash);

    // The system mostly gives the kind along with the name. The entry knows it then, and only links
    // are looked at a second time, which for a hundred thousand files would take a second.
    std::error_code unreachable;
    const bool isLink = entry.is_symlink(unreachable);
    if (isLink && !entry.exists(unreachable)) return leaveOut(UnlistedReason::DeadLink);
    if (entry.is_directory(unreachable)) {
        if (isLink && LeadsBack(entry.path(), folder)) return leaveOut(UnlistedReason::LeadsBack);
        listing.subfolders.push_back(name);
    } else if (entry.is_regular_file(unreachable)) {
        listing.files.push_back(name);
    }
}

/// As people look names up: whatever their case. Many systems give names in the order of some hash.
bool IsBefore(const std::string& a, const std::string& b) {
    const int order = CompareFolded(a, b);
    return order != 0 ? order < 0 : a < b;
}

}  // namespace

FolderListing ListEntries(const fs::path& folder) {
    FolderListing listing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        List(entry, folder, listing);
    }
    std::ranges::sort(listing.files, IsBefore);
    std::ranges::sort(listing.subfolders, IsBefore);
    return listing;
}

}  // namespace snippetarium
