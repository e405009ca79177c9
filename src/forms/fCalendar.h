#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

namespace snippetarium {

class Database;

namespace Ui {
class fCalendar;
}

// The days that the catalogue's dates can have.
inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

/// The choice of a day.
class fCalendar final : public QDialog {
    Q_OBJECT

  public:
    fCalendar(Database& db, const QDate& day, QWidget* parent);
    ~fCalendar() override;

    QDate Day() const;

  private:
    std::unique_ptr<Ui::fCalendar> ui_;
};

}  // namespace snippetarium
