#include "forms/code_edit.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QUrl>
#include <algorithm>

#include "forms/qt_text.h"

namespace snippetarium {

namespace {

constexpr int kTabCharacters = 4;
/// For a short text colours follow each keystroke. A long one waits for a pause in the typing that
/// grows with it, because it has to be read anew.
constexpr int kCharactersPerMillisecond = 400;
constexpr int kLongestPause = 300;
/// How many lines tell whether a text is indented with tabs.
constexpr int kLinesLookedAt = 500;

qsizetype IndentationOf(const QString& line) {
    const auto isInk = [](QChar character) { return character != ' ' && character != '\t'; };
    return std::find_if(line.begin(), line.end(), isInk) - line.begin();
}

/// How much of a line's beginning goes when it moves one step to the left.
int OutwardStep(const QString& line) {
    if (line.startsWith('\t')) return 1;
    return static_cast<int>(std::min<qsizetype>(IndentationOf(line), kTabCharacters));
}

/// The colours of a line after a change in it, until the new ones are known: what stands behind
/// the change moves with its text.
QList<QTextLayout::FormatRange> Moved(const QTextBlock& line, int at, int removed, int added) {
    QList<QTextLayout::FormatRange> formats = line.layout()->formats();
    for (QTextLayout::FormatRange& range : formats) {
        const auto moved = [&](int place) {
            const int now = place < at ? place : std::max(at, place - removed) + added;
            return std::min(now, line.length() - 1);
        };
        const int end = moved(range.start + range.length);
        range.start = moved(range.start);
        range.length = end - range.start;
    }
    return formats;
}

QString DroppedFile(const QMimeData* source) {
    for (const QUrl& url : source->urls()) {
        if (url.isLocalFile()) return url.toLocalFile();
    }
    return {};
}

}  // namespace

CodeEdit::CodeEdit(QWidget* parent) : ColouredText(parent) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    SetFixedFont();
    SetNumbered(true);
    colouring_.setSingleShot(true);
    connect(&colouring_, &QTimer::timeout, this, &CodeEdit::ColourAnew);
    connect(document(), &QTextDocument::contentsChange, this, &CodeEdit::OnContentsChange);
}

void CodeEdit::SetFixedFont() {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(parentWidget() != nullptr ? parentWidget()->font().pointSizeF()
                                                  : fixed.pointSizeF());
    setFont(fixed);
    setTabStopDistance(kTabCharacters * QFontMetricsF(fixed).horizontalAdvance(' '));
}

void CodeEdit::SetCode(std::string_view code) {
    const bool isShown = !code.empty() && LinesFromQt(ToQt(TextOf(*this))) == code;
    code_ = code;
    if (!isShown) ShowText(FromQt(LinesToQt(code)), languageID_);
    shown_ = TextOf(*this);
    if (!isShown) colouring_.stop();
}

std::string CodeEdit::Code() const {
    const std::string text = TextOf(*this);
    return text == shown_ ? code_ : LinesFromQt(ToQt(text));
}

void CodeEdit::ReplaceCode(std::string_view code) {
    const bool wasEmpty = document()->isEmpty();
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::Document);
    cursor.insertText(LinesToQt(code));
    cursor.movePosition(QTextCursor::Start);
    setTextCursor(cursor);
    if (wasEmpty && !document()->isEmpty()) emit Filled();
}

void CodeEdit::SetLanguage(std::int32_t languageID) {
    if (languageID == languageID_) return;
    languageID_ = languageID;
    ColourAnew();
}

void CodeEdit::OnContentsChange(int position, int removed, int added) {
    SuspendColouring();
    const QTextBlock line = document()->findBlock(position);
    if (line.isValid())
        line.layout()->setFormats(Moved(line, position - line.position(), removed, added));
    colouring_.start(
        std::min(kLongestPause, document()->characterCount() / kCharactersPerMillisecond));
}

void CodeEdit::ColourAnew() {
    colouring_.stop();
    Recolour(TextOf(*this), languageID_);
}

void CodeEdit::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Find)) {
        emit FindRequested();
        return event->accept();
    }
    if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
        if (HandleTab(event)) return event->accept();
    }
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers() == Qt::NoModifier && !isReadOnly()) {
        BreakLine();
        return event->accept();
    }
    ColouredText::keyPressEvent(event);
}

bool CodeEdit::HandleTab(QKeyEvent* event) {
    const bool isBack = event->key() == Qt::Key_Backtab;
    if (event->modifiers().testFlag(Qt::ControlModifier) || isReadOnly())
        return QWidget::focusNextPrevChild(!isBack);
    QTextCursor cursor = textCursor();
    if (isBack || cursor.hasSelection()) {
        IndentLines(isBack);
        return true;
    }
    const QString unit = IndentUnit();
    const qsizetype step = unit == "\t" ? 1 : unit.size() - cursor.positionInBlock() % unit.size();
    cursor.insertText(unit.left(step));
    setTextCursor(cursor);
    return true;
}

void CodeEdit::IndentLines(bool isOutwards) {
    const QTextCursor selected = textCursor();
    const QTextBlock first = document()->findBlock(selected.selectionStart());
    QTextBlock last = document()->findBlock(selected.selectionEnd());
    // A selection of whole lines ends at the beginning of the line behind them.
    if (last != first && selected.selectionEnd() == last.position()) last = last.previous();
    const QString unit = IndentUnit();
    QTextCursor edit(first);
    edit.beginEditBlock();
    for (QTextBlock block = first;; block = block.next()) {
        edit.setPosition(block.position());
        if (isOutwards) {
            edit.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor,
                              OutwardStep(block.text()));
            edit.removeSelectedText();
        } else if (!block.text().isEmpty()) {
            edit.insertText(unit);
        }
        if (block == last) break;
    }
    edit.endEditBlock();
    if (!selected.hasSelection()) return;
    edit.setPosition(first.position());
    edit.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    setTextCursor(edit);
}

void CodeEdit::BreakLine() {
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const QString line = cursor.block().text().left(cursor.positionInBlock());
    cursor.insertText("\n" + line.left(IndentationOf(line)));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

/// As the text does it; four blanks where it does not tell.
QString CodeEdit::IndentUnit() const {
    QTextBlock block = document()->begin();
    for (int line = 0; line < kLinesLookedAt && block.isValid(); ++line, block = block.next()) {
        if (block.text().startsWith('\t')) return "\t";
        if (block.text().startsWith(QString(2, ' '))) break;
    }
    return QString(kTabCharacters, ' ');
}

bool CodeEdit::canInsertFromMimeData(const QMimeData* source) const {
    return !DroppedFile(source).isEmpty() || ColouredText::canInsertFromMimeData(source);
}

void CodeEdit::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly()) return;
    const QString file = DroppedFile(source);
    if (!file.isEmpty()) return emit FileDropped(file);
    const bool wasEmpty = document()->isEmpty();
    ColouredText::insertFromMimeData(source);
    if (wasEmpty && !document()->isEmpty()) emit Filled();
}

}  // namespace snippetarium
