#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include "navigator/contents_tree.h"

namespace snippetarium {

class ContentsPane;

/// The contents tree as a tree control takes it. Nodes are loaded by the pane; this passes on what
/// happens to them. A name that was edited in place is handed on, not stored: storing it may ask
/// the user something, and the control is not to be in the middle of an edit then.
class ContentsModel final : public QAbstractItemModel, private ContentsObserver {
    Q_OBJECT

  public:
    ContentsModel(ContentsPane& pane, QObject* parent);
    ~ContentsModel() override;

    /// Null for an index of nothing.
    static ContentsItem* ItemAt(const QModelIndex& index);
    QModelIndex IndexOf(const ContentsItem* item) const;

    QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent) const override;
    int columnCount(const QModelIndex& parent) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  signals:
    void NameEntered(const NodeIDs& node, const QString& name);

  private:
    void WillReset() override { beginResetModel(); }
    void DidReset() override { endResetModel(); }
    void WillInsert(const ContentsItem* parent, std::size_t first, std::size_t last) override;
    void DidInsert() override { endInsertRows(); }
    void WillRemove(const ContentsItem* parent, std::size_t first, std::size_t last) override;
    void DidRemove() override { endRemoveRows(); }
    void WillMove(const ContentsItem* parent, std::size_t from, std::size_t to) override;
    void DidMove() override { endMoveRows(); }
    void TextChanged(const ContentsItem& item) override;

    ContentsPane& pane_;
    QIcon icons_[3];  // by NodeKind
};

}  // namespace snippetarium
