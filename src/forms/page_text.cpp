#include "forms/page_text.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTextBlock>
#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "forms/qt_text.h"

namespace snippetarium {

namespace {

/// Shaping puts accents on their letters and joins those of some scripts. ASCII has nothing of
/// that, and without it a line is laid out in half the time.
QFont WithShapingFor(std::string_view text, QFont font) {
    const bool isAscii = std::ranges::all_of(
        text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; });
    font.setStyleStrategy(isAscii ? QFont::PreferNoShaping : QFont::PreferDefault);
    return font;
}

}  // namespace

PageText::PageText(QWidget* parent) : ColouredText(parent) {
    viewport()->setMouseTracking(true);
}

void PageText::ShowPage(const Page& page) {
    pressed_ = nullptr;
    // What is not there any more is not laid out anew for another margin.
    clear();
    links_ = page.links;
    std::vector<TextRange> markers;
    for (const PageLink& link : links_)
        markers.push_back(link.range);
    setFont(WithShapingFor(page.text, font()));
    SetNumbered(page.languageID != 0);
    ShowText(page.text, page.languageID, markers);
}

QList<QTextLayout::FormatRange> PageText::FormatsOf(const TextRange& line,
                                                    std::size_t begin) const {
    QList<QTextLayout::FormatRange> formats = ColouredText::FormatsOf(line, begin);
    QTextCharFormat look;
    look.setForeground(palette().color(QPalette::Link));
    look.setFontUnderline(true);
    auto link = std::ranges::upper_bound(links_, line.begin, {},
                                         [](const PageLink& each) { return each.range.end; });
    for (; link != links_.end() && link->range.begin < line.end; ++link) {
        const std::size_t first = Places().ToUtf16(std::max(link->range.begin, line.begin));
        const std::size_t last = Places().ToUtf16(std::min(link->range.end, line.end));
        formats.push_back({static_cast<int>(first - begin), static_cast<int>(last - first), look});
    }
    return formats;
}

const PageLink* PageText::LinkAt(const QPoint& point) const {
    const PageLink* const link = LinkAt(cursorForPosition(point));
    if (link == nullptr) return nullptr;
    // Beside and below a text the control takes the nearest place in it.
    const QRect first = RectOf(link->range.begin);
    const QRect last = RectOf(link->range.end);
    const bool isBefore =
        point.y() < first.top() || (point.y() <= first.bottom() && point.x() < first.left());
    const bool isBehind =
        point.y() > last.bottom() || (point.y() >= last.top() && point.x() > last.right());
    return isBefore || isBehind ? nullptr : link;
}

const PageLink* PageText::LinkAt(const QTextCursor& cursor) const {
    const auto byte = Places().ToByte(static_cast<std::size_t>(cursor.position()));
    const auto link = std::ranges::find_if(links_, [byte](const PageLink& each) {
        return each.range.begin <= byte && byte <= each.range.end;
    });
    return link == links_.end() ? nullptr : &*link;
}

const PageLink* PageText::OnlyLinkInLine(const QTextCursor& cursor) const {
    const QTextBlock line = cursor.block();
    const auto begin = Places().ToByte(static_cast<std::size_t>(line.position()));
    const auto end = Places().ToByte(static_cast<std::size_t>(line.position() + line.length() - 1));
    const auto isInLine = [&](const PageLink& each) {
        return begin <= each.range.begin && each.range.begin <= end;
    };
    const auto link = std::ranges::find_if(links_, isInLine);
    if (link == links_.end()) return nullptr;
    const auto next = std::next(link);
    return next == links_.end() || !isInLine(*next) ? &*link : nullptr;
}

QRect PageText::RectOf(std::size_t byte) const {
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(Places().ToUtf16(byte)));
    return cursorRect(cursor);
}

const PageLink* PageText::LinkBeside(bool next) const {
    const QTextCursor cursor = textCursor();
    const auto begin = Places().ToByte(static_cast<std::size_t>(cursor.selectionStart()));
    const auto end = Places().ToByte(static_cast<std::size_t>(cursor.selectionEnd()));
    if (next) {
        const auto link = std::ranges::find_if(links_, [&](const PageLink& each) {
            return each.range.begin >= end && each.range.end > end;
        });
        return link == links_.end() ? nullptr : &*link;
    }
    const PageLink* before = nullptr;
    for (const PageLink& link : links_) {
        if (link.range.end <= begin) before = &link;
    }
    return before;
}

void PageText::Follow(const PageLink* link) {
    if (link != nullptr) emit LinkActivated(ToQt(link->targetKey));
}

void PageText::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton ? LinkAt(event->pos()) : nullptr;
    ColouredText::mousePressEvent(event);
}

void PageText::mouseMoveEvent(QMouseEvent* event) {
    ColouredText::mouseMoveEvent(event);
    if (event->buttons() != Qt::NoButton) return;
    const bool isOnLink = LinkAt(event->pos()) != nullptr;
    viewport()->setCursor(isOnLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void PageText::mouseReleaseEvent(QMouseEvent* event) {
    ColouredText::mouseReleaseEvent(event);
    const PageLink* const link = std::exchange(pressed_, nullptr);
    // Who drags over a link wants to select it.
    if (link != nullptr && link == LinkAt(event->pos()) && !textCursor().hasSelection())
        Follow(link);
}

void PageText::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter) return ColouredText::keyPressEvent(event);
    const PageLink* link = LinkAt(textCursor());
    if (link == nullptr) link = OnlyLinkInLine(textCursor());
    if (link == nullptr) return ColouredText::keyPressEvent(event);
    Follow(link);
}

bool PageText::focusNextPrevChild(bool next) {
    const PageLink* const link = LinkBeside(next);
    if (link == nullptr) return ColouredText::focusNextPrevChild(next);
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(Places().ToUtf16(link->range.begin)));
    cursor.setPosition(static_cast<int>(Places().ToUtf16(link->range.end)),
                       QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    return true;
}

}  // namespace snippetarium
