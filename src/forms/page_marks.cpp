#include "forms/page_marks.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <algorithm>

#include "forms/theme.h"

namespace snippetarium {

namespace {

/// More marks than anybody looks at would only slow the control down.
constexpr qsizetype kMostMarks = 1'000;

}  // namespace

QTextCharFormat MarkFormat() {
    QTextCharFormat format;
    format.setBackground(IsDark() ? QColor(0x6b, 0x55, 0x10) : QColor(0xff, 0xe0, 0x7a));
    // The colours of words are made for the page's own background.
    format.setForeground(QApplication::palette().color(QPalette::Text));
    return format;
}

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

void MarkRanges(QPlainTextEdit& text, const std::vector<TextRange>& ranges, std::size_t around) {
    const auto at = std::ranges::lower_bound(ranges, around, {}, &TextRange::begin);
    const auto before = std::min<std::ptrdiff_t>(at - ranges.begin(), kMostMarks / 2);
    const auto first = at - before;
    const auto last = first + std::min<std::ptrdiff_t>(ranges.end() - first, kMostMarks);
    QList<QTextEdit::ExtraSelection> marks;
    const QTextCharFormat format = MarkFormat();
    for (auto range = first; range != last; ++range) {
        QTextCursor cursor(text.document());
        cursor.setPosition(static_cast<int>(range->begin));
        cursor.setPosition(static_cast<int>(range->end), QTextCursor::KeepAnchor);
        marks.push_back({cursor, format});
    }
    text.setExtraSelections(marks);
}

void RecolourMarks(QPlainTextEdit& text) {
    QList<QTextEdit::ExtraSelection> marks = text.extraSelections();
    const QTextCharFormat format = MarkFormat();
    for (QTextEdit::ExtraSelection& mark : marks)
        mark.format = format;
    text.setExtraSelections(marks);
}

}  // namespace snippetarium
