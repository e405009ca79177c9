#include "forms/page_heading_label.h"

#include <QResizeEvent>
#include <algorithm>

namespace snippetarium {

void PageHeadingLabel::ShowHtml(const QString& html) {
    if (html == text()) return;
    setText(html);
    FitHeight();
}

void PageHeadingLabel::FitHeight() {
    setMinimumHeight(0);  // which the label would take for its least height
    height_ = std::max(0, heightForWidth(width()));  // -1 without a text
    setFixedHeight(height_);
}

void PageHeadingLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (event->oldSize().width() != width()) FitHeight();
}

void PageHeadingLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitHeight();
}

}  // namespace snippetarium
