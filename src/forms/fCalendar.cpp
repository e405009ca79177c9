#include "forms/fCalendar.h"

#include <QTextCharFormat>

#include "forms/help_key.h"
#include "navigator/help.h"
#include "ui_fCalendar.h"

namespace snippetarium {

fCalendar::fCalendar(Database& db, const QDate& day, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::fCalendar>()) {
    ui_->setupUi(this);
    QCalendarWidget* const calendar = ui_->mvwCalendar;
    calendar->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    calendar->setSelectedDate(day);
    // The control's red for the weekend cannot be read on a dark background.
    for (const Qt::DayOfWeek weekday : {Qt::Saturday, Qt::Sunday})
        calendar->setWeekdayTextFormat(weekday, {});
    connect(calendar, &QCalendarWidget::activated, this, &QDialog::accept);
    connect(ui_->cmdToday, &QPushButton::clicked, this,
            [calendar] { calendar->setSelectedDate(QDate::currentDate()); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    const auto openHelp = [&db] { OpenHelp(db, AnchorOf("fCalendar")); };
    connect(ui_->cmdHelp, &QPushButton::clicked, this, openHelp);
    new HelpKey(this, openHelp);
}

fCalendar::~fCalendar() = default;

QDate fCalendar::Day() const {
    return ui_->mvwCalendar->selectedDate();
}

}  // namespace snippetarium
