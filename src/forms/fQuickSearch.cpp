#include "forms/fQuickSearch.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>

#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/qt_events.h"
#include "forms/qt_text.h"
#include "forms/quick_hit_delegate.h"
#include "forms/quick_hit_model.h"
#include "navigator/help.h"
#include "quick/quick_search.h"
#include "quick/words_to_mark.h"
#include "store/database.h"
#include "ui_fQuickSearch.h"

namespace snippetarium {

namespace {

constexpr int kMargin = 8;
constexpr int kSmallestWidth = 360;
constexpr int kLargestWidth = 900;
constexpr int kRowsOfAPage = 8;
/// How long to wait where a job or a question has the window's attention, in milliseconds.
constexpr int kWaitForDialog = 100;

}  // namespace

fQuickSearch::fQuickSearch(Database& db, QWidget& page, QWidget& window)
    : QFrame(&window),
      db_(db),
      page_(page),
      ui_(std::make_unique<Ui::fQuickSearch>()),
      model_(new QuickHitModel(this)) {
    ui_->setupUi(this);
    hide();
    ui_->lstHits->setModel(model_);
    ui_->lstHits->setItemDelegate(new QuickHitDelegate(this));
    ui_->txtQuick->installEventFilter(this);
    page_.installEventFilter(this);
    stepTimer_.setSingleShot(true);
    connect(&stepTimer_, &QTimer::timeout, this, &fQuickSearch::Step);
    connect(ui_->txtQuick, &QLineEdit::textChanged, this, &fQuickSearch::StartSearch);
    connect(ui_->lstHits, &QListView::clicked, this, &fQuickSearch::Choose);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
    new HelpKey(this, [this] { OpenHelp(db_, AnchorOf("fQuickSearch")); });
}

fQuickSearch::~fQuickSearch() = default;

void fQuickSearch::Open() {
    StartSearch();
    Arrange();
    show();
    raise();
    ui_->txtQuick->setFocus();
    ui_->txtQuick->selectAll();
}

void fQuickSearch::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    stepTimer_.stop();
    search_.reset();
}

void fQuickSearch::OnFocusChanged(QWidget* now) {
    // Another window may have it for a while: help, a message.
    if (!isVisible() || now == nullptr || now->window() != window()) return;
    if (!isAncestorOf(now)) hide();
}

bool fQuickSearch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &page_) {
        if (event->type() == QEvent::Resize && isVisible()) Arrange();
        return false;
    }
    const bool isEscape = event->type() == QEvent::ShortcutOverride &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    // The main window has another use for it.
    if (isEscape) event->accept();
    if (event->type() != QEvent::KeyPress) return false;
    return OnKey(static_cast<QKeyEvent*>(event)->key());
}

bool fQuickSearch::OnKey(int key) {
    switch (key) {
        case Qt::Key_Down:
            MoveBy(1);
            return true;
        case Qt::Key_Up:
            MoveBy(-1);
            return true;
        case Qt::Key_PageDown:
            MoveBy(kRowsOfAPage);
            return true;
        case Qt::Key_PageUp:
            MoveBy(-kRowsOfAPage);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Choose();
            return true;
        case Qt::Key_Escape:
            hide();
            emit Left();
            return true;
        default:
            return false;
    }
}

void fQuickSearch::StartSearch() {
    Handle(db_.Reporter(), Procedure::QuickSearchEvent, [this] {
        search_ = std::make_unique<QuickSearch>(db_, FromQt(ui_->txtQuick->text()));
        isListStale_ = true;
        isChoosing_ = false;
        stepTimer_.start(0);
    });
}

void fQuickSearch::Step() {
    if (!search_) return;
    if (QApplication::activeModalWidget() != nullptr || IsYielding(db_.GetHost().events))
        return stepTimer_.start(kWaitForDialog);
    Handle(db_.Reporter(), Procedure::QuickSearchEvent, [this] {
        const bool hasMore = search_->Step();
        ShowHits(hasMore);
        // The next step comes when the window has nothing else to do.
        if (search_ && hasMore) stepTimer_.start(0);
    });
}

void fQuickSearch::ShowHits(bool isSearching) {
    const std::vector<QuickHit>& hits = search_->Hits();
    if (isListStale_) {
        if (hits.empty() && isSearching) return;
        model_->Clear();
        isListStale_ = false;
    }
    model_->Append(hits);
    if (!ui_->lstHits->currentIndex().isValid()) ui_->lstHits->setCurrentIndex(model_->index(0));
    ShowMore(isSearching);
    Arrange();
    if (isChoosing_) Choose();
}

void fQuickSearch::ShowMore(bool isSearching) {
    const QString remark = Remark(isSearching);
    ui_->lblMore->setText(remark);
    ui_->lblMore->setVisible(!remark.isEmpty());
}

QString fQuickSearch::Remark(bool isSearching) const {
    const std::size_t shown = search_->Hits().size();
    const std::size_t found = search_->FoundCount();
    if (found > shown) return tr("and %L1 more").arg(found - shown);
    if (shown > 0 || isSearching) return {};
    if (ui_->txtQuick->text().trimmed().isEmpty()) {
        return tr(
            "draw grid    \"a phrase\"    draw or paint    -not    dr*w    name:    code:    "
            "app:    lang:    kind:");
    }
    const std::vector<QuickProblem>& problems = search_->Problems();
    return problems.empty() ? tr("Nothing found.") : ToQt(problems.front().text);
}

void fQuickSearch::MoveBy(int rows) {
    const int last = model_->rowCount() - 1;
    if (last < 0) return;
    const int wanted = ui_->lstHits->currentIndex().row() + rows;
    ui_->lstHits->setCurrentIndex(model_->index(std::clamp(wanted, 0, last)));
    if (wanted < last || isListStale_ || search_->FoundCount() <= search_->Hits().size()) return;
    search_->WantMore(QuickSearch::kFirstHits);
    stepTimer_.start(0);
}

void fQuickSearch::Choose() {
    const QModelIndex chosen = ui_->lstHits->currentIndex();
    isChoosing_ = isListStale_;
    if (isListStale_ || !chosen.isValid()) return;
    Handle(db_.Reporter(), Procedure::QuickSearchEvent, [&] {
        const NodeIDs node = model_->HitAt(chosen.row()).ids;
        QStringList words;
        for (const std::string& word :
             WordsToMark(FromQt(ui_->txtQuick->text()), model_->HitAt(chosen.row())))
            words << ToQt(word);
        hide();
        emit HitChosen(node, words);
    });
}

void fQuickSearch::Arrange() {
    QListView* const list = ui_->lstHits;
    list->setVisible(model_->rowCount() > 0);
    const int rows = std::min(model_->rowCount(), 100) * list->sizeHintForRow(0);
    list->setFixedHeight(std::max(rows, 0));
    const QRect page(page_.mapTo(parentWidget(), QPoint()), page_.size());
    int width = std::clamp(page.width() - 2 * kMargin, kSmallestWidth, kLargestWidth);
    width = std::min(width, parentWidget()->width());
    const int rest = sizeHint().height() - list->height();
    if (sizeHint().height() > page.height() - 2 * kMargin)
        list->setFixedHeight(std::max(page.height() - 2 * kMargin - rest, 0));
    const int left =
        std::clamp(page.center().x() - width / 2, 0, std::max(parentWidget()->width() - width, 0));
    setGeometry(left, page.top() + kMargin, width, sizeHint().height());
}

}  // namespace snippetarium
