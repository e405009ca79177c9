#include "forms/fMain.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <utility>

#include "forms/editor_windows.h"
#include "forms/fAbout.h"
#include "forms/fBookmark.h"
#include "forms/fContents.h"
#include "forms/fIndex.h"
#include "forms/fPage.h"
#include "forms/fSearch.h"
#include "forms/handler.h"
#include "forms/help_key.h"
#include "forms/icons.h"
#include "forms/main_commands.h"
#include "forms/main_menus.h"
#include "forms/pane_dock.h"
#include "forms/qt_host.h"
#include "forms/qt_text.h"
#include "forms/status_panels.h"
#include "forms/theme.h"
#include "navigator/help.h"
#include "navigator/node_requests.h"
#include "navigator/status_text.h"
#include "store/database.h"
#include "ui_fMain.h"

namespace snippetarium {

namespace {

constexpr int kIdleInterval = 30;
/// How long after a key or a click, in milliseconds, nobody can be said to do nothing. A step of
/// the work for idle times would come between the letters that somebody types.
constexpr qint64 kPauseOfInput = 400;
/// The windows besides the panes and the help.
constexpr const char* kReadingForms[] = {"fFind", "fZoom", "fQuickSearch"};

}  // namespace

fMain::fMain(Database& db, QtHost& host)
    : db_(db),
      host_(host),
      ui_(std::make_unique<Ui::fMain>()),
      contents_(new fContents(db, nullptr)),
      index_(new fIndex(db, nullptr)),
      search_(new fSearch(db, nullptr)),
      bookmarks_(new fBookmark(db, nullptr)),
      page_(new fPage(db, nullptr)),
      dock_(new PaneDock(page_)),
      menus_(nullptr),
      status_(nullptr),
      place_(*this, *dock_),
      layout_(db, place_),
      run_(db, *this, layout_),
      commands_(nullptr) {
    ui_->setupUi(this);
    setCentralWidget(dock_);
    setWindowIcon(Icon("snippetarium"));
    dock_->AddPane(Pane::Contents, contents_, Icon("contents"));
    dock_->AddPane(Pane::Index, index_, Icon("index"));
    dock_->AddPane(Pane::Search, search_, Icon("search"));
    dock_->AddPane(Pane::Bookmark, bookmarks_, Icon("bookmark"));
    menus_ = new MainMenus(this);
    status_ = new StatusPanels(ui_->StatusBar1);
    commands_ = new MainCommands({db_, *this, *dock_, *contents_, *index_, *search_, *bookmarks_,
                                  *page_, layout_, run_.Noise()});
    tmAutoLoad_.setObjectName("tmAutoLoad");
    tmAutoLoad_.setInterval(kIdleInterval);
    qApp->installEventFilter(this);
    db_.SetEndProgram([this] { close(); });
    host_.Boxes().SetPreparation([this] { ShowThemeEarly(); });
    ConnectParts();
    ConnectLists();
    ConnectToolBar();
    ConnectPanes();
    OfferHelp();
}

fMain::~fMain() {
    host_.Boxes().SetPreparation({});
}

void fMain::OfferHelp() {
    const auto offer = [this](QWidget* window, std::string_view form) {
        new HelpKey(window, [this, form] { OpenHelp(db_, AnchorOf(form)); });
    };
    offer(this, "fMain");
    offer(contents_, "fContents");
    offer(index_, "fIndex");
    offer(bookmarks_, "fBookmark");
    offer(page_, "fPage");
}

void fMain::ConnectParts() {
    connect(menus_, &MainMenus::Triggered, this, &fMain::RunCommand);
    connect(menus_, &MainMenus::AboutToShow, this, &fMain::ShowCommandState);
    connect(commands_, &MainCommands::ZoomMenuRequested, this,
            [this](const QPoint& position) { menus_->PopUp("mnuZoomHide")->popup(position); });
    connect(commands_, &MainCommands::ListsChanged, this, &fMain::LoadLists);
    connect(commands_, &MainCommands::WrapChanged, this, &fMain::SetWrapCommands);
    connect(&tmAutoLoad_, &QTimer::timeout, this, &fMain::OnIdle);
    connect(contents_, &fContents::NodeSelected, this, &fMain::OnNodeSelected);
    connect(contents_, &fContents::NodeDeleted, this,
            [this](const NodeIDs& node) { page_->History().Forget(node); });
    connect(contents_, &fContents::CatalogueChanged, this, [this] {
        areListsStale_ = true;
        areCountsStale_ = true;
        AddTextIndexCare(idle_, db_);
        tmAutoLoad_.start();
    });
    connect(contents_, &fContents::MenuRequested, this, &fMain::ShowContentsMenu);
    connect(menus_->PopUp("mnuClassHide"), &QMenu::aboutToHide, this, &fMain::RestoreContentsMenu,
            Qt::QueuedConnection);
    menus_->LendKeys("mnuClassHide", contents_);
    menus_->LendKeys("mnuBkmkHide", this);
    connect(page_, &fPage::SelectionChanged, this, &fMain::ShowCommandState);
    connect(page_, &fPage::NodeRequested, this, &fMain::GoToNode);
    connect(page_, &fPage::MenuRequested, this, [this](const QPoint& globalPosition) {
        menus_->PopUp("mnuEditHide")->popup(globalPosition);
    });
}

void fMain::ConnectLists() {
    connect(index_, &fIndex::DisplayRequested, this, &fMain::GoToTopic);
    connect(index_, &fIndex::SelectionChanged, this, &fMain::ShowCommandState);
    connect(search_, &fSearch::DisplayRequested, this,
            [this](const QString& topicKey, const QStringList& words) {
                GoToTopic(topicKey);
                page_->MarkWords(words);
            });
    connect(bookmarks_, &fBookmark::NodeRequested, this, &fMain::GoToNode);
    connect(bookmarks_, &fBookmark::SelectionChanged, this, &fMain::ShowCommandState);
    connect(bookmarks_, &fBookmark::MenuRequested, this, [this](const QPoint& globalPosition) {
        menus_->PopUp("mnuBkmkHide")->popup(globalPosition);
    });
}

void fMain::ConnectToolBar() {
    const std::pair<QAction*, Pane> panes[] = {
        {ui_->tbrContents, Pane::Contents},
        {ui_->tbrIndex, Pane::Index},
        {ui_->tbrSearch, Pane::Search},
        {ui_->tbrBookmarks, Pane::Bookmark},
    };
    const char* const icons[] = {"contents", "index", "search", "bookmark"};
    const char* const* icon = icons;
    for (const auto& [action, pane] : panes) {
        action->setIcon(Icon(*icon++));
        connect(action, &QAction::triggered, this, [this, pane = pane] {
            commands_->TogglePane(pane);
            ShowCommandState();
        });
    }
    // Commands of the keys' table that also have a button, with its icon.
    const std::pair<const char*, const char*> before[] = {{"actBack", "back"},
                                                          {"actForward", "forward"}};
    for (const auto& [name, image] : before)
        ui_->tbrMain->insertAction(ui_->tbrContents, AsButton(name, image));
    ui_->tbrMain->insertSeparator(ui_->tbrContents);
    ui_->tbrMain->addSeparator();
    ui_->tbrMain->addAction(AsButton("actUndoDelete", "undo"));
    ui_->tbrMain->addAction(AsButton("actTrash", "trash"));
}

QAction* fMain::AsButton(const char* name, const char* image) {
    QAction* const action = menus_->Action(name);
    action->setIcon(Icon(image));
    action->setPriority(QAction::LowPriority);
    return action;
}

void fMain::ConnectPanes() {
    connect(dock_, &PaneDock::Resized, this, [this] { layout_.Arrange(); });
    connect(dock_, &PaneDock::SideResized, this, [this](Side side, int width) {
        layout_.SetSideWidth(side, width * DesktopLayout::kTwipsPerPixel);
    });
    connect(dock_, &PaneDock::PaneRaised, this, [this](Pane pane) { layout_.ShowPane(pane); });
    connect(dock_, &PaneDock::PaneCloseRequested, this, &fMain::HidePane);
    const std::pair<ChildPane*, Pane> panes[] = {
        {contents_, Pane::Contents},
        {index_, Pane::Index},
        {search_, Pane::Search},
        {bookmarks_, Pane::Bookmark},
    };
    for (const auto& [form, pane] : panes) {
        connect(form, &ChildPane::HideRequested, this, [this, pane = pane] { HidePane(pane); });
    }
}

void fMain::HidePane(Pane pane) {
    layout_.HidePane(pane);
    ShowCommandState();
}

bool fMain::Start() {
    run_.Start();
    if (run_.State() != RunState::Ready) return false;
    ApplyTheme(ReadTheme(db_));
    page_->ReadSettings();
    ShowTitle();
    status_->SetReadOnly(db_.IsReadOnly());
    ShowCommandState();
    show();
    if (layout_.IsOpen(Pane::Contents)) {
        contents_->FocusFirst();
    } else {
        page_->FocusFirst();
    }
    StartIdleWork();
    QTimer::singleShot(0, commands_, [this] {
        Handle(db_.Reporter(), Procedure::DraftsEvent,
               [this] { commands_->Editors().OfferDrafts(); });
    });
    return true;
}

void fMain::ShowSplash() {
    splash_ = std::make_unique<fAbout>(fAbout::Use::Splash, db_.FilePath(), nullptr);
    splash_->ShowAtOnce();
}

/// What is said while the program starts, as that the catalogue can only be read.
void fMain::ShowThemeEarly() {
    const bool isEarly = run_.State() < RunState::Ready && db_.GetConnection().IsOpen();
    // Reading it may fail, which would be said too.
    if (isEarly && !std::exchange(wasThemeRead_, true)) ApplyTheme(ReadTheme(db_));
}

void fMain::CloseSplash() {
    splash_.reset();
}

void fMain::SetWrapCommands(bool wrap) {
    menus_->SetChecked(MenuCommand::ToggleWrap, wrap);
    page_->SetWrap(wrap);
}

void fMain::LoadContents() {
    contents_->Load([this] { index_->Load(); });
}

void fMain::FinishIndexPane() {
    search_->LoadLanguages();
    bookmarks_->Load();
    areListsStale_ = false;
}

void fMain::LoadLists() {
    areListsStale_ = false;
    index_->Load();
    bookmarks_->Load();
    search_->LoadLanguages();
}

void fMain::Close() {
    splash_.reset();
    close();
}

void fMain::closeEvent(QCloseEvent* event) {
    // A job that is running would go on without its catalogue.
    if (run_.State() != RunState::Ended && IsBusy()) return event->ignore();
    if (run_.State() != RunState::Ended && !commands_->Editors().CloseAll()) return event->ignore();
    tmAutoLoad_.stop();
    idle_.Clear();
    run_.CloseForms();
    run_.ShutDown();
    event->accept();
}

bool fMain::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::MouseButtonPress || type == QEvent::Wheel)
        lastInput_.start();
    return QMainWindow::eventFilter(watched, event);
}

void fMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) update();
}

bool fMain::IsBusy() const {
    return run_.IsLoading() || host_.Events().IsYielding() || host_.ProgressWindows().IsOpen();
}

std::vector<ChildPane*> fMain::Children() const {
    return {contents_, index_, search_, bookmarks_, page_};
}

ChildPane* fMain::PaneNamed(std::string_view form) const {
    for (ChildPane* pane : Children()) {
        if (pane->objectName() == ToQt(form)) return pane;
    }
    return nullptr;
}

std::vector<std::string> fMain::OpenForms() const {
    std::vector<std::string> forms;
    for (const ChildPane* pane : Children())
        forms.push_back(FromQt(pane->objectName()));
    for (const char* form : kReadingForms) {
        const auto* const window = findChild<QWidget*>(form);
        if (window != nullptr && window->isVisible()) forms.emplace_back(form);
    }
    if (host_.Help().IsVisible()) forms.emplace_back("fHelp");
    return forms;
}

void fMain::SetParentUnloading(std::string_view form) {
    if (ChildPane* pane = PaneNamed(form)) pane->SetParentUnloading(true);
}

void fMain::CloseForm(std::string_view form) {
    if (ChildPane* pane = PaneNamed(form)) {
        pane->close();
    } else if (auto* const window = findChild<QWidget*>(ToQt(form))) {
        window->close();
    } else {
        host_.Help().Close();
    }
}

void fMain::StartIdleWork() {
    AddDailyBackup(idle_, db_);
    AddTextIndexCare(idle_, db_);
    tmAutoLoad_.start();
}

void fMain::OnIdle() {
    if (IsBusy() || QApplication::activeModalWidget() != nullptr) return;
    if (lastInput_.isValid() && !lastInput_.hasExpired(kPauseOfInput)) return;
    Handle(db_.Reporter(), Procedure::MainWindowEvent, [this] { DoIdleWork(); });
}

void fMain::DoIdleWork() {
    if (std::exchange(areCountsStale_, false)) {
        return status_->SetCounts(ToQt(CountsText(db_)));
    }
    if (areListsStale_) {
        LoadLists();
        return;
    }
    status_->SetWork(ToQt(idle_.CurrentName()));
    idle_.Step();
    if (!idle_.IsDone()) return;
    status_->SetWork({});
    tmAutoLoad_.stop();
}

void fMain::RunCommand(MenuCommand command) {
    // Compacting wants the catalogue's file for itself, and an import makes the day's backup if
    // there is none yet. One that is being made in the background is given up for them.
    const bool makesBackups =
        command == MenuCommand::CompactDatabase || command == MenuCommand::Import;
    if (makesBackups) idle_.Clear();
    commands_->Run(command);
    if (makesBackups) StartIdleWork();
    ShowCommandState();
}

void fMain::GoToNode(const NodeIDs& node) {
    Handle(db_.Reporter(), Procedure::MainWindowEvent, [&] { contents_->SelectNode(node); });
}

void fMain::GoToTopic(const QString& topicKey) {
    Handle(db_.Reporter(), Procedure::MainWindowEvent,
           [&] { contents_->SelectTopic(FromQt(topicKey)); });
}

void fMain::OnNodeSelected(const NodeIDs& node) {
    page_->ShowPage(node);
    status_->SetNode(ToQt(PathText(db_, node)).simplified());
    ShowCommandState();
}

void fMain::ShowContentsMenu(const NodeIDs& node, const QPoint& globalPosition) {
    const ContentsCaptions captions = CaptionsFor(node);
    const std::pair<std::string_view, std::string_view> items[] = {
        {"mnuClassHideEdit", captions.edit},
        {"mnuClassHideExport", captions.exporting},
        {"mnuClassHideDelete", captions.deleting},
        {"mnuClassHideAdd", captions.addNew},
        {"mnuClassHideAddExist", captions.addExisting},
    };
    for (const auto& [name, caption] : items) {
        QAction* const action = menus_->Action(name);
        action->setText(ToQt(caption));
        action->setVisible(!caption.empty());
    }
    menus_->Action("mnuClassHideRename")->setVisible(node != NodeIDs{});
    menus_->PopUp("mnuClassHide")->popup(globalPosition);
}

void fMain::RestoreContentsMenu() {
    // A hidden item's key would be dead.
    for (QAction* action : menus_->PopUp("mnuClassHide")->actions())
        action->setVisible(true);
}

void fMain::ShowCommandState() {
    menus_->EnableBy([this](MenuCommand command) { return commands_->CanRun(command, IsBusy()); });
    ui_->tbrContents->setChecked(layout_.IsOpen(Pane::Contents));
    ui_->tbrIndex->setChecked(layout_.IsOpen(Pane::Index));
    ui_->tbrSearch->setChecked(layout_.IsOpen(Pane::Search));
    ui_->tbrBookmarks->setChecked(layout_.IsOpen(Pane::Bookmark));
}

void fMain::ShowTitle() {
    setWindowTitle(db_.IsReadOnly() ? tr("Snippetarium (read only)") : tr("Snippetarium"));
}

}  // namespace snippetarium
