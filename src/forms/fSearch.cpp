#include "forms/fSearch.h"

#include <QDateEdit>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "editors/catalogue_lists.h"
#include "forms/fCalendar.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/modal.h"
#include "forms/qt_text.h"
#include "forms/topic_model.h"
#include "navigator/help.h"
#include "search/marked_words.h"
#include "store/database.h"
#include "ui_fSearch.h"

namespace snippetarium {

namespace {

constexpr int kColumnTwips = 1200;
constexpr int kTwipsPerPixel = 15;

DateTime ToDateTime(const QDate& day) {
    return {.year = day.year(), .month = day.month(), .day = day.day()};
}

}  // namespace

fSearch::fSearch(Database& db, QWidget* parent)
    : ChildPane(parent),
      db_(db),
      pane_(db, SearchProgress::Window),
      ui_(std::make_unique<Ui::fSearch>()) {
    ui_->setupUi(this);
    model_ =
        new TopicModel(pane_.Topics(), {tr("Procedure"), tr("Class"), tr("Application")}, this);
    ui_->cmbLanguage->addItem(tr("Select a language"), 0);
    const QDate today = QDate::currentDate();
    ui_->dtFrom->setDate(today.addYears(-1));
    ui_->dtTo->setDate(today);
    for (QDateEdit* edit : {ui_->dtFrom, ui_->dtTo})
        edit->setDateRange(QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
    ConnectFields();
    ConnectList();
    EnableDates();
    new HelpKey(this, [this] { OpenHelp(db_, AnchorOf("fSearch")); });
}

fSearch::~fSearch() = default;

void fSearch::OnEvent(const std::function<void()>& body) {
    Handle(db_.Reporter(), Procedure::SearchEvent, body);
}

void fSearch::ConnectFields() {
    QWidget* const listing[] = {ui_->txtSearch,  ui_->optnKeyword,  ui_->optnFunction,
                                ui_->optnCode,   ui_->optnComment,  ui_->optnAuthor,
                                ui_->optnDate,   ui_->chckLanguage, ui_->cmbLanguage,
                                ui_->dtFrom,     ui_->dtTo,         ui_->cmdSrchListTopic,
                                ui_->lstVwSearch};
    for (QWidget* control : listing)
        control->installEventFilter(this);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &fSearch::adjustButton);
    connect(ui_->optnDate, &QRadioButton::toggled, this, &fSearch::EnableDates);
    connect(ui_->cmdFrom, &QToolButton::clicked, this, [this] { ChooseDay(ui_->dtFrom); });
    connect(ui_->cmdTo, &QToolButton::clicked, this, [this] { ChooseDay(ui_->dtTo); });
    connect(ui_->cmbLanguage, &QComboBox::activated, this, [this](int row) {
        // Who chooses a language wants only that one.
        if (row > 0) ui_->chckLanguage->setChecked(true);
    });
    connect(ui_->cmdSrchListTopic, &QPushButton::clicked, this, &fSearch::ListTopics);
    connect(ui_->cmdSrchDisplay, &QPushButton::clicked, this, &fSearch::Display);
}

void fSearch::ConnectList() {
    QTreeView* const list = ui_->lstVwSearch;
    list->setModel(model_);
    list->header()->setStretchLastSection(false);
    list->header()->setSortIndicatorClearable(true);
    list->sortByColumn(-1, Qt::AscendingOrder);
    for (int column = 0; column < model_->columnCount({}); ++column)
        list->setColumnWidth(column, kColumnTwips / kTwipsPerPixel);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &fSearch::SelectTopic);
    connect(list, &QTreeView::doubleClicked, this, &fSearch::Display);
}

void fSearch::LoadLanguages() {
    OnEvent([this] {
        QComboBox* const box = ui_->cmbLanguage;
        const QVariant chosen = box->currentData();
        while (box->count() > 1)
            box->removeItem(1);
        for (Recordset row = AllLanguages(db_); !row.EndOfFile(); row.MoveNext())
            box->addItem(ToQt(row["language"].Text()), row["languageID"].Long());
        box->setCurrentIndex(std::max(box->findData(chosen), 0));
    });
}

void fSearch::showEvent(QShowEvent* event) {
    ChildPane::showEvent(event);
    if (db_.GetConnection().IsOpen()) LoadLanguages();
}

void fSearch::FocusFirst() {
    ui_->txtSearch->setFocus();
    ui_->txtSearch->selectAll();
}

bool fSearch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return ChildPane::eventFilter(watched, event);
    return OnKey(watched, static_cast<QKeyEvent*>(event)->key());
}

bool fSearch::OnKey(const QObject* control, int key) {
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (control == ui_->txtSearch && key == Qt::Key_Down) {
        GoToList();
        return true;
    }
    if (!isEnter) return false;
    if (control == ui_->lstVwSearch) {
        Display();
    } else {
        ListTopics();
    }
    return true;
}

SearchFields fSearch::Fields() const {
    const std::pair<const QRadioButton*, SearchKind> kinds[] = {
        {ui_->optnKeyword, SearchKind::Keyword}, {ui_->optnFunction, SearchKind::Name},
        {ui_->optnCode, SearchKind::Code},       {ui_->optnComment, SearchKind::Comment},
        {ui_->optnAuthor, SearchKind::Author},   {ui_->optnDate, SearchKind::Date},
    };
    SearchFields fields;
    for (const auto& [option, kind] : kinds) {
        if (option->isChecked()) fields.kind = kind;
    }
    fields.entry = FromQt(ui_->txtSearch->text());
    fields.isLanguageChecked = ui_->chckLanguage->isChecked();
    fields.languageID = static_cast<std::int16_t>(ui_->cmbLanguage->currentData().toInt());
    fields.dates = {ToDateTime(ui_->dtFrom->date()), ToDateTime(ui_->dtTo->date())};
    return fields;
}

void fSearch::ListTopics() {
    OnEvent([this] {
        if (isSearching_) return;
        const QScopedValueRollback searching(isSearching_, true);
        const SearchFields fields = Fields();
        if (pane_.ListTopics(fields) == SearchOutcome::Listed) {
            found_ = fields;
            ShowTopics();
        }
        adjustButton();
    });
}

void fSearch::ShowTopics() {
    model_->Refresh();
    ui_->lstVwSearch->sortByColumn(-1, Qt::AscendingOrder);
    const std::size_t count = pane_.Topics().Topics().size();
    ui_->lstVwSearch->setCurrentIndex(model_->index(0, 0));
    ui_->lstVwSearch->setFocus();
    ui_->lblFound->setText(count == 1 ? tr("1 topic found") : tr("%L1 topics found").arg(count));
}

void fSearch::SelectTopic() {
    const QModelIndexList rows = ui_->lstVwSearch->selectionModel()->selectedRows();
    if (!rows.isEmpty()) pane_.Topics().Select(model_->TopicAt(rows.first().row()));
    adjustButton();
}

void fSearch::GoToList() {
    QTreeView* const list = ui_->lstVwSearch;
    if (model_->rowCount({}) == 0) return;
    if (!list->currentIndex().isValid()) list->setCurrentIndex(model_->index(0, 0));
    list->setFocus();
}

void fSearch::adjustButton() {
    ui_->cmdSrchDisplay->setEnabled(ui_->lstVwSearch->selectionModel()->hasSelection() &&
                                    pane_.CanDisplay());
}

void fSearch::Display() {
    if (!ui_->cmdSrchDisplay->isEnabled()) return;
    OnEvent([this] {
        QStringList words;
        for (const std::string& word : MarkedWords(found_))
            words << ToQt(word);
        emit DisplayRequested(ToQt(pane_.Topics().SelectedKey()), words);
    });
}

void fSearch::EnableDates() {
    ui_->fraDates->setVisible(ui_->optnDate->isChecked());
}

void fSearch::ChooseDay(QDateEdit* edit) {
    OnEvent([this, edit] {
        fCalendar calendar(db_, edit->date(), this);
        if (RunModal(calendar, db_.Reporter()) == QDialog::Accepted) edit->setDate(calendar.Day());
    });
}

}  // namespace snippetarium
