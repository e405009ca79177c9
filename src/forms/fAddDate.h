#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace snippetarium {

class Database;

namespace Ui {
class fAddDate;
}

/// The dates of one application, class or procedure: typed, or chosen in the calendar.
class fAddDate final : public QDialog {
    Q_OBJECT

  public:
    /// The dates in the catalogue's form, the earliest first.
    fAddDate(Database& db, std::vector<std::string> dates, QWidget* parent);
    ~fAddDate() override;

    /// In the catalogue's form, the earliest first. After QDialog::Accepted, to be stored.
    const std::vector<std::string>& Dates() const { return dates_; }

  private:
    void Connect();
    void OnEvent(const std::function<void()>& body);
    void List(int row);
    void EnableButtons();
    bool HasEntry() const;
    void Choose();
    bool Add();
    void Remove();
    void Accept();

    Database& db_;
    std::vector<std::string> dates_;
    std::unique_ptr<Ui::fAddDate> ui_;
};

}  // namespace snippetarium
