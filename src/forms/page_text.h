#pragma once

#include <vector>

#include "forms/coloured_text.h"
#include "navigator/page.h"

namespace snippetarium {

/// The text box of the page view. A source has the numbers of its lines, prose has none.
///
/// The places that lead to other nodes look like links. A click follows one; Tab goes from link to
/// link, as in a browser, and Enter follows the one at the cursor, or the only one in its line.
class PageText final : public ColouredText {
    Q_OBJECT

  public:
    explicit PageText(QWidget* parent);

    void ShowPage(const Page& page);

  signals:
    /// With the tree's key of the node.
    void LinkActivated(const QString& targetKey);

  protected:
    QList<QTextLayout::FormatRange> FormatsOf(const TextRange& line,
                                              std::size_t begin) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    /// None where there is no link.
    const PageLink* LinkAt(const QPoint& point) const;
    const PageLink* LinkAt(const QTextCursor& cursor) const;
    /// None where the line has several.
    const PageLink* OnlyLinkInLine(const QTextCursor& cursor) const;
    QRect RectOf(std::size_t byte) const;
    const PageLink* LinkBeside(bool next) const;
    void Follow(const PageLink* link);

    /// In the order of the text.
    std::vector<PageLink> links_;
    /// The one on which the mouse button went down.
    const PageLink* pressed_ = nullptr;
};

}  // namespace snippetarium
