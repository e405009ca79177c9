#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include "forms/entry_list_model.h"

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

namespace snippetarium {

/// A list of texts below an entry: as one types there, the list shows the texts that hold what was
/// typed, in any letter case, and the up and down keys go through it. Owned by the list.
class FilteredList final : public QObject {
    Q_OBJECT

  public:
    FilteredList(QLineEdit* entry, QListView* list);

    /// Nothing is selected afterwards.
    void SetTexts(std::vector<std::string> texts);

    /// The place of the selected text among those that were set.
    std::optional<std::size_t> Selected() const;
    /// Takes the filter away where it hides the text.
    void Select(std::size_t place);
    /// Selects the first text that is shown, if there is one.
    void SelectFirst();
    void SelectNone();

  signals:
    void SelectionChanged();

  private:
    QLineEdit* entry_;
    QListView* list_;
    std::vector<std::string> texts_;
    EntryListModel model_;
    QSortFilterProxyModel* shown_;
};

}  // namespace snippetarium
