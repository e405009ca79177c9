#pragma once

#include <QAbstractListModel>

#include "navigator/word_index.h"

namespace snippetarium {

/// The words of the index as a list control takes them.
class WordsModel final : public QAbstractListModel {
    Q_OBJECT

  public:
    /// The index outlives it.
    WordsModel(const WordIndex& index, QObject* parent)
        : QAbstractListModel(parent), index_(index) {}

    /// Around each change of the index.
    void BeginChange() { beginResetModel(); }
    void EndChange() { endResetModel(); }

    int rowCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;

  private:
    const WordIndex& index_;
};

}  // namespace snippetarium
