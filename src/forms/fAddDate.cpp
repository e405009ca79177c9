#include "forms/fAddDate.h"

#include <QDate>
#include <algorithm>

#include "editors/date_list.h"
#include "forms/dialog_help.h"
#include "forms/fCalendar.h"
#include "forms/handler.h"
#include "forms/list_keys.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "support/date_text.h"
#include "ui_fAddDate.h"

namespace snippetarium {

fAddDate::fAddDate(Database& db, std::vector<std::string> dates, QWidget* parent)
    : QDialog(parent), db_(db), dates_(std::move(dates)), ui_(std::make_unique<Ui::fAddDate>()) {
    ui_->setupUi(this);
    List(0);
    Connect();
}

fAddDate::~fAddDate() = default;

void fAddDate::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::AddDateEvent, body);
}

void fAddDate::Connect() {
    connect(ui_->cmdCalendar, &QPushButton::clicked, this,
            [this] { OnEvent([this] { Choose(); }); });
    connect(ui_->cmdAdd, &QPushButton::clicked, this, [this] { OnEvent([this] { Add(); }); });
    connect(ui_->cmdRemove, &QPushButton::clicked, this, [this] { OnEvent([this] { Remove(); }); });
    connect(ui_->cmdOK, &QPushButton::clicked, this, [this] { OnEvent([this] { Accept(); }); });
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->txtDate, &QLineEdit::textChanged, this, &fAddDate::EnableButtons);
    connect(ui_->lstDates, &QListWidget::currentRowChanged, this, &fAddDate::EnableButtons);
    RemoveByKey(ui_->lstDates, ui_->cmdRemove);
    ConnectHelp(db_, this, ui_->cmdHelp);
}

void fAddDate::List(int row) {
    ui_->lstDates->clear();
    for (const std::string& date : dates_)
        ui_->lstDates->addItem(ToQt(date));
    ui_->lstDates->setCurrentRow(std::min(row, ui_->lstDates->count() - 1));
    EnableButtons();
}

void fAddDate::EnableButtons() {
    ui_->cmdRemove->setEnabled(ui_->lstDates->currentRow() >= 0);
    // Enter takes over the date that is being typed before it takes over all.
    (HasEntry() ? ui_->cmdAdd : ui_->cmdOK)->setDefault(true);
}

bool fAddDate::HasEntry() const {
    return !ui_->txtDate->text().trimmed().isEmpty();
}

void fAddDate::Choose() {
    const auto typed = ParseDateText(FromQt(ui_->txtDate->text()));
    const QDate day = typed ? QDate(typed->year, typed->month, typed->day) : QDate::currentDate();
    fCalendar calendar(db_, day, this);
    if (RunModal(calendar, db_.Reporter()) == QDialog::Accepted)
        ui_->txtDate->setText(calendar.Day().toString(Qt::ISODate));
}

bool fAddDate::Add() {
    const std::vector<std::string> before = dates_;
    if (!AddDay(db_, dates_, FromQt(ui_->txtDate->text()))) {
        ui_->txtDate->setFocus();
        ui_->txtDate->selectAll();
        return false;
    }
    const auto [place, old] = std::ranges::mismatch(dates_, before);
    List(static_cast<int>(place - dates_.begin()));
    ui_->txtDate->clear();
    return true;
}

void fAddDate::Remove() {
    const int row = ui_->lstDates->currentRow();
    if (row < 0) return;
    dates_.erase(dates_.begin() + row);
    List(row);
}

void fAddDate::Accept() {
    if (!HasEntry() || Add()) accept();
}

}  // namespace snippetarium
