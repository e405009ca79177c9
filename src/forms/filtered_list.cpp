#include "forms/filtered_list.h"

#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>

#include "forms/list_keys.h"

namespace snippetarium {

FilteredList::FilteredList(QLineEdit* entry, QListView* list)
    : QObject(list),
      entry_(entry),
      list_(list),
      model_(texts_, nullptr),
      shown_(new QSortFilterProxyModel(this)) {
    shown_->setSourceModel(&model_);
    shown_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    list_->setModel(shown_);
    new ListKeys(entry, list);
    connect(entry, &QLineEdit::textChanged, this, [this](const QString& typed) {
        shown_->setFilterFixedString(typed.trimmed());
        emit SelectionChanged();
    });
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &FilteredList::SelectionChanged);
}

void FilteredList::SetTexts(std::vector<std::string> texts) {
    texts_ = std::move(texts);
    model_.Refresh();
    emit SelectionChanged();
}

std::optional<std::size_t> FilteredList::Selected() const {
    const QModelIndex index = shown_->mapToSource(list_->currentIndex());
    if (!index.isValid()) return std::nullopt;
    return static_cast<std::size_t>(index.row());
}

void FilteredList::Select(std::size_t place) {
    const QModelIndex index = model_.index(static_cast<int>(place), 0);
    if (!shown_->mapFromSource(index).isValid()) entry_->clear();
    list_->setCurrentIndex(shown_->mapFromSource(index));
    list_->scrollTo(list_->currentIndex());
}

void FilteredList::SelectFirst() {
    list_->setCurrentIndex(shown_->index(0, 0));
}

void FilteredList::SelectNone() {
    list_->setCurrentIndex({});
}

}  // namespace snippetarium
