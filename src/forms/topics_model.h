#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include "search/topic_list.h"

class QTreeView;

namespace snippetarium {

/// A list of topics as a list control takes it: procedure, class and application.
class TopicsModel final : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// The list outlives it.
    TopicsModel(const TopicList& topics, const QStringList& captions, QObject* parent);

    /// After the list has other topics.
    void Reload();

    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const TopicList& topics_;
    QStringList captions_;
};

/// Shows the topics in a list control whose columns sort, each 1200 twips wide.
void ShowTopics(QTreeView* list, TopicsModel* model);
/// The topic of the control's current row; nothing without one.
std::optional<std::size_t> CurrentTopic(const QTreeView* list);

}  // namespace snippetarium
