#pragma once

#include <functional>
#include <memory>

#include "forms/child_pane.h"
#include "search/search_pane.h"

class QDateEdit;

namespace snippetarium {

class Database;
class TopicModel;

namespace Ui {
class fSearch;
}

/// The search pane: an entry, what to look at, and the list of topics found.
class fSearch final : public ChildPane {
    Q_OBJECT

  public:
    fSearch(Database& db, QWidget* parent);
    ~fSearch() override;

    /// Reads the languages anew, once the catalogue is open and after every change of them; the
    /// chosen one stays.
    void LoadLanguages();
    void FocusFirst() override;

  signals:
    /// A topic ("f56") is to be shown, and in its page the words that it was found by.
    void DisplayRequested(const QString& topicKey, const QStringList& words);

  protected:
    /// Enter lists the topics, or displays one that is selected in the list.
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void ConnectFields();
    void ConnectList();
    void OnEvent(const std::function<void()>& body);
    bool OnKey(const QObject* control, int key);

    SearchFields Fields() const;
    void ListTopics();
    void ShowTopics();
    void Display();
    void SelectTopic();
    void GoToList();
    void ChooseDay(QDateEdit* edit);
    void EnableDates();
    void adjustButton();

    Database& db_;
    SearchPane pane_;
    /// What the topics in the list were found by.
    SearchFields found_;
    std::unique_ptr<Ui::fSearch> ui_;
    TopicModel* model_ = nullptr;
    bool isSearching_ = false;
};

}  // namespace snippetarium
