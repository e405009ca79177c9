#include "forms/words_model.h"

#include "forms/qt_text.h"

namespace snippetarium {

int WordsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(index_.Count());
}

QVariant WordsModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    return ToQt(index_.WordAt(static_cast<std::size_t>(index.row())));
}

}  // namespace snippetarium
