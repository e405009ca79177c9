#include "forms/reading_windows.h"

#include <QMainWindow>
#include <QPlainTextEdit>

#include "forms/fFind.h"
#include "forms/fPage.h"
#include "forms/fZoom.h"

namespace snippetarium {

ReadingWindows::ReadingWindows(Database& db, QMainWindow& window, fPage& page)
    : QObject(&window), db_(db), window_(window), page_(page) {}

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

}  // namespace snippetarium
