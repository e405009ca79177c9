#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/desktop_layout.h"
#include "navigator/commands.h"
#include "navigator/idle_work.h"
#include "navigator/layout.h"
#include "navigator/program_run.h"
#include "support/node_key.h"

namespace snippetarium {

class ChildPane;
class Database;
class MainCommands;
class MainMenus;
class PaneDock;
class QtHost;
class StatusPanels;
class fAbout;
class fBookmark;
class fContents;
class fIndex;
class fPage;
class fSearch;

namespace Ui {
class fMain;
}

/// The main window, the frame of the whole program.
class fMain final : public QMainWindow, private ProgramWindow {
    Q_OBJECT

  public:
    /// Both outlive it.
    fMain(Database& db, QtHost& host);
    ~fMain() override;

    /// The program's start. False when the program has ended, because there is no catalogue; else
    /// the window is shown.
    bool Start();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowSplash() override;
    void CloseSplash() override;
    void ShowThemeEarly();
    void SetWrapCommands(bool wrap) override;
    void LoadContents() override;
    void FinishIndexPane() override;
    void Close() override;
    std::vector<std::string> OpenForms() const override;
    void SetParentUnloading(std::string_view form) override;
    void CloseForm(std::string_view form) override;

    /// F1, in each part of the window.
    void OfferHelp();
    void ConnectParts();
    void ConnectToolBar();
    void ConnectLists();
    void ConnectPanes();
    QAction* AsButton(const char* name, const char* image);
    void HidePane(Pane pane);
    void StartIdleWork();
    void LoadLists();
    void RunCommand(MenuCommand command);
    void OnIdle();
    void DoIdleWork();
    void GoToNode(const NodeIDs& node);
    void GoToTopic(const QString& topicKey);
    void OnNodeSelected(const NodeIDs& node);
    void ShowContentsMenu(const NodeIDs& node, const QPoint& globalPosition);
    void RestoreContentsMenu();
    void ShowCommandState();
    void ShowTitle();
    bool IsBusy() const;
    std::vector<ChildPane*> Children() const;
    ChildPane* PaneNamed(std::string_view form) const;

    Database& db_;
    QtHost& host_;
    std::unique_ptr<Ui::fMain> ui_;
    fContents* contents_;
    fIndex* index_;
    fSearch* search_;
    fBookmark* bookmarks_;
    fPage* page_;
    PaneDock* dock_;
    MainMenus* menus_;
    StatusPanels* status_;
    DesktopLayout place_;
    Layout layout_;
    ProgramRun run_;
    MainCommands* commands_;
    IdleWork idle_;
    QTimer tmAutoLoad_;
    QElapsedTimer lastInput_;
    std::unique_ptr<fAbout> splash_;
    bool wasThemeRead_ = false;
    /// Whether what the panes list may have changed, and what the status bar counts.
    bool areListsStale_ = false;
    bool areCountsStale_ = false;
};

}  // namespace snippetarium
