#pragma once

#include <memory>
#include <string>

#include "forms/child_pane.h"
#include "navigator/word_index.h"

namespace snippetarium {

class Database;
class WordsModel;

namespace Ui {
class fIndex;
}

/// The keyword index pane: an entry that jumps as one types, and all search words.
class fIndex final : public ChildPane {
    Q_OBJECT

  public:
    fIndex(Database& db, QWidget* parent);
    ~fIndex() override;

    /// Reads the words anew; the one that was selected stays so.
    void Load();

    bool HasWord() const;
    /// Empty where none is selected.
    std::string SelectedWord() const;
    void SelectWord(const std::string& word);
    void DeleteSelected();

    void FocusFirst() override;

  signals:
    /// A topic is to be shown: "f56".
    void DisplayRequested(const QString& topicKey);
    void SelectionChanged();

  private:
    void MakeCurrent(std::optional<std::size_t> row);
    /// The same, at the top of the list.
    void SelectRow(std::optional<std::size_t> row);
    void OpenSelected();

    Database& db_;
    WordIndex index_;
    std::unique_ptr<Ui::fIndex> ui_;
    WordsModel* model_;
};

}  // namespace snippetarium
