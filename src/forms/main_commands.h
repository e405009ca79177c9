#pragma once

#include <QObject>

#include "navigator/command_state.h"
#include "navigator/commands.h"
#include "navigator/layout.h"

class QMainWindow;

namespace snippetarium {

class ChildPane;
class Database;
class EditorWindows;
class ListEditors;
class MainTransfers;
class NoiseWords;
class PaneDock;
class ReadingWindows;
class fBookmark;
class fContents;
class fIndex;
class fPage;
class fSearch;

/// The parts of the main window that commands act on.
struct MainParts {
    Database& db;
    QMainWindow& window;
    PaneDock& dock;
    fContents& contents;
    fIndex& index;
    fSearch& search;
    fBookmark& bookmarks;
    fPage& page;
    Layout& layout;
    const NoiseWords& noise;
};

/// What the menus, buttons and keys of the main window do.
class MainCommands final : public QObject {
    Q_OBJECT

  public:
    explicit MainCommands(const MainParts& parts);

    /// Whether the command can be given now.
    bool CanRun(MenuCommand command, bool isBusy) const;
    /// Does nothing where it cannot be given. Reports its failures.
    void Run(MenuCommand command);

    /// Opens the pane at its side, or closes it.
    void TogglePane(Pane pane);

    EditorWindows& Editors() { return *editors_; }

  signals:
    void WrapChanged(bool wrap);
    /// The lists beside the tree are to be loaded now.
    void ListsChanged();
    /// A right click into the zoom window.
    void ZoomMenuRequested(const QPoint& globalPosition);

  private:
    void Perform(MenuCommand command);
    void PerformOnPage(MenuCommand command);
    void PerformOnTree(MenuCommand command);
    void PerformOnLists(MenuCommand command);
    void PerformTransfer(MenuCommand command);
    void ShowPane(Pane pane);
    void GoTo(const NodeIDs& node);
    NodeIDs NodeToBookmark() const;
    void ShowTrash();
    void ShowAbout();
    void Configure();
    void Compact();
    void NextPane();
    ChildPane* PaneInFront(Side side) const;
    ChildPane& FormOf(Pane pane) const;

    MainParts parts_;
    MainTransfers* transfers_;
    ReadingWindows* reading_;
    ListEditors* listEditors_;
    EditorWindows* editors_;
};

}  // namespace snippetarium
