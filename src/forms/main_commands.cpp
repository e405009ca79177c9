#include "forms/main_commands.h"

#include <QApplication>
#include <QMainWindow>
#include <QTabWidget>
#include <algorithm>

#include "forms/fAbout.h"
#include "forms/fConfigure.h"
#include "forms/fContents.h"
#include "forms/fPage.h"
#include "forms/fTrash.h"
#include "forms/handler.h"
#include "forms/modal.h"
#include "forms/pane_dock.h"
#include "navigator/help.h"
#include "navigator/node_requests.h"
#include "store/compact.h"
#include "store/database.h"

namespace snippetarium {

namespace {

/// Those whose windows are there.
constexpr Command kMade[] = {
    Command::DeleteSelected, Command::Print,         Command::Exit,
    Command::CopyPageText,   Command::ClearPage,     Command::SelectAllPageText,
    Command::ToggleWrap,     Command::CopyWholePage, Command::GoBack,
    Command::GoForward,      Command::LargerText,    Command::SmallerText,
    Command::NormalText,     Command::RenameNode,    Command::UndoDelete,
    Command::ShowTrash,      Command::CompactDatabase, Command::Configure,
    Command::ShowHelp,       Command::ShowAbout,     Command::ShowContents,
    Command::NextPane,       Command::BackToPage,
};

}  // namespace

MainCommands::MainCommands(const MainParts& parts) : QObject(&parts.window), parts_(parts) {}

bool MainCommands::IsMade(Command command) {
    return std::ranges::find(kMade, command) != std::end(kMade);
}

bool MainCommands::CanRun(Command command, bool isBusy) const {
    if (!IsMade(command)) return false;
    const fPage& page = parts_.page;
    const ProgramFacts facts = {
        .selection = parts_.contents.Selection(),
        .shownPage = page.Shown(),
        .hasPageText = page.HasText(),
        .hasPageSelection = page.HasSelection(),
        .canUndoDelete = parts_.contents.Deletion().CanUndo(),
        .canGoBack = page.History().CanGoBack(),
        .canGoForward = page.History().CanGoForward(),
        .isReadOnly = parts_.db.IsReadOnly(),
        .isBusy = isBusy,
    };
    return IsEnabled(command, facts);
}

void MainCommands::Run(Command command) {
    Handle(parts_.db.Reporter(), form_procedure::RunCommand, [&] { Perform(command); });
}

void MainCommands::Perform(Command command) {
    switch (command) {
        case Command::Exit:
            parts_.window.close();
            return;
        case Command::CompactDatabase:
            return Compact();
        case Command::Configure:
            return Configure();
        case Command::ShowHelp:
            return OpenHelp(parts_.db, "");
        case Command::ShowAbout:
            return ShowAbout();
        case Command::ShowContents:
            return ShowPane(Pane::Contents);
        case Command::NextPane:
            return NextPane();
        case Command::BackToPage:
            return parts_.page.FocusFirst();
        default:
            PerformOnTree(command);
    }
}

void MainCommands::PerformOnTree(Command command) {
    switch (command) {
        case Command::DeleteSelected:
            return parts_.contents.DeleteSelected();
        case Command::UndoDelete:
            return parts_.contents.UndoDelete();
        case Command::RenameNode:
            if (MayRename(parts_.db, parts_.contents.Selection())) {
                ShowPane(Pane::Contents);
                parts_.contents.StartRename();
            }
            return;
        case Command::ShowTrash:
            return ShowTrash();
        default:
            PerformOnPage(command);
    }
}

void MainCommands::PerformOnPage(Command command) {
    fPage& page = parts_.page;
    switch (command) {
        case Command::Print:
            return page.Print();
        case Command::CopyPageText:
            return page.Copy();
        case Command::CopyWholePage:
            return page.CopyWhole();
        case Command::ClearPage:
            return page.Clear();
        case Command::SelectAllPageText:
            return page.SelectAll();
        case Command::ToggleWrap:
            parts_.layout.SetWrap(!parts_.layout.State().wrap);
            emit WrapChanged(parts_.layout.State().wrap);
            return;
        case Command::GoBack:
            return GoTo(page.History().Back());
        case Command::GoForward:
            return GoTo(page.History().Forward());
        case Command::LargerText:
            return page.ChangeTextSize(1);
        case Command::SmallerText:
            return page.ChangeTextSize(-1);
        case Command::NormalText:
            return page.ChangeTextSize(0);
        default:
            return;
    }
}

void MainCommands::GoTo(const NodeIDs& node) {
    if (!parts_.contents.SelectNode(node)) parts_.page.ShowPage(node);
}

void MainCommands::ShowPane(Pane pane) {
    parts_.layout.ShowPane(pane);
    if (pane == Pane::Contents) parts_.contents.FocusFirst();
}

void MainCommands::TogglePane(Pane pane) {
    Handle(parts_.db.Reporter(), form_procedure::RunCommand, [&] {
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
        Handle(parts_.db.Reporter(), form_procedure::TrashEvent, [&] {
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
