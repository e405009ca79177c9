#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace snippetarium {

class Database;
class FilteredList;

namespace Ui {
class fSlctLanguage;
}

/// The choice of a language for one class or procedure.
class fSlctLanguage final : public QDialog {
    Q_OBJECT

  public:
    /// 0 where none is chosen yet.
    fSlctLanguage(Database& db, std::int32_t languageID, QWidget* parent);
    ~fSlctLanguage() override;

    /// After QDialog::Accepted, the chosen one.
    std::int32_t LanguageID() const { return languageID_; }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void List(std::int32_t selectedID);
    std::int32_t Selected() const;
    void EditLanguages();
    void Accept();

    Database& db_;
    std::int32_t languageID_;
    /// Of each text of the list, the language.
    std::vector<std::int32_t> languageIDs_;
    std::unique_ptr<Ui::fSlctLanguage> ui_;
    FilteredList* list_ = nullptr;
};

}  // namespace snippetarium
