#pragma once

#include <QString>
#include <QStyledItemDelegate>
#include <vector>

#include "import/text_range.h"
#include "quick/quick_search.h"

namespace snippetarium {

/// A line with marked stretches, counted in its UTF-16 units.
struct MarkedLine {
    QString text;
    std::vector<TextRange> marks;
};

/// The line of a hit as the list shows it: without its indentation and, where the first mark is far
/// off, without most of what stands before that.
MarkedLine ShownLine(const MatchingLine& line);

/// Paints the hits of a QuickHitModel: icon, name and place; below them the line in which something
/// was found, with what was found marked, or that the name is merely similar.
class QuickHitDelegate final : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  private:
    static QString Lead(const QuickHit& hit);
};

}  // namespace snippetarium
