#include "import/markers_in_file.h"

#include <algorithm>
#include <string>

namespace snippetarium {

MarkersInFile::MarkersInFile(const CutFile& file, MarkerFamily family) : family_(family) {
    const auto add = [this](std::string_view text) {
        // What the markers of all families have in common.
        if (text.find("**Procedure ") != std::string_view::npos) texts_.push_back(text);
    };
    add(file.text);
    for (const CutProcedure& procedure : file.procedures) {
        add(procedure.comment);
        add(procedure.code);
    }
}

bool MarkersInFile::HasMarkerOf(std::string_view name) const {
    if (texts_.empty()) return false;
    const std::string marker = MarkerText(family_, name);
    return std::ranges::any_of(
        texts_, [&](std::string_view text) { return text.find(marker) != text.npos; });
}

}  // namespace snippetarium
