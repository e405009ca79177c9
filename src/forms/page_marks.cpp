#include "forms/page_marks.h"

#include <QPlainTextEdit>
#include <QTextBlock>

#include "forms/theme.h"

namespace snippetarium {

namespace {

/// More marks than anybody looks at would only slow the control down.
constexpr qsizetype kMostMarks = 1'000;

QTextCharFormat MarkFormat() {
    QTextCharFormat format;
    format.setBackground(IsDark() ? QColor(0x6b, 0x55, 0x10) : QColor(0xff, 0xe0, 0x7a));
    return format;
}

}  // namespace

void MarkWords(QPlainTextEdit& text, const QStringList& words) {
    QList<QTextEdit::ExtraSelection> marks;
    const QTextCharFormat format = MarkFormat();
    QTextCursor first;
    for (const QString& word : words) {
        QTextCursor found = text.document()->find(word);
        while (!found.isNull() && marks.size() < kMostMarks) {
            marks.push_back({found, format});
            if (first.isNull() || found.selectionStart() < first.position()) {
                first = found;
                first.setPosition(found.selectionStart());
            }
            found = text.document()->find(word, found);
        }
    }
    text.setExtraSelections(marks);
    if (first.isNull()) return;
    text.setTextCursor(first);
    text.centerCursor();
}

}  // namespace snippetarium
