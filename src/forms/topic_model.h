#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <vector>

#include "search/topic_list.h"

namespace snippetarium {

/// A list of topics as a list control takes it: procedure, class and application, sorted by any of
/// them. Each row bears its topic's key.
class TopicModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    static constexpr int kKeyRole = Qt::UserRole;

    /// The list outlives this. What is done to it shows after Refresh, in the order of the search.
    TopicModel(const TopicList& topics, const QStringList& headers, QObject* parent);

    void Refresh();
    /// Where the topic of this row stands in the list.
    std::size_t TopicAt(int row) const { return order_.at(static_cast<std::size_t>(row)); }

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// A column of none is the order of the search.
    void sort(int column, Qt::SortOrder order) override;

  private:
    const TopicList& topics_;
    QStringList headers_;
    std::vector<std::size_t> order_;
};

}  // namespace snippetarium
