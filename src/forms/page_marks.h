#pragma once

#include <QStringList>
#include <QTextCharFormat>
#include <cstddef>
#include <vector>

#include "import/text_range.h"

class QPlainTextEdit;

namespace snippetarium {

/// How what was found looks on the background at hand, light or dark.
QTextCharFormat MarkFormat();

/// Marks where the words stand in a text, in any letter case, and brings the first place into view.
/// No words take the marks away.
void MarkWords(QPlainTextEdit& text, const QStringList& words);

/// Marks ranges of a text, in order and counted in the control's UTF-16 units; of very many those
/// around one place. No ranges take the marks away.
void MarkRanges(QPlainTextEdit& text, const std::vector<TextRange>& ranges, std::size_t around);

/// Gives the marks of a text the look that they have on the background at hand.
void RecolourMarks(QPlainTextEdit& text);

}  // namespace snippetarium
