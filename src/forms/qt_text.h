#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace snippetarium {

// Texts on their way between the catalogue (UTF-8, lines end in CR LF) and controls (UTF-16, lines
// end in LF). A byte that is no UTF-8 is shown as U+FFFD.

/// For one line: a name, a caption.
QString ToQt(std::string_view text);
/// For text of several lines: CR LF becomes LF. A CR that no LF follows stays.
QString LinesToQt(std::string_view text);

std::string FromQt(const QString& text);
/// The lines of a control with the catalogue's line ends.
std::string LinesFromQt(const QString& text);

}  // namespace snippetarium
