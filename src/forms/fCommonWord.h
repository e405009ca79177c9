#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "keywords/noise_words.h"

namespace snippetarium {

class Database;
class FilteredList;

namespace Ui {
class fCommonWord;
}

/// The noise words. What is done here is stored at once. The caption says what Enter does: it
/// deletes the word that is selected, and where none is, adds the one that was typed.
class fCommonWord final : public QDialog {
    Q_OBJECT

  public:
    fCommonWord(Database& db, QWidget* parent);
    ~fCommonWord() override;

    bool HasChangedCatalogue() const { return hasChanged_; }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void List();
    void ShowState();
    void Add();
    void Delete();
    void Report(const QString& result);

    Database& db_;
    NoiseWords noise_;
    std::vector<std::string> words_;
    std::unique_ptr<Ui::fCommonWord> ui_;
    FilteredList* list_ = nullptr;
    bool hasChanged_ = false;
};

}  // namespace snippetarium
