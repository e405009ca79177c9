#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "editors/owner_details.h"
#include "keywords/noise_words.h"

namespace snippetarium {

class Database;

namespace Ui {
class fKeywords;
}

/// The keywords of one application, class or procedure, with the search words that come of them
/// shown as one types.
class fKeywords final : public QDialog {
    Q_OBJECT

  public:
    /// An owner with the ID 0 is not stored yet.
    fKeywords(Database& db, const Owner& owner, KeywordEntry entry, QWidget* parent);
    ~fKeywords() override;

    /// After QDialog::Accepted, to be stored; a blank text is no keywords.
    const KeywordEntry& Entry() const { return entry_; }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void ListSeparators();
    void ListWords();
    void ShowStoredWords(const Owner& owner);
    void EnableButtons();
    KeywordEntry Entered() const;
    std::string SeparatorText() const;
    void EditWord();
    void RemoveAll();
    void Accept();

    Database& db_;
    NoiseWords noise_;
    KeywordEntry entry_;
    std::unique_ptr<Ui::fKeywords> ui_;
};

}  // namespace snippetarium
