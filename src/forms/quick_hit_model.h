#pragma once

#include <QAbstractListModel>
#include <QIcon>
#include <vector>

#include "quick/quick_search.h"

namespace snippetarium {

/// The hits of a quick search as a list control takes them: kept apart from the search, so that
/// those of one entry can stand until the next one has some.
class QuickHitModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    explicit QuickHitModel(QObject* parent);

    void Clear();
    /// Takes in those behind the ones that are here already.
    void Append(const std::vector<QuickHit>& hits);
    const QuickHit& HitAt(int row) const { return hits_.at(static_cast<std::size_t>(row)); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    std::vector<QuickHit> hits_;
    QIcon icons_[kQuickKinds];
};

/// Where a hit stands: "Paint > Grid"; empty for an application.
QString PlaceOf(const QuickHit& hit);

}  // namespace snippetarium
