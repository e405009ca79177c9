#include "forms/topics_model.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTreeView>

#include "forms/desktop_layout.h"
#include "forms/icons.h"
#include "forms/qt_text.h"

namespace snippetarium {

namespace {

constexpr int kColumnWidth = 1200 / DesktopLayout::kTwipsPerPixel;

QString CellText(const ListedTopic& topic, int column) {
    if (column == 0) return ToQt(topic.procedureName).simplified();
    return ToQt(column == 1 ? topic.className : topic.appName).simplified();
}

QIcon IconOf(const ListedTopic& topic) {
    static constexpr const char* kNames[] = {"application", "class", "procedure"};
    return Icon(kNames[static_cast<std::size_t>(TopicOf(topic).level)]);
}

}  // namespace

TopicsModel::TopicsModel(const TopicList& topics, const QStringList& captions, QObject* parent)
    : QAbstractTableModel(parent), topics_(topics), captions_(captions) {}

void TopicsModel::Reload() {
    beginResetModel();
    endResetModel();
}

int TopicsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(topics_.Topics().size());
}

int TopicsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(captions_.size());
}

QVariant TopicsModel::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= topics_.Topics().size()) return {};
    const ListedTopic& topic = topics_.Topics()[row];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return CellText(topic, index.column());
    if (role == Qt::DecorationRole && index.column() == 0) return IconOf(topic);
    return {};
}

QVariant TopicsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return captions_.value(section);
}

void ShowTopics(QTreeView* list, TopicsModel* model) {
    auto* sorted = new QSortFilterProxyModel(list);
    sorted->setSourceModel(model);
    sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    list->setModel(sorted);
    // The order of the search until the user clicks on a column.
    list->header()->setSortIndicator(-1, Qt::AscendingOrder);
    list->setSortingEnabled(true);
    for (int column = 0; column < model->columnCount({}); ++column)
        list->setColumnWidth(column, kColumnWidth);
}

std::optional<std::size_t> CurrentTopic(const QTreeView* list) {
    const auto* sorted = qobject_cast<const QSortFilterProxyModel*>(list->model());
    const QModelIndex index = sorted->mapToSource(list->currentIndex());
    if (!index.isValid()) return std::nullopt;
    return static_cast<std::size_t>(index.row());
}

}  // namespace snippetarium
