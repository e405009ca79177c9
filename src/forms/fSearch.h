#pragma once

#include <memory>

#include "forms/child_pane.h"
#include "search/search_pane.h"

namespace snippetarium {

class Database;
class TopicsModel;

namespace Ui {
class fSearch;
}

/// The search pane: an entry, what is searched, a language, and the list of topics found.
class fSearch final : public ChildPane {
    Q_OBJECT

  public:
    fSearch(Database& db, QWidget* parent);
    ~fSearch() override;

    /// Fills the list of languages; the one that was chosen stays so.
    void LoadLanguages();

    void FocusFirst() override;

  signals:
    /// A topic of the list is to be shown: "f56".
    void DisplayRequested(const QString& topicKey);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ListTopics();
    void Display();
    void AdjustButton();
    SearchFields Fields() const;
    SearchKind Kind() const;

    Database& db_;
    SearchPane pane_;
    std::unique_ptr<Ui::fSearch> ui_;
    TopicsModel* model_;
};

}  // namespace snippetarium
