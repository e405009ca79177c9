#include "forms/quick_hit_delegate.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "forms/page_marks.h"
#include "forms/qt_text.h"
#include "forms/quick_hit_model.h"
#include "navigator/utf16_map.h"

namespace snippetarium {

namespace {

constexpr int kMargin = 4;
constexpr int kIconSize = 16;
constexpr int kGap = 8;
/// Units that stand before the first mark at most.
constexpr std::size_t kMostBefore = 40;

/// A text on one line: a name from a source may have its parameters on several. Each stretch of
/// white space becomes one blank, and the marks move along.
MarkedLine Marked(std::string_view text, const std::vector<ByteRange>& ranges) {
    const QString whole = ToQt(text);
    MarkedLine line;
    std::vector<std::size_t> shownAt;
    bool isAfterBlank = false;
    for (const QChar character : whole) {
        const bool isBlank = character.isSpace() || character < QChar::Space;
        // A mark that begins or ends inside the stretch does so at its blank.
        shownAt.push_back(static_cast<std::size_t>(line.text.size()) - (isBlank && isAfterBlank));
        if (!isBlank || !isAfterBlank) line.text += isBlank ? QChar(QChar::Space) : character;
        isAfterBlank = isBlank;
    }
    shownAt.push_back(static_cast<std::size_t>(line.text.size()));
    const Utf16Map places(text);
    for (const ByteRange& range : ranges) {
        line.marks.push_back(
            {shownAt.at(places.ToUtf16(range.begin)), shownAt.at(places.ToUtf16(range.End()))});
    }
    return line;
}

void CutFront(MarkedLine& line, std::size_t units) {
    line.text.remove(0, static_cast<qsizetype>(units));
    for (TextRange& mark : line.marks) {
        mark.begin -= std::min(mark.begin, units);
        mark.end -= std::min(mark.end, units);
    }
}

/// Shortens a line to the width, with an ellipsis at its end.
void CutEnd(MarkedLine& line, const QFont& font, int width) {
    const QString shortened = QFontMetrics(font).elidedText(line.text, Qt::ElideRight, width);
    if (shortened == line.text) return;
    line.text = shortened;
    const auto end = static_cast<std::size_t>(shortened.size());
    for (TextRange& mark : line.marks)
        mark = {std::min(mark.begin, end), std::min(mark.end, end)};
}

/// Paints from left to right within a row.
class RowPainter {
  public:
    RowPainter(QPainter& painter, const QStyleOptionViewItem& option)
        : painter_(painter),
          isSelected_(option.state.testFlag(QStyle::State_Selected)),
          plain_(option.palette.color(QPalette::Active, QPalette::Text)),
          text_(isSelected_ ? option.palette.color(QPalette::Active, QPalette::HighlightedText)
                            : plain_) {}

    void StartLine(const QRect& place) { place_ = place; }

    /// The line gets all of the room that is left, but for `spared` behind it.
    void Draw(MarkedLine line, const QFont& font, int spared = 0) {
        CutEnd(line, font, std::max(place_.width() - spared, 0));
        Draw(line, font, text_);
    }
    /// What is read second.
    void DrawMuted(const QString& text, const QFont& font) {
        QColor muted = text_;
        muted.setAlphaF(0.7F);
        MarkedLine line{text, {}};
        CutEnd(line, font, std::max(place_.width(), 0));
        Draw(line, font, muted);
    }

  private:
    void Draw(const MarkedLine& line, const QFont& font, const QColor& colour) {
        if (line.text.isEmpty() || place_.width() <= 0) return;
        QTextLayout layout(line.text, font);
        QTextCharFormat format = MarkFormat();
        format.setForeground(plain_);
        QList<QTextLayout::FormatRange> formats;
        for (const TextRange& mark : line.marks) {
            formats.push_back(
                {static_cast<int>(mark.begin), static_cast<int>(mark.end - mark.begin), format});
        }
        layout.setFormats(formats);
        layout.beginLayout();
        const QTextLine laid = layout.createLine();
        layout.endLayout();
        painter_.save();
        painter_.setClipRect(place_, Qt::IntersectClip);
        painter_.setPen(colour);
        layout.draw(&painter_, QPointF(place_.left(), place_.bottom() + 1 - laid.height()));
        painter_.restore();
        place_.setLeft(place_.left() + qRound(laid.naturalTextWidth()) + kGap);
    }

    QPainter& painter_;
    bool isSelected_;
    QColor plain_;
    QColor text_;
    QRect place_;
};

QFont FixedFont(const QFont& beside) {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(beside.pointSizeF());
    return font;
}

}  // namespace

MarkedLine ShownLine(const MatchingLine& line) {
    MarkedLine shown = Marked(line.text, line.matches);
    const auto first =
        std::ranges::find_if_not(shown.text, [](QChar character) { return character.isSpace(); });
    CutFront(shown, static_cast<std::size_t>(first - shown.text.begin()));
    if (shown.marks.empty() || shown.marks.front().begin <= kMostBefore) return shown;
    CutFront(shown, shown.marks.front().begin - kMostBefore);
    if (shown.text.front().isLowSurrogate()) CutFront(shown, 1);
    shown.text.prepend(QChar(0x2026));
    for (TextRange& mark : shown.marks)
        mark = {mark.begin + 1, mark.end + 1};
    return shown;
}

QString QuickHitDelegate::Lead(const QuickHit& hit) {
    if (hit.tier == QuickTier::Slip) return tr("similar name");
    if (hit.line.number == 0) return {};
    switch (hit.lineOf) {
        case QuickText::Keyword:
            return tr("keywords");
        case QuickText::Comment:
            return tr("comment");
        default:
            return QString::number(hit.line.number);
    }
}

void QuickHitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    const QuickHit& hit = static_cast<const QuickHitModel&>(*index.model()).HitAt(index.row());
    QStyleOptionViewItem row = option;
    row.state |= QStyle::State_Active;
    const QStyle& style = row.widget ? *row.widget->style() : *QApplication::style();
    style.drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, row.widget);
    const QRect inner = row.rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    const int half = inner.height() / 2;
    const QRect icon(inner.left(), inner.top() + (half - kIconSize) / 2, kIconSize, kIconSize);
    index.data(Qt::DecorationRole).value<QIcon>().paint(painter, icon);

    RowPainter line(*painter, row);
    QFont bold = row.font;
    bold.setBold(true);
    line.StartLine(inner.adjusted(kIconSize + kGap, 0, 0, -half));
    // A long name leaves room for where it is.
    const QString place = PlaceOf(hit);
    const int room = std::min(row.fontMetrics.horizontalAdvance(place), inner.width() / 3) + kGap;
    line.Draw(Marked(hit.Name(), hit.nameMatches), bold, place.isEmpty() ? 0 : room);
    line.DrawMuted(place, row.font);

    line.StartLine(inner.adjusted(kIconSize + kGap, half, 0, 0));
    line.DrawMuted(Lead(hit), row.font);
    line.Draw(ShownLine(hit.line), FixedFont(row.font));
}

QSize QuickHitDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    const int line = std::max(QFontMetrics(FixedFont(option.font)).height(),
                              std::max(option.fontMetrics.height(), kIconSize));
    // The list is as wide as its view, however long its lines are.
    return {1, 2 * (line + kMargin)};
}

}  // namespace snippetarium
