#include "import/markers_in_file.h"

#include <algorithm>

namespace snippetarium {

MarkersInFile::MarkersInFile(const CutFile& file, MarkerFamily family) {
    // No name holds a line break.
    const std::string pattern = MarkerText(family, "\n");
    const std::size_t nameAt = pattern.find('\n');
    const std::string beginning = pattern.substr(0, nameAt);
    ending_ = pattern.substr(nameAt + 1);

    const auto add = [&](std::string_view text) {
        for (std::size_t at = text.find(beginning); at != text.npos;
             at = text.find(beginning, at)) {
            at += beginning.size();
            tails_.push_back(text.substr(at, text.find('\n', at) - at));
        }
    };
    add(file.text);
    for (const CutProcedure& procedure : file.procedures) {
        add(procedure.comment);
        add(procedure.code);
    }
    std::ranges::sort(tails_);
}

bool MarkersInFile::HasMarkerOf(std::string_view name) const {
    const std::string rest = std::string(name) + ending_;
    const auto found = std::ranges::lower_bound(tails_, std::string_view(rest));
    return found != tails_.end() && found->starts_with(rest);
}

}  // namespace snippetarium
