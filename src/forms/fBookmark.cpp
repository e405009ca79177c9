#include "forms/fBookmark.h"

#include <QShortcut>
#include <algorithm>
#include <utility>

#include "forms/handler.h"
#include "forms/icons.h"
#include "forms/kept_scroll.h"
#include "forms/qt_text.h"
#include "store/database.h"
#include "ui_fBookmark.h"

namespace snippetarium {

fBookmark::fBookmark(Database& db, QWidget* parent)
    : ChildPane(parent), db_(db), bookmarks_(db), ui_(std::make_unique<Ui::fBookmark>()) {
    ui_->setupUi(this);
    connect(ui_->lstBookmark, &QListWidget::itemActivated, this, [this] {
        Handle(db_.Reporter(), Procedure::BookmarkEvent, [this] { DisplaySelected(); });
    });
    auto* const remove = new QShortcut(QKeySequence::Delete, ui_->lstBookmark);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, this, [this] {
        if (db_.IsReadOnly()) return;
        Handle(db_.Reporter(), Procedure::BookmarkEvent, [this] { RemoveSelected(); });
    });
    connect(ui_->lstBookmark, &QListWidget::currentRowChanged, this, &fBookmark::SelectionChanged);
    connect(ui_->lstBookmark, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        emit MenuRequested(ui_->lstBookmark->viewport()->mapToGlobal(at));
    });
}

fBookmark::~fBookmark() = default;

void fBookmark::Load() {
    isStale_ = !isVisible();
    if (!isStale_) Read();
}

void fBookmark::showEvent(QShowEvent* event) {
    ChildPane::showEvent(event);
    Handle(db_.Reporter(), Procedure::BookmarkEvent, [this] {
        if (std::exchange(isStale_, false)) Read();
    });
}

void fBookmark::Read() {
    const ListedBookmark* const selected = Selected();
    const NodeIDs node = selected == nullptr ? NodeIDs{} : selected->node;
    bookmarks_.Load();
    List(node);
}

void fBookmark::List(const NodeIDs& selected) {
    QListWidget* const list = ui_->lstBookmark;
    {
        const KeptScroll kept(list);
        list->clear();
        for (const ListedBookmark& bookmark : bookmarks_.Entries()) {
            auto* item =
                new QListWidgetItem(Icon(bookmark.node.codeID != 0 ? "procedure" : "class"),
                                    ToQt(bookmark.caption).simplified(), list);
            item->setToolTip(item->text());
        }
    }
    const std::optional<std::size_t> row = bookmarks_.RowOf(selected);
    list->setCurrentRow(row ? static_cast<int>(*row) : -1);
    ui_->lblBookmark->setVisible(list->count() == 0);
}

const ListedBookmark* fBookmark::Selected() const {
    const int row = ui_->lstBookmark->currentRow();
    const std::vector<ListedBookmark>& entries = bookmarks_.Entries();
    if (row < 0 || static_cast<std::size_t>(row) >= entries.size()) return nullptr;
    return &entries[static_cast<std::size_t>(row)];
}

bool fBookmark::HasBookmark() const {
    return Selected() != nullptr;
}

bool fBookmark::Add(const NodeIDs& node) {
    const bool isAdded = bookmarks_.Add(node);
    List(node);
    return isAdded;
}

void fBookmark::RemoveSelected() {
    const ListedBookmark* const selected = Selected();
    if (selected == nullptr) return;
    const auto row = static_cast<std::size_t>(ui_->lstBookmark->currentRow());
    bookmarks_.Remove(NodeIDs(selected->node));
    // The one that is in its place now, so that one can go on from there.
    const std::vector<ListedBookmark>& left = bookmarks_.Entries();
    List(left.empty() ? NodeIDs{} : left[std::min(row, left.size() - 1)].node);
}

void fBookmark::DisplaySelected() {
    const ListedBookmark* const selected = Selected();
    if (selected == nullptr) return;
    const ListedBookmark bookmark = *selected;
    const NodeIDs node = bookmarks_.Display(bookmark);
    List(bookmark.node);
    if (node != NodeIDs{}) emit NodeRequested(node);
}

void fBookmark::FocusFirst() {
    ui_->lstBookmark->setFocus();
}

}  // namespace snippetarium
