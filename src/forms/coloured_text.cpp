#include "forms/coloured_text.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "forms/highlight_colours.h"
#include "forms/page_marks.h"
#include "forms/qt_text.h"

namespace snippetarium {

namespace {

using namespace std::chrono_literals;

constexpr auto kFirstStep = 3ms;
constexpr auto kNextStep = 6ms;
/// A longer text takes more than the first step anyway, and is shown sooner without it.
constexpr std::size_t kColouredAtOnce = 16'000;
/// Laying out a longer line with thousands of colours would take longer than anybody waits.
constexpr int kLongestColouredLine = 10'000;
constexpr int kNumbersMargin = 6;

/// The margin with the line numbers.
class LineNumbers final : public QWidget {
  public:
    explicit LineNumbers(ColouredText* text) : QWidget(text), text_(text) {}

  protected:
    void paintEvent(QPaintEvent* event) override { text_->PaintNumbers(event); }

  private:
    ColouredText* text_;
};

}  // namespace

ColouredText::ColouredText(QWidget* parent)
    : QPlainTextEdit(parent), numbers_(new LineNumbers(this)) {
    work_.setInterval(0);
    connect(&work_, &QTimer::timeout, this, [this] { WorkFor(kNextStep); });
    connect(this, &QPlainTextEdit::blockCountChanged, this, &ColouredText::MakeMargin);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int dy) {
        if (dy != 0) {
            numbers_->scroll(0, dy);
        } else {
            numbers_->update(0, area.y(), numbers_->width(), area.height());
        }
    });
}

void ColouredText::ShowText(std::string text, std::int32_t languageID,
                            std::span<const TextRange> skipped) {
    Begin(std::move(text), languageID, skipped);
    const QString shown = ToQt(text_);
    MakeRoomFor(shown);
    setPlainText(shown);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    if (text_.size() <= kColouredAtOnce) return Resume(kFirstStep);
    isSuspended_ = false;
    work_.start();
}

/// A margin or a scroll bar that comes when the text is there makes the control lay out a second
/// time all that can be seen. So both are there before, while nothing is.
void ColouredText::MakeRoomFor(const QString& text) {
    if (!document()->isEmpty()) clear();
    auto lines = text.count('\n') + 1;
    MakeMargin(static_cast<int>(lines));
    const QSize room = viewport()->size();
    if (lineWrapMode() != QPlainTextEdit::NoWrap)
        lines += text.size() * fontMetrics().averageCharWidth() / std::max(room.width(), 1);
    if (lines * fontMetrics().lineSpacing() > room.height())
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void ColouredText::Recolour(std::string text, std::int32_t languageID) {
    Begin(std::move(text), languageID, {});
    Resume(kNextStep);
}

void ColouredText::SuspendColouring() {
    work_.stop();
    isSuspended_ = true;
}

void ColouredText::Resume(std::chrono::milliseconds time) {
    isSuspended_ = false;
    WorkFor(time);
}

void ColouredText::SetNumbered(bool isNumbered) {
    isNumbered_ = isNumbered;
    MakeMargin(blockCount());
}

void ColouredText::Begin(std::string text, std::int32_t languageID,
                         std::span<const TextRange> skipped) {
    work_.stop();
    text_ = std::move(text);
    places_ = Utf16Map(text_);
    highlighter_ = Highlighter(text_, languageID, skipped);
    ++round_;
}

void ColouredText::WorkFor(std::chrono::milliseconds time) {
    if (highlighter_.Work(time)) {
        work_.stop();
    } else if (!work_.isActive()) {
        work_.start();
    }
    ColourVisible();
}

void ColouredText::ColourVisible() {
    if (isSuspended_) return;
    const int bottom = viewport()->height();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        if (blockBoundingGeometry(block).translated(contentOffset()).top() > bottom) return;
        if (!Colour(block)) return;
    }
}

bool ColouredText::Colour(const QTextBlock& block) {
    if (block.userState() == round_) return true;
    const auto begin = static_cast<std::size_t>(block.position());
    const TextRange line{places_.ToByte(begin),
                         places_.ToByte(begin + static_cast<std::size_t>(block.length()) - 1)};
    if (!highlighter_.IsDone() && highlighter_.KnownUpTo() < line.end) return false;
    QList<QTextLayout::FormatRange> formats;
    if (block.length() <= kLongestColouredLine) formats = FormatsOf(line, begin);
    QTextBlock(block).setUserState(round_);
    if (block.layout()->formats() == formats) return true;
    block.layout()->setFormats(formats);
    document()->markContentsDirty(block.position(), block.length());
    return true;
}

QList<QTextLayout::FormatRange> ColouredText::FormatsOf(const TextRange& line,
                                                        std::size_t begin) const {
    QList<QTextLayout::FormatRange> formats;
    for (const HighlightSpan& span : highlighter_.Spans(line)) {
        const std::size_t first = places_.ToUtf16(std::max(span.range.begin, line.begin));
        const std::size_t last = places_.ToUtf16(std::min(span.range.end, line.end));
        if (last <= first) continue;
        formats.push_back({static_cast<int>(first - begin), static_cast<int>(last - first),
                           HighlightFormat(span.kind)});
    }
    return formats;
}

void ColouredText::MakeMargin(int lines) {
    const auto digits = static_cast<int>(std::to_string(std::max(lines, 10)).size());
    const int width =
        isNumbered_ ? digits * fontMetrics().horizontalAdvance('9') + 2 * kNumbersMargin : 0;
    setViewportMargins(width, 0, 0, 0);
    PlaceNumbers();
}

void ColouredText::PlaceNumbers() {
    const QRect area = contentsRect();
    const int width = viewportMargins().left();
    numbers_->setGeometry(area.left(), area.top(), width, viewport()->height());
    numbers_->setVisible(width > 0);
}

void ColouredText::PaintNumbers(QPaintEvent* event) {
    QPainter painter(numbers_);
    painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.setFont(font());
    const int width = numbers_->width() - kNumbersMargin;
    QTextBlock block = firstVisibleBlock();
    for (; block.isValid(); block = block.next()) {
        const QRectF line = blockBoundingGeometry(block).translated(contentOffset());
        if (line.top() > event->rect().bottom()) return;
        const QRectF place(0, line.top(), width, fontMetrics().height());
        painter.drawText(place, Qt::AlignRight, QString::number(block.blockNumber() + 1));
    }
}

void ColouredText::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    PlaceNumbers();
    ColourVisible();
}

void ColouredText::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) MakeMargin(blockCount());
    if (event->type() != QEvent::PaletteChange) return;
    ++round_;
    ColourVisible();
    RecolourMarks(*this);
}

void ColouredText::scrollContentsBy(int dx, int dy) {
    QPlainTextEdit::scrollContentsBy(dx, dy);
    ColourVisible();
}

}  // namespace snippetarium
