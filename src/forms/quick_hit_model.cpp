#include "forms/quick_hit_model.h"

#include "forms/icons.h"
#include "forms/qt_text.h"

namespace snippetarium {

QString PlaceOf(const QuickHit& hit) {
    switch (hit.kind) {
        case QuickKind::Application:
            return {};
        case QuickKind::Class:
            return ToQt(hit.appName).simplified();
        case QuickKind::Procedure:
            break;
    }
    return ToQt(hit.appName).simplified() + " > " + ToQt(hit.className).simplified();
}

QuickHitModel::QuickHitModel(QObject* parent)
    : QAbstractListModel(parent), icons_{Icon("application"), Icon("class"), Icon("procedure")} {}

void QuickHitModel::Clear() {
    beginResetModel();
    hits_.clear();
    endResetModel();
}

void QuickHitModel::Append(const std::vector<QuickHit>& hits) {
    if (hits.size() <= hits_.size()) return;
    beginInsertRows({}, rowCount(), static_cast<int>(hits.size()) - 1);
    hits_.insert(hits_.end(), hits.begin() + rowCount(), hits.end());
    endInsertRows();
}

int QuickHitModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(hits_.size());
}

QVariant QuickHitModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const QuickHit& hit = HitAt(index.row());
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(hit.Name()).simplified();
        case Qt::ToolTipRole:
            return ToQt(hit.Name()) + '\n' + PlaceOf(hit);
        case Qt::AccessibleTextRole:
            return QStringList{ToQt(hit.Name()), PlaceOf(hit), ToQt(hit.line.text)}
                .join(", ")
                .simplified();
        case Qt::DecorationRole:
            return icons_[static_cast<std::size_t>(hit.kind)];
        default:
            return {};
    }
}

}  // namespace snippetarium
