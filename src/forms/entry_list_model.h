#pragma once

#include <QAbstractListModel>
#include <QStyledItemDelegate>
#include <string>
#include <vector>

namespace snippetarium {

/// A list of entries (import/folder_walk.h) as a list control takes it, however long: an entry is
/// turned into the control's text only when its row is seen. It is shown as the platform writes
/// paths.
class EntryListModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    /// The role of the entry as it is in the list.
    static constexpr int kEntryRole = Qt::UserRole;

    /// The list outlives this. What is done to it shows after Refresh.
    EntryListModel(const std::vector<std::string>& entries, QObject* parent);

    void Refresh();

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const std::vector<std::string>& entries_;
    int count_ = 0;
};

/// Rows that are as wide as their list: a long path is shortened, at the end that the list says.
class EntryRows final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }
};

}  // namespace snippetarium
