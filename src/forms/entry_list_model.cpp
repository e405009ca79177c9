#include "forms/entry_list_model.h"

#include "forms/qt_text.h"
#include "support/paths.h"

namespace snippetarium {

EntryListModel::EntryListModel(const std::vector<std::string>& entries, QObject* parent)
    : QAbstractListModel(parent), entries_(entries), count_(static_cast<int>(entries.size())) {}

void EntryListModel::Refresh() {
    beginResetModel();
    count_ = static_cast<int>(entries_.size());
    endResetModel();
}

int EntryListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

QVariant EntryListModel::data(const QModelIndex& index, int role) const {
    const bool isShown = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    const auto row = static_cast<std::size_t>(index.row());
    // While a job fills the list, the control may paint rows that are there no more.
    if (!index.isValid() || row >= entries_.size()) return {};
    if (isShown) return ToQt(ToPlatformPath(entries_[row]));
    return role == kEntryRole ? ToQt(entries_[row]) : QVariant();
}

}  // namespace snippetarium
