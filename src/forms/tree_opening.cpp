#include "forms/tree_opening.h"

#include <QTreeView>
#include <functional>

#include "forms/contents_model.h"

namespace snippetarium {

namespace {

constexpr int kMostOpened = 500;

}  // namespace

void OpenLoaded(QTreeView& tree, const ContentsModel& model) {
    int opened = 0;
    std::function<void(const QModelIndex&)> openBelow = [&](const QModelIndex& parent) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const ContentsItem* const item = ContentsModel::ItemAt(index);
            if (item->ChildCount() == 0 || item->IsUnloaded()) continue;
            if (++opened > kMostOpened) return;
            tree.expand(index);
            openBelow(index);
        }
    };
    openBelow({});
}

}  // namespace snippetarium
