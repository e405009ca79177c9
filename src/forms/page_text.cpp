#include "forms/page_text.h"

#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <algorithm>

#include "forms/highlight_colours.h"
#include "forms/page_marks.h"
#include "forms/qt_text.h"

namespace snippetarium {

namespace {

using namespace std::chrono_literals;

constexpr auto kFirstStep = 3ms;
constexpr auto kNextStep = 6ms;
/// Laying out a longer line with thousands of colours would take longer than anybody waits.
constexpr int kLongestColouredLine = 10'000;
constexpr int kNumbersMargin = 6;

/// The margin with the line numbers.
class LineNumbers final : public QWidget {
  public:
    explicit LineNumbers(PageText* text) : QWidget(text), text_(text) {}

  protected:
    void paintEvent(QPaintEvent* event) override { text_->PaintNumbers(event); }

  private:
    PageText* text_;
};

}  // namespace

PageText::PageText(QWidget* parent) : QPlainTextEdit(parent), numbers_(new LineNumbers(this)) {
    work_.setInterval(0);
    connect(&work_, &QTimer::timeout, this, &PageText::WorkOn);
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& area, int dy) {
        if (dy != 0) {
            numbers_->scroll(0, dy);
        } else {
            numbers_->update(0, area.y(), numbers_->width(), area.height());
        }
    });
}

void PageText::ShowPage(const Page& page) {
    work_.stop();
    text_ = page.text;
    places_ = Utf16Map(text_);
    std::vector<TextRange> markers;
    for (const PageLink& link : page.links)
        markers.push_back(link.range);
    highlighter_ = Highlighter(text_, page.languageID, markers);
    hasNumbers_ = page.languageID != 0;
    ++round_;
    setPlainText(ToQt(text_));
    PlaceNumbers();
    if (!highlighter_.Work(kFirstStep)) work_.start();
    ColourVisible();
}

void PageText::WorkOn() {
    if (highlighter_.Work(kNextStep)) work_.stop();
    ColourVisible();
}

void PageText::ColourVisible() {
    const int bottom = viewport()->height();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        if (blockBoundingGeometry(block).translated(contentOffset()).top() > bottom) return;
        if (!Colour(block)) return;
    }
}

bool PageText::Colour(const QTextBlock& block) {
    if (block.userState() == round_) return true;
    const auto begin = static_cast<std::size_t>(block.position());
    const TextRange range{places_.ToByte(begin),
                          places_.ToByte(begin + static_cast<std::size_t>(block.length()) - 1)};
    if (!highlighter_.IsDone() && highlighter_.KnownUpTo() < range.end) return false;
    QList<QTextLayout::FormatRange> formats;
    if (block.length() <= kLongestColouredLine) {
        for (const HighlightSpan& span : highlighter_.Spans(range)) {
            const std::size_t first = places_.ToUtf16(std::max(span.range.begin, range.begin));
            const std::size_t last = places_.ToUtf16(std::min(span.range.end, range.end));
            if (last <= first) continue;
            formats.push_back({static_cast<int>(first - begin), static_cast<int>(last - first),
                               HighlightFormat(span.kind)});
        }
    }
    QTextBlock(block).setUserState(round_);
    block.layout()->setFormats(formats);
    document()->markContentsDirty(block.position(), block.length());
    return true;
}

int PageText::NumbersWidth() const {
    if (!hasNumbers_) return 0;
    const auto digits = static_cast<int>(std::to_string(std::max(blockCount(), 10)).size());
    return digits * fontMetrics().horizontalAdvance('9') + 2 * kNumbersMargin;
}

void PageText::PlaceNumbers() {
    const int width = NumbersWidth();
    setViewportMargins(width, 0, 0, 0);
    const QRect area = contentsRect();
    numbers_->setGeometry(area.left(), area.top(), width, viewport()->height());
    numbers_->setVisible(width > 0);
}

void PageText::PaintNumbers(QPaintEvent* event) {
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

void PageText::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    PlaceNumbers();
    ColourVisible();
}

void PageText::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) PlaceNumbers();
    if (event->type() != QEvent::PaletteChange) return;
    ++round_;
    ColourVisible();
    RecolourMarks(*this);
}

void PageText::scrollContentsBy(int dx, int dy) {
    QPlainTextEdit::scrollContentsBy(dx, dy);
    ColourVisible();
}

}  // namespace snippetarium
