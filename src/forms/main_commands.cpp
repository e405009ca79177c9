#include "forms/main_commands.h"

#include <QApplication>
#include <QMainWindow>
#include <QStatusBar>
#include <QTabWidget>
#include <algorithm>

#include "forms/editor_windows.h"
#include "forms/fAbout.h"
#include "forms/fBookmark.h"
#include "forms/fConfigure.h"
#include "forms/fContents.h"
#include "forms/fIndex.h"
#include "forms/fPage.h"
#include "forms/fSearch.h"
#include "forms/fTrash.h"
#include "forms/handler.h"
#include "forms/list_editors.h"
#include "forms/main_transfers.h"
#include "forms/modal.h"
#include "forms/pane_dock.h"
#include "forms/reading_windows.h"
#include "navigator/help.h"
#include "navigator/node_requests.h"
#include "store/compact.h"
#include "store/database.h"

namespace snippetarium {

namespace {

/// How long the status bar says what was done, in milliseconds.
constexpr int kNoticeTime = 4000;

}  // namespace

MainCommands::MainCommands(const MainParts& parts)
    : QObject(&parts.window),
      parts_(parts),
      transfers_(new MainTransfers(parts.db, parts.window, parts.contents)),
      reading_(new ReadingWindows(parts.db, parts.window, parts.contents, parts.page)),
      listEditors_(new ListEditors(parts.db, parts.window, {parts.contents, parts.index})),
      editors_(
          new EditorWindows({parts.db, parts.noise, parts.window, parts.contents, parts.page})) {
    connect(reading_, &ReadingWindows::ZoomMenuRequested, this, &MainCommands::ZoomMenuRequested);
    connect(listEditors_, &ListEditors::ListsChanged, this, &MainCommands::ListsChanged);
}

bool MainCommands::CanRun(MenuCommand command, bool isBusy) const {
    if (command == MenuCommand::CopyZoomText) return reading_->HasZoomSelection();
    const fPage& page = parts_.page;
    const ProgramFacts facts = {
        .selection = parts_.contents.Selection(),
        .shownPage = page.Shown(),
        .hasPageText = page.HasText(),
        .hasPageSelection = page.HasSelection(),
        .hasIndexWord = parts_.index.HasWord(),
        .hasBookmark = parts_.bookmarks.HasBookmark(),
        .canUndoDelete = parts_.contents.Deletion().CanUndo(),
        .canGoBack = page.History().CanGoBack(),
        .canGoForward = page.History().CanGoForward(),
        .isReadOnly = parts_.db.IsReadOnly(),
        .isBusy = isBusy,
    };
    return IsEnabled(command, facts);
}

void MainCommands::Run(MenuCommand command) {
    Handle(parts_.db.Reporter(), Procedure::RunCommand, [&] { Perform(command); });
}

void MainCommands::Perform(MenuCommand command) {
    switch (command) {
        case MenuCommand::Exit:
            parts_.window.close();
            return;
        case MenuCommand::CompactDatabase:
            return Compact();
        case MenuCommand::Configure:
            return Configure();
        case MenuCommand::ShowHelp:
            return OpenHelp(parts_.db, "");
        case MenuCommand::ShowAbout:
            return ShowAbout();
        case MenuCommand::ShowContents:
            return ShowPane(Pane::Contents);
        case MenuCommand::ShowIndex:
            return ShowPane(Pane::Index);
        case MenuCommand::ShowSearch:
            return ShowPane(Pane::Search);
        case MenuCommand::ShowBookmarks:
            return ShowPane(Pane::Bookmark);
        case MenuCommand::NextPane:
            return NextPane();
        case MenuCommand::BackToPage:
            return parts_.page.FocusFirst();
        default:
            PerformOnTree(command);
    }
}

void MainCommands::PerformOnTree(MenuCommand command) {
    switch (command) {
        case MenuCommand::DeleteSelected:
            return parts_.contents.DeleteSelected();
        case MenuCommand::UndoDelete:
            return parts_.contents.UndoDelete();
        case MenuCommand::RenameNode:
            if (MayRename(parts_.db, parts_.contents.Selection())) {
                ShowPane(Pane::Contents);
                parts_.contents.StartRename();
            }
            return;
        case MenuCommand::ShowTrash:
            return ShowTrash();
        default:
            PerformOnLists(command);
    }
}

void MainCommands::PerformOnLists(MenuCommand command) {
    switch (command) {
        case MenuCommand::DeleteIndexWord:
            return parts_.index.DeleteSelected();
        case MenuCommand::ShowBookmark:
            return parts_.bookmarks.DisplaySelected();
        case MenuCommand::RemoveBookmark:
            return parts_.bookmarks.RemoveSelected();
        case MenuCommand::AddBookmark:
            // Its pane may be hidden.
            if (parts_.bookmarks.Add(NodeToBookmark()))
                parts_.window.statusBar()->showMessage(tr("Bookmarked."), kNoticeTime);
            return;
        case MenuCommand::EditLanguages:
        case MenuCommand::EditNoiseWords:
        case MenuCommand::EditIndexWord:
        case MenuCommand::AddExistingClass:
        case MenuCommand::AddExisting:
            return listEditors_->Perform(command);
        default:
            PerformTransfer(command);
    }
}

void MainCommands::PerformTransfer(MenuCommand command) {
    switch (command) {
        case MenuCommand::Import:
            return transfers_->Import();
        case MenuCommand::ExportShownPage:
            return transfers_->Export(ExportShownPage(parts_.db, parts_.page.Shown()));
        case MenuCommand::ExportSelected:
        case MenuCommand::ExportNode:
            return transfers_->Export(ExportSelected(parts_.db, parts_.contents.Selection()));
        default:
            PerformOnPage(command);
    }
}

NodeIDs MainCommands::NodeToBookmark() const {
    const NodeIDs& selected = parts_.contents.Selection();
    return selected.classID != 0 ? selected : parts_.page.Shown();
}

void MainCommands::PerformOnPage(MenuCommand command) {
    fPage& page = parts_.page;
    switch (command) {
        case MenuCommand::Print:
            return page.Print();
        case MenuCommand::CopyPageText:
            return page.Copy();
        case MenuCommand::CopyWholePage:
            return page.CopyWhole();
        case MenuCommand::ClearPage:
            return page.Clear();
        case MenuCommand::SelectAllPageText:
            return page.SelectAll();
        case MenuCommand::ToggleWrap:
            parts_.layout.SetWrap(!parts_.layout.State().wrap);
            emit WrapChanged(parts_.layout.State().wrap);
            return;
        case MenuCommand::GoBack:
            return GoTo(page.History().Back());
        case MenuCommand::GoForward:
            return GoTo(page.History().Forward());
        case MenuCommand::LargerText:
            return page.ChangeTextSize(1);
        case MenuCommand::SmallerText:
            return page.ChangeTextSize(-1);
        case MenuCommand::NormalText:
            return page.ChangeTextSize(0);
        default:
            reading_->Perform(command);
            return editors_->Perform(command);
    }
}

void MainCommands::GoTo(const NodeIDs& node) {
    if (!parts_.contents.SelectNode(node)) parts_.page.ShowPage(node);
}

void MainCommands::ShowPane(Pane pane) {
    parts_.layout.ShowPane(pane);
    FormOf(pane).FocusFirst();
}

ChildPane& MainCommands::FormOf(Pane pane) const {
    switch (pane) {
        case Pane::Index:
            return parts_.index;
        case Pane::Search:
            return parts_.search;
        case Pane::Bookmark:
            return parts_.bookmarks;
        default:
            return parts_.contents;
    }
}

void MainCommands::TogglePane(Pane pane) {
    Handle(parts_.db.Reporter(), Procedure::RunCommand, [&] {
        if (parts_.layout.IsOpen(pane)) {
            parts_.layout.HidePane(pane);
        } else {
            ShowPane(pane);
        }
    });
}

ChildPane* MainCommands::PaneInFront(Side side) const {
    return dynamic_cast<ChildPane*>(parts_.dock.SideTabs(side)->currentWidget());
}

void MainCommands::NextPane() {
    ChildPane* const order[] = {PaneInFront(Side::Left), &parts_.page, PaneInFront(Side::Right)};
    const QWidget* const focused = QApplication::focusWidget();
    const auto current = std::ranges::find_if(order, [&](const ChildPane* pane) {
        return pane != nullptr && focused != nullptr && pane->isAncestorOf(focused);
    });
    const auto at = current == std::end(order) ? 1 : current - std::begin(order);
    for (auto step = 1; step <= 3; ++step) {
        ChildPane* const next = order[(at + step) % 3];
        if (next != nullptr) return next->FocusFirst();
    }
}

void MainCommands::ShowTrash() {
    fTrash trash(parts_.db, parts_.contents.Deletion(), &parts_.window);
    connect(&trash, &fTrash::BroughtBack, this, [this](const NodeIDs& node) {
        Handle(parts_.db.Reporter(), Procedure::TrashEvent, [&] {
            parts_.contents.Refresh();
            parts_.contents.SelectNode(node);
        });
    });
    RunModal(trash, parts_.db.Reporter());
}

void MainCommands::ShowAbout() {
    fAbout about(fAbout::Use::Dialog, parts_.db.FilePath(), &parts_.window);
    RunModal(about, parts_.db.Reporter());
}

void MainCommands::Configure() {
    fConfigure configuration(parts_.db, parts_.layout, &parts_.window);
    RunModal(configuration, parts_.db.Reporter());
}

void MainCommands::Compact() {
    RunCompaction(parts_.db);
}

}  // namespace snippetarium
