#pragma once

#include <QAbstractListModel>
#include <string>
#include <vector>

namespace snippetarium {

/// A list of texts as a list control takes it, however long: a text is turned into the control's
/// only when its row is seen.
class EntryListModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    /// The list outlives this. What is done to it shows after Refresh.
    EntryListModel(const std::vector<std::string>& entries, QObject* parent);

    void Refresh();

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const std::vector<std::string>& entries_;
    int count_ = 0;
};

}  // namespace snippetarium
