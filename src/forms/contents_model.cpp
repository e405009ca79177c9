#include "forms/contents_model.h"

#include "forms/icons.h"
#include "forms/qt_text.h"
#include "navigator/contents_pane.h"

namespace snippetarium {

ContentsModel::ContentsModel(ContentsPane& pane, QObject* parent)
    : QAbstractItemModel(parent),
      pane_(pane),
      icons_{Icon("application"), Icon("class"), Icon("procedure")} {
    pane_.Tree().SetObserver(this);
}

ContentsModel::~ContentsModel() {
    pane_.Tree().SetObserver(nullptr);
}

ContentsItem* ContentsModel::ItemAt(const QModelIndex& index) {
    return index.isValid() ? static_cast<ContentsItem*>(index.internalPointer()) : nullptr;
}

QModelIndex ContentsModel::IndexOf(const ContentsItem* item) const {
    if (item == nullptr) return {};
    // An index carries a plain pointer; nothing is changed through it.
    return createIndex(static_cast<int>(item->Row()), 0, const_cast<ContentsItem*>(item));
}

QModelIndex ContentsModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    const auto at = static_cast<std::size_t>(row);
    const ContentsItem* const item = ItemAt(parent);
    return createIndex(row, 0, item == nullptr ? &pane_.Tree().Top(at) : &item->Child(at));
}

QModelIndex ContentsModel::parent(const QModelIndex& index) const {
    const ContentsItem* const item = ItemAt(index);
    return item == nullptr ? QModelIndex() : IndexOf(item->Parent());
}

int ContentsModel::rowCount(const QModelIndex& parent) const {
    const ContentsItem* const item = ItemAt(parent);
    return static_cast<int>(item == nullptr ? pane_.Tree().TopCount() : item->ChildCount());
}

int ContentsModel::columnCount(const QModelIndex&) const {
    return 1;
}

QVariant ContentsModel::data(const QModelIndex& index, int role) const {
    const ContentsItem* const item = ItemAt(index);
    if (item == nullptr) return {};
    switch (role) {
        case Qt::DisplayRole:
            // A name from an import may have line breaks; a row has none.
            return ToQt(item->Text()).simplified();
        case Qt::EditRole:
            return ToQt(item->Text());
        case Qt::ToolTipRole:
            return ToQt(pane_.Description(*item));
        case Qt::DecorationRole:
            if (item->Kind() == NodeKind::Placeholder) return {};
            return icons_[static_cast<std::size_t>(item->Kind())];
        default:
            return {};
    }
}

Qt::ItemFlags ContentsModel::flags(const QModelIndex& index) const {
    const ContentsItem* const item = ItemAt(index);
    if (item == nullptr) return Qt::NoItemFlags;
    if (item->Kind() == NodeKind::Placeholder) return Qt::ItemIsEnabled;
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return pane_.MayEditName(*item) ? usual | Qt::ItemIsEditable : usual;
}

bool ContentsModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const ContentsItem* const item = ItemAt(index);
    if (item == nullptr || role != Qt::EditRole) return false;
    emit NameEntered(item->IDs(), value.toString());
    return false;
}

void ContentsModel::WillInsert(const ContentsItem* parent, std::size_t first, std::size_t last) {
    beginInsertRows(IndexOf(parent), static_cast<int>(first), static_cast<int>(last));
}

void ContentsModel::WillRemove(const ContentsItem* parent, std::size_t first, std::size_t last) {
    beginRemoveRows(IndexOf(parent), static_cast<int>(first), static_cast<int>(last));
}

void ContentsModel::WillMove(const ContentsItem* parent, std::size_t from, std::size_t to) {
    const QModelIndex index = IndexOf(parent);
    const int row = static_cast<int>(from);
    beginMoveRows(index, row, row, index, static_cast<int>(to));
}

void ContentsModel::TextChanged(const ContentsItem& item) {
    const QModelIndex index = IndexOf(&item);
    emit dataChanged(index, index);
}

}  // namespace snippetarium
