#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>

#include "keywords/noise_words.h"
#include "search/topic_list.h"

namespace snippetarium {

class Database;
class TopicModel;

namespace Ui {
class fEditSearchWord;
}

/// Where the search word stands that is edited.
enum class SearchWordUse : std::uint8_t {
    /// In the index: it changes at once, for all that is found by it.
    Index,
    /// In keywords that are being edited, where the caller changes it.
    Keywords,
};

/// One search word: another spelling for it, or its end.
class fEditSearchWord final : public QDialog {
    Q_OBJECT

  public:
    fEditSearchWord(Database& db, const NoiseWords& noise, std::string word, SearchWordUse use,
                    QWidget* parent);
    ~fEditSearchWord() override;

    /// How the word is spelled now; empty where it was deleted. As before unless accepted.
    const std::string& Word() const { return word_; }
    /// Whether something was stored, be it by the keywords of what the word finds.
    bool HasChangedCatalogue() const { return hasChanged_; }

  private:
    bool IsOfIndex() const { return use_ == SearchWordUse::Index; }
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void ListTopics();
    void EditKeywords();
    void Accept();
    void Delete();

    Database& db_;
    const NoiseWords& noise_;
    std::string word_;
    SearchWordUse use_;
    TopicList topics_;
    std::unique_ptr<Ui::fEditSearchWord> ui_;
    TopicModel* model_ = nullptr;
    bool hasChanged_ = false;
};

}  // namespace snippetarium
