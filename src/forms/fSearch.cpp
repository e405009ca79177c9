#include "forms/fSearch.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <array>
#include <utility>

#include "editors/catalogue_lists.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/qt_text.h"
#include "forms/topics_model.h"
#include "navigator/help.h"
#include "store/database.h"
#include "store/job_progress.h"
#include "ui_fSearch.h"

namespace snippetarium {

namespace {

DateTime DayOf(const QDate& date) {
    return {.year = date.year(), .month = date.month(), .day = date.day()};
}

/// Lets the user cancel the connection's searches once they take long.
class CancellableSearch {
  public:
    explicit CancellableSearch(Database& db)
        : connection_(db.GetConnection()),
          progress_(db.GetHost(), "Searching", JobProgress::Cancelling::Possible) {
        connection_.SetCancelPoll(&progress_);
    }
    ~CancellableSearch() { connection_.SetCancelPoll(nullptr); }
    CancellableSearch(const CancellableSearch&) = delete;
    CancellableSearch& operator=(const CancellableSearch&) = delete;

  private:
    Connection& connection_;
    JobProgress progress_;
};

}  // namespace

fSearch::fSearch(Database& db, QWidget* parent)
    : ChildPane(parent), db_(db), pane_(db), ui_(std::make_unique<Ui::fSearch>()) {
    ui_->setupUi(this);
    model_ =
        new TopicsModel(pane_.Topics(), {tr("Procedure"), tr("Class"), tr("Application")}, this);
    ShowTopics(ui_->lstVwSearch, model_);
    ui_->optnKeyword->setChecked(true);
    ui_->fraDates->hide();
    ui_->dtTo->setDate(QDate::currentDate());
    ui_->dtFrom->setDate(QDate::currentDate().addYears(-1));
    ui_->cmbLanguage->addItem(tr("Select a language"), 0);
    const auto handle = [this](auto body) {
        return [this, body] { Handle(db_.Reporter(), form_procedure::SearchEvent, body); };
    };
    connect(ui_->cmdSrchListTopic, &QPushButton::clicked, this, handle([this] { ListTopics(); }));
    connect(ui_->cmdSrchDisplay, &QPushButton::clicked, this, handle([this] { Display(); }));
    connect(ui_->lstVwSearch, &QTreeView::activated, this, handle([this] { Display(); }));
    connect(ui_->lstVwSearch->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &fSearch::AdjustButton);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &fSearch::AdjustButton);
    connect(ui_->optnDate, &QRadioButton::toggled, ui_->fraDates, &QWidget::setVisible);
    connect(ui_->optnDate, &QRadioButton::toggled, ui_->txtSearch, &QWidget::setDisabled);
    for (QWidget* control : findChildren<QWidget*>()) {
        if (control != ui_->lstVwSearch) control->installEventFilter(this);
    }
    AdjustButton();
}

fSearch::~fSearch() = default;

bool fSearch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return ChildPane::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    if (watched == ui_->cmdSrchDisplay ||
        ui_->lstVwSearch->isAncestorOf(static_cast<QWidget*>(watched))) {
        return false;
    }
    Handle(db_.Reporter(), form_procedure::SearchEvent, [this] { ListTopics(); });
    return true;
}

void fSearch::LoadLanguages() {
    const QSignalBlocker quiet(ui_->cmbLanguage);
    const QVariant chosen = ui_->cmbLanguage->currentData();
    while (ui_->cmbLanguage->count() > 1)
        ui_->cmbLanguage->removeItem(1);
    for (Recordset rows = AllLanguages(db_); !rows.EndOfFile(); rows.MoveNext())
        ui_->cmbLanguage->addItem(ToQt(rows["language"].Text()), rows["languageID"].Long());
    ui_->cmbLanguage->setCurrentIndex(std::max(0, ui_->cmbLanguage->findData(chosen)));
}

void fSearch::FocusFirst() {
    ui_->txtSearch->setFocus();
    ui_->txtSearch->selectAll();
}

SearchKind fSearch::Kind() const {
    const std::pair<const QRadioButton*, SearchKind> options[] = {
        {ui_->optnFunction, SearchKind::Name},   {ui_->optnCode, SearchKind::Code},
        {ui_->optnComment, SearchKind::Comment}, {ui_->optnAuthor, SearchKind::Author},
        {ui_->optnDate, SearchKind::Date},
    };
    for (const auto& [option, kind] : options) {
        if (option->isChecked()) return kind;
    }
    return SearchKind::Keyword;
}

SearchFields fSearch::Fields() const {
    return {.kind = Kind(),
            .entry = FromQt(ui_->txtSearch->text()),
            .isLanguageChecked = ui_->chckLanguage->isChecked(),
            .languageID = static_cast<std::int16_t>(ui_->cmbLanguage->currentData().toInt()),
            .dates = {DayOf(ui_->dtFrom->date()), DayOf(ui_->dtTo->date())}};
}

void fSearch::ListTopics() {
    SearchOutcome outcome = SearchOutcome::NotRun;
    {
        const CancellableSearch cancellable(db_);
        outcome = pane_.ListTopics(Fields());
    }
    if (outcome == SearchOutcome::Listed) {
        model_->Reload();
        ui_->lblFound->setText(tr("Topics: %1").arg(pane_.Topics().Topics().size()));
        ui_->lstVwSearch->setCurrentIndex(ui_->lstVwSearch->model()->index(0, 0));
        ui_->lstVwSearch->setFocus();
    }
    AdjustButton();
}

void fSearch::Display() {
    if (!pane_.CanDisplay()) return;
    emit DisplayRequested(ToQt(pane_.Topics().SelectedKey()));
}

void fSearch::AdjustButton() {
    if (const auto row = CurrentTopic(ui_->lstVwSearch)) pane_.Topics().Select(*row);
    ui_->cmdSrchDisplay->setEnabled(pane_.CanDisplay());
}

}  // namespace snippetarium
