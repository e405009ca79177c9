#include "forms/shown_report.h"

#include <string_view>
#include <unordered_set>

#include "support/paths.h"

namespace snippetarium {

namespace {

using Entries = std::unordered_set<std::string>;

/// The entry that a line begins with, behind its two blanks; empty for none. A name may have blanks
/// of its own.
std::string_view EntryOf(std::string_view line, const Entries& entries) {
    if (!line.starts_with("  ")) return {};
    line.remove_prefix(2);
    for (std::size_t end = line.find(' '); end != std::string_view::npos;
         end = line.find(' ', end + 1)) {
        const std::string_view entry = line.substr(0, end);
        if (entries.contains(std::string(entry))) return entry;
    }
    return {};
}

}  // namespace

JobTexts ShownTexts(JobTexts texts, const std::vector<std::string>& entries) {
    texts.importedFiles = ToPlatformPath(texts.importedFiles);
    const Entries known(entries.begin(), entries.end());
    std::string& errors = texts.errors;
    for (std::size_t begin = 0; begin < errors.size();) {
        const std::size_t end = errors.find('\n', begin);
        const std::string_view line = std::string_view(errors).substr(begin, end - begin);
        const std::string shown = ToPlatformPath(EntryOf(line, known));
        if (!shown.empty()) errors.replace(begin + 2, shown.size(), shown);
        begin = end == std::string::npos ? end : end + 1;
    }
    return texts;
}

}  // namespace snippetarium
