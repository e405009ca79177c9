#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace snippetarium {

class Database;

namespace Ui {
class fLanguage;
}

/// The languages of the catalogue. What is done here is stored at once.
class fLanguage final : public QDialog {
    Q_OBJECT

  public:
    fLanguage(Database& db, QWidget* parent);
    ~fLanguage() override;

    /// The language that is selected; 0 for none.
    std::int32_t LanguageID() const;
    bool HasChangedCatalogue() const { return hasChanged_; }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    /// Selects the one of that name, if there is one.
    void List(const std::string& language);
    void ShowChange(bool isDone, const std::string& language);
    void ShowSelected();
    void EnableButtons();
    std::string Selected() const;
    std::string Entered() const;
    void Add();
    void Rename();
    void Delete();

    Database& db_;
    std::unique_ptr<Ui::fLanguage> ui_;
    bool hasChanged_ = false;
};

}  // namespace snippetarium
