#include "forms/topic_model.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "forms/qt_text.h"
#include "support/case_fold.h"

namespace snippetarium {

namespace {

const std::string& TextOf(const ListedTopic& topic, int column) {
    if (column == 0) return topic.procedureName;
    return column == 1 ? topic.className : topic.appName;
}

}  // namespace

TopicModel::TopicModel(const TopicList& topics, const QStringList& headers, QObject* parent)
    : QAbstractTableModel(parent), topics_(topics), headers_(headers) {
    Refresh();
}

void TopicModel::Refresh() {
    beginResetModel();
    order_.resize(topics_.Topics().size());
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    endResetModel();
}

int TopicModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int TopicModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headers_.size());
}

QVariant TopicModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const std::size_t at = TopicAt(index.row());
    const ListedTopic& topic = topics_.Topics().at(at);
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return ToQt(TextOf(topic, index.column()));
        case kKeyRole:
            return ToQt(topics_.KeyAt(at));
        default:
            return {};
    }
}

QVariant TopicModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return headers_.value(section);
}

void TopicModel::sort(int column, Qt::SortOrder order) {
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> marked;
    for (const QModelIndex& index : before)
        marked.push_back(TopicAt(index.row()));
    std::vector<std::string> texts;
    texts.reserve(order_.size());
    for (const ListedTopic& topic : topics_.Topics())
        texts.push_back(FoldCase(TextOf(topic, column)));
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    if (column >= 0) {
        std::ranges::stable_sort(order_, [&](std::size_t a, std::size_t b) {
            return order == Qt::AscendingOrder ? texts[a] < texts[b] : texts[b] < texts[a];
        });
    }
    std::vector<int> rowOf(order_.size());
    for (std::size_t row = 0; row < order_.size(); ++row)
        rowOf[order_[row]] = static_cast<int>(row);
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int row = rowOf[marked[static_cast<std::size_t>(i)]];
        changePersistentIndex(before[i], index(row, before[i].column()));
    }
    emit layoutChanged();
}

}  // namespace snippetarium
