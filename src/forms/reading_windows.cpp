#include "forms/reading_windows.h"

#include <QMainWindow>
#include <QPlainTextEdit>

#include "forms/fContents.h"
#include "forms/fFind.h"
#include "forms/fPage.h"
#include "forms/fQuickSearch.h"
#include "forms/fZoom.h"
#include "forms/handler.h"
#include "store/database.h"

namespace snippetarium {

ReadingWindows::ReadingWindows(Database& db, QMainWindow& window, fContents& contents, fPage& page)
    : QObject(&window), db_(db), window_(window), contents_(contents), page_(page) {}

void ReadingWindows::Perform(MenuCommand command) {
    switch (command) {
        case MenuCommand::FindInPage:
            return FindWindow().FindIn(page_.Text());
        case MenuCommand::ZoomWindow:
            return ZoomWindow().ShowTextOf(page_);
        case MenuCommand::FindInZoom:
            return FindWindow().FindIn(ZoomWindow().Text());
        case MenuCommand::SelectAllZoomText:
            return ZoomWindow().Text().selectAll();
        case MenuCommand::CopyZoomText:
            return ZoomWindow().Text().copy();
        case MenuCommand::QuickSearch:
            return QuickLine().Open();
        default:
            return;
    }
}

bool ReadingWindows::HasZoomSelection() const {
    return zoom_ != nullptr && zoom_->Text().textCursor().hasSelection();
}

fFind& ReadingWindows::FindWindow() {
    if (find_ == nullptr) find_ = new fFind(db_, &window_);
    return *find_;
}

fZoom& ReadingWindows::ZoomWindow() {
    if (zoom_ != nullptr) return *zoom_;
    zoom_ = new fZoom(db_, &window_);
    connect(zoom_, &fZoom::MenuRequested, this, &ReadingWindows::ZoomMenuRequested);
    connect(zoom_, &fZoom::FindRequested, this, [this] { Perform(MenuCommand::FindInZoom); });
    return *zoom_;
}

fQuickSearch& ReadingWindows::QuickLine() {
    if (quick_ != nullptr) return *quick_;
    quick_ = new fQuickSearch(db_, page_, window_);
    connect(quick_, &fQuickSearch::HitChosen, this, &ReadingWindows::GoTo);
    connect(quick_, &fQuickSearch::Left, &page_, &fPage::FocusFirst);
    return *quick_;
}

void ReadingWindows::GoTo(const NodeIDs& node, const QStringList& words) {
    Handle(db_.Reporter(), Procedure::QuickSearchEvent, [&] {
        if (!contents_.SelectNode(node)) page_.ShowPage(node);
        page_.MarkWords(words);
        page_.FocusFirst();
    });
}

}  // namespace snippetarium
