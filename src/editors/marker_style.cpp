#include "editors/marker_style.h"

#include <cstddef>

namespace snippetarium {

namespace {

constexpr std::string_view kLineBreak = "\r\n";

bool StandsOnALine(MarkerFamily family) {
    return family != MarkerFamily::C;
}

}  // namespace

std::string WithMarkersOf(MarkerFamily family, std::string_view classText,
                          const MarkedProcedures& procedures) {
    std::string text;
    std::size_t copied = 0;
    for (const MarkerPlace& place : FindMarkers(classText, procedures)) {
        const std::size_t start = place.position - 1;
        const std::size_t end = start + place.length;
        text.append(classText, copied, start - copied);
        text += MarkerText(family, procedures.codeNames[place.procedure]);
        copied = end;
        const std::string_view rest = classText.substr(end);
        const bool hadBreak = classText.substr(start, place.length).ends_with(kLineBreak);
        const bool needsBreak =
            StandsOnALine(family) && !rest.empty() && !rest.starts_with(kLineBreak);
        if (hadBreak || needsBreak) text += kLineBreak;
    }
    return text.append(classText, copied);
}

}  // namespace snippetarium
