#pragma once

#include <QString>
#include <string>
#include <string_view>

class QPlainTextEdit;

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

/// A path of the catalogue as it is shown (navigator/shown_path.h).
QString PathToQt(std::string_view path);
/// Takes over a path that a control shows. One that the user left alone stays to the byte, in
/// whichever form it is stored; another one gets the catalogue's.
void TakePath(const QString& shown, std::string& path);

/// What a control holds, a character for each place that its cursor counts: toPlainText() makes
/// other characters of some. Lines end in LF.
std::string TextOf(const QPlainTextEdit& control);

}  // namespace snippetarium
