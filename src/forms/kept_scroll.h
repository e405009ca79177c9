#pragma once

#include <QAbstractItemView>
#include <QScrollBar>

namespace snippetarium {

/// While a list is filled anew; at the end it is scrolled to where it was.
class KeptScroll {
  public:
    explicit KeptScroll(QAbstractItemView* list)
        : list_(list), value_(list->verticalScrollBar()->value()) {}
    ~KeptScroll() {
        if (value_ == 0) return;
        list_->doItemsLayout();  // before that the scroll bar has no range
        list_->verticalScrollBar()->setValue(value_);
    }
    KeptScroll(const KeptScroll&) = delete;
    KeptScroll& operator=(const KeptScroll&) = delete;

  private:
    QAbstractItemView* list_;
    int value_;
};

}  // namespace snippetarium
