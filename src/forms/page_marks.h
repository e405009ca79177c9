#pragma once

#include <QStringList>

class QPlainTextEdit;

namespace snippetarium {

/// Marks where the words stand in a text, in any letter case, and brings the first place into view.
/// No words take the marks away.
void MarkWords(QPlainTextEdit& text, const QStringList& words);

}  // namespace snippetarium
