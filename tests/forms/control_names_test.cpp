#include <gtest/gtest.h>

#include <QAction>
#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QStatusBar>
#include <QTreeView>
#include <functional>
#include <memory>
#include <set>

#include "forms/fConfigure.h"
#include "forms/fFind.h"
#include "forms/fLogError.h"
#include "forms/fMsgBox.h"
#include "forms/fPrgrCancel.h"
#include "forms/fProgressBar1.h"
#include "forms/fProgressBar2.h"
#include "forms/fQuickSearch.h"
#include "forms/fTopicsFound.h"
#include "forms/fTrash.h"
#include "forms/fZoom.h"
#include "navigator/help.h"
#include "navigator/node_deletion.h"
#include "search/topic_list.h"
#include "support/import_export_report.h"
#include "tests/fakes.h"
#include "tests/forms/desktop_fixture.h"
#include "tests/forms/named_control.h"

namespace snippetarium::test {
namespace {

// clang-format off
constexpr NamedControl kControls[] = {
    {"fMsgBox",       "lblMsg",       "QLabel",         "?"},
    {"fMsgBox",       "cmdYes",       "QPushButton",    "&Yes"},
    {"fMsgBox",       "cmdYesToAll",  "QPushButton",    "Y&es to all"},
    {"fMsgBox",       "cmdNo",        "QPushButton",    "&No"},
    {"fMsgBox",       "cmdNoToAll",   "QPushButton",    "N&o to all"},
    {"fMsgBox",       "cmdCancel",    "QPushButton",    "&Cancel"},
    {"fLogError",     "lblLog",       "QLabel",         "Export report:"},
    {"fLogError",     "txtLog",       "QPlainTextEdit", ""},
    {"fLogError",     "cmdSaveAS",    "QPushButton",    "&Save As..."},
    {"fProgressBar2", "lblTitle",     "QLabel",         "Starting, please wait ..."},
    {"fProgressBar2", "lblUnit",      "QLabel",         "Unit Progress:"},
    {"fProgressBar2", "prgUnit",      "QProgressBar",   ""},
    {"fProgressBar2", "lblTotal",     "QLabel",         "Total Progress:"},
    {"fProgressBar2", "prgTotal",     "QProgressBar",   ""},
    {"fProgressBar2", "lblFolders",   "QLabel",         ""},
    {"fProgressBar2", "lblContent",   "QLabel",         ""},
    {"fProgressBar2", "cmdCancel",    "QPushButton",    "&Cancel"},
    {"fProgressBar1", "prgBar",       "QProgressBar",   ""},
    {"fPrgrCancel",   "cmdCancel",    "QPushButton",    "&Cancel"},
    {"fConfigure",    "fraContent",   "QGroupBox",      "Content"},
    {"fConfigure",    "fraIndex",     "QGroupBox",      "Index"},
    {"fConfigure",    "fraSearch",    "QGroupBox",      "Search"},
    {"fConfigure",    "fraBookmark",  "QGroupBox",      "Bookmark"},
    {"fConfigure",    "optnContent",  "QButtonGroup",   ""},
    {"fConfigure",    "optnIndex",    "QButtonGroup",   ""},
    {"fConfigure",    "optnSearch",   "QButtonGroup",   ""},
    {"fConfigure",    "optnBookmark", "QButtonGroup",   ""},
    {"fConfigure",    "cmdOK",        "QPushButton",    "&OK"},
    {"fConfigure",    "cmdCancel",    "QPushButton",    "&Cancel"},
    {"fConfigure",    "cmdHelp",      "QPushButton",    "&Help"},
    {"fMain",         "StatusBar1",   "QStatusBar",     ""},
    {"fMain",         "fContents",    "QWidget",        ""},
    {"fMain",         "fPage",        "QWidget",        ""},
    {"fMain",         "trVwClass",    "QTreeView",      ""},
    {"fMain",         "txtSearch",    "QLineEdit",      ""},
    {"fMain",         "optnKeyword",  "QRadioButton",   ""},
    {"fMain",         "optnFunction", "QRadioButton",   ""},
    {"fMain",         "optnCode",     "QRadioButton",   ""},
    {"fMain",         "optnComment",  "QRadioButton",   ""},
    {"fMain",         "optnAuthor",   "QRadioButton",   ""},
    {"fMain",         "optnDate",     "QRadioButton",   ""},
    {"fMain",         "chckLanguage", "QCheckBox",      ""},
    {"fMain",         "cmbLanguage",  "QComboBox",      ""},
    {"fMain",         "cmdSrchListTopic", "QPushButton", "&List Topics"},
    {"fMain",         "cmdSrchDisplay", "QPushButton",  "Displa&y"},
    {"fMain",         "lstVwSearch",  "QTreeView",      ""},
    {"fFind",         "txtFind",      "QLineEdit",      ""},
    {"fFind",         "chckCase",     "QCheckBox",      "&Match case"},
    {"fFind",         "chckWord",     "QCheckBox",      "&Whole word"},
    {"fFind",         "cmdFindNext",  "QPushButton",    "&Find Next"},
    {"fFind",         "cmdCancel",    "QPushButton",    "&Cancel"},
    {"fZoom",         "txtZoom",      "QPlainTextEdit", ""},
    {"fQuickSearch",  "txtQuick",     "QLineEdit",      ""},
    {"fQuickSearch",  "lstHits",      "QListView",      ""},
    {"fQuickSearch",  "lblMore",      "QLabel",         ""},
    {"fTopicsFound",  "lstVwTopic",   "QTreeView",      ""},
    {"fTopicsFound",  "cmdDisplay",   "QPushButton",    "&Display"},
    {"fTopicsFound",  "cmdCancel",    "QPushButton",    "&Cancel"},
};

/// The menu bar and the pop-up menus: name, caption, and the menu that it stands in.
struct NamedItem {
    const char* name;
    const char* caption;
    const char* menu;
};
constexpr NamedItem kItems[] = {
    {"mnuFile", "&File", ""}, {"mnuFileNew", "&New", "mnuFile"},
    {"mnuFileNewApp", "&Application", "mnuFileNew"}, {"mnuFileNewClass", "Clas&s", "mnuFileNew"},
    {"mnuFileNewCode", "Pr&ocedure", "mnuFileNew"},
    {"mnuFileImport", "&Import from Code File", "mnuFile"},
    {"mnuFileExportCurrent", "Expor&t Current Code", "mnuFile"},
    {"mnuFileExportSel", "Expo&rt Selected Content", "mnuFile"},
    {"mnuFileExist", "Add Existing Class", "mnuFile"},
    {"mnuFileDelete", "&Delete Selected Content", "mnuFile"},
    {"mnuFilePrint", "&Print Results", "mnuFile"}, {"mnuFileExit", "E&xit", "mnuFile"},
    {"mnuEdit", "&Edit", ""}, {"mnuEditDisplay", "Page", "mnuEdit"},
    {"mnuEditDisplayCopy", "&Copy", "mnuEditDisplay"},
    {"mnuEditDisplayClear", "Clea&r", "mnuEditDisplay"},
    {"mnuEditDisplaySelectAll", "&Select All", "mnuEditDisplay"},
    {"mnuEditDisplayWrap", "&Wrap", "mnuEditDisplay"},
    {"mnuEditDisplayFind", "&Find", "mnuEditDisplay"}, {"mnuEditApp", "&Application", "mnuEdit"},
    {"mnuEditClass", "Class/&Module", "mnuEdit"}, {"mnuEditCode", "Pr&ocedure", "mnuEdit"},
    {"mnuEditLanguage", "&Language", "mnuEdit"}, {"mnuEditNoise", "Noise &Words", "mnuEdit"},
    {"mnuIndex", "&Index", ""}, {"mnuIndexEdit", "&Edit Selected Index", "mnuIndex"},
    {"mnuIndexDel", "&Delete Selected Index", "mnuIndex"}, {"mnuUtiliti", "&Utilities", ""},
    {"mnuUtilityDBUtilities", "Data&base Utilities", "mnuUtiliti"},
    {"mnuUtilityCompactDB", "Co&mpact and Repair Database", "mnuUtilityDBUtilities"},
    {"mnuUtilityConfig", "Config&uration...", "mnuUtiliti"}, {"mnuHelp", "&Help", ""},
    {"mnuHelpHelp", "Snippetarium &Help", "mnuHelp"},
    {"mnuHelpAbout", "&About Snippetarium", "mnuHelp"}, {"mnuEditHide", "EditHide", ""},
    {"mnuEditHideCopy", "&Copy", "mnuEditHide"}, {"mnuEditHideClear", "Clea&r", "mnuEditHide"},
    {"mnuEditHideSelect", "&Select All", "mnuEditHide"},
    {"mnuEditHideWrap", "&Wrap", "mnuEditHide"}, {"mnuEditHideFind", "&Find", "mnuEditHide"},
    {"mnuEditHideEdit", "&Edit", "mnuEditHide"}, {"mnuEditHideExport", "Expor&t", "mnuEditHide"},
    {"mnuClassHide", "ClassHide", ""}, {"mnuClassHideEdit", "&Edit", "mnuClassHide"},
    {"mnuClassHideExport", "Expor&t", "mnuClassHide"},
    {"mnuClassHideDelete", "&Delete", "mnuClassHide"},
    {"mnuClassHideRename", "&Rename", "mnuClassHide"},
    {"mnuClassHideAdd", "Add &New", "mnuClassHide"},
    {"mnuClassHideAddExist", "Add Exi&sting", "mnuClassHide"},
    {"mnuBkmkHide", "BookmarkHide", ""}, {"mnuBkmkHideDisplay", "Displa&y", "mnuBkmkHide"},
    {"mnuBkmkHideRemove", "&Remove", "mnuBkmkHide"}, {"mnuBkmkHideAdd", "&Add", "mnuBkmkHide"},
    {"mnuZoomHide", "ZoomHide", ""}, {"mnuZoomHideSelect", "&Select All", "mnuZoomHide"},
    {"mnuZoomHideCopy", "&Copy", "mnuZoomHide"}, {"mnuZoomHideFind", "&Find", "mnuZoomHide"},
};
// clang-format on

std::string CaptionOf(const QObject& control) {
    for (const char* property : {"text", "title"}) {
        const QVariant value = control.property(property);
        if (value.isValid() && !control.inherits("QProgressBar"))
            return value.toString().toStdString();
    }
    return {};
}

class FormsTest : public DesktopFixture {
  protected:
    void SetUp() override { StartProgram(); }

    /// A form as the program opens it.
    std::unique_ptr<QWidget> Make(const std::string& form) {
        if (form == "fMsgBox") return std::make_unique<fMsgBox>("?", openHelp_, nullptr);
        if (form == "fLogError")
            return std::make_unique<fLogError>(*db_, kExportReportLabel, "", nullptr);
        if (form == "fProgressBar1") return std::make_unique<fProgressBar1>(nullptr);
        if (form == "fProgressBar2") return std::make_unique<fProgressBar2>(nullptr);
        if (form == "fPrgrCancel") return std::make_unique<fPrgrCancel>(nullptr);
        if (form == "fTopicsFound")
            return std::make_unique<fTopicsFound>(*db_, topicList_, nullptr);
        if (form == "fFind") return std::make_unique<fFind>(*db_, nullptr);
        if (form == "fZoom") return std::make_unique<fZoom>(*db_, nullptr);
        if (form == "fQuickSearch") {
            return std::make_unique<fQuickSearch>(*db_, Get<QWidget>("fPage"), *window_);
        }
        if (form == "fTrash") return std::make_unique<fTrash>(*db_, deletion_, nullptr);
        if (form == "fConfigure") return std::make_unique<fConfigure>(*db_, layout_, nullptr);
        return nullptr;
    }

    class NoWindow final : public LayoutWindow {
        WindowPlace Place() const override { return {}; }
        void SetPlace(const WindowPlace&) override {}
        ClientSize Client() const override { return {}; }
        void DockPane(Pane, Side, bool) override {}
        void UndockPane(Pane) override {}
        void SetSideWidth(Side, std::int32_t) override {}
        void PlacePage(const PagePlace&) override {}
    };

    std::vector<std::string> topics_;
    fMsgBox::OpenHelp openHelp_ = [this](std::string_view topic) { topics_.emplace_back(topic); };
    NoWindow noWindow_;
    TopicList topicList_;
    NodeDeletion deletion_{*db_};
    Layout layout_{*db_, noWindow_};
};

TEST_F(FormsTest, HaveControlsOfTheNamesKindsAndCaptionsThatTheyAreKnownBy) {
    for (const NamedControl& row : kControls) {
        const std::unique_ptr<QWidget> made = Make(row.form);
        const QWidget& form = made ? *made : static_cast<const QWidget&>(*window_);
        const QObject* control = form.findChild<QObject*>(row.name);
        ASSERT_NE(control, nullptr) << row.form << "." << row.name;
        EXPECT_TRUE(control->inherits(row.kind)) << row.form << "." << row.name;
        if (*row.caption == '\0') continue;
        EXPECT_EQ(CaptionOf(*control), row.caption) << row.name;
    }
}

TEST_F(FormsTest, HaveAllMenuItemsInTheirMenusAndOrder) {
    std::map<std::string, std::vector<std::string>> expected;
    for (const NamedItem& row : kItems) {
        expected[row.menu].push_back(row.name);
        QAction* action = window_->findChild<QAction*>(row.name);
        if (const auto* menu = window_->findChild<QMenu*>(row.name)) action = menu->menuAction();
        ASSERT_NE(action, nullptr) << row.name;
        EXPECT_EQ(action->text().toStdString(), row.caption) << row.name;
    }
    for (const auto& [name, items] : expected) {
        if (name.empty()) continue;
        const QMenu* const menu = window_->findChild<QMenu*>(QString::fromStdString(name));
        if (menu == nullptr) continue;
        std::vector<std::string> found;
        for (const QAction* action : menu->actions()) {
            if (action->isSeparator()) continue;
            const QObject* item =
                action->menu() ? static_cast<const QObject*>(action->menu()) : action;
            found.push_back(item->objectName().toStdString());
        }
        EXPECT_EQ(found, items) << name;
    }
    std::string bar;
    for (const QAction* action : window_->menuBar()->actions())
        bar += action->text().toStdString() + " ";
    EXPECT_EQ(bar, "&File &Edit &Index &Utilities &Help ");
}

TEST_F(FormsTest, OpenTheirHelpAtF1AndAtTheHelpButton) {
    const char* const forms[] = {"fMsgBox",      "fConfigure", "fTrash", "fLogError",
                                 "fTopicsFound", "fFind",      "fZoom",  "fQuickSearch"};
    for (const char* form : forms) {
        const std::unique_ptr<QWidget> window = Make(form);
        window->show();
        qtHost_.Help().Close();
        topics_.clear();
        PressKey(*window->nextInFocusChain(), Qt::Key_F1);
        EXPECT_TRUE(qtHost_.Help().IsVisible() ||
                    topics_ == std::vector<std::string>{"UseReuseExport"})
            << form;
        auto* const help = window->findChild<QPushButton*>("cmdHelp");
        if (help == nullptr) continue;
        qtHost_.Help().Close();
        help->click();
        EXPECT_TRUE(qtHost_.Help().IsVisible()) << form;
    }
}

TEST_F(FormsTest, CanBeUsedByKeyboardAndByReadersOfTheScreen) {
    const char* const forms[] = {"fMsgBox",      "fLogError",  "fProgressBar2", "fPrgrCancel",
                                 "fTrash",       "fConfigure", "fFind",         "fZoom",
                                 "fQuickSearch", "fMain"};
    for (const char* form : forms) {
        const std::unique_ptr<QWidget> made = Make(form);
        const QWidget& window = made ? *made : static_cast<const QWidget&>(*window_);
        std::set<QString> accessKeys;
        if (!made) {
            for (const QAction* menu : window_->menuBar()->actions())
                accessKeys.insert(QKeySequence::mnemonic(menu->text()).toString());
        }
        for (const QWidget* control : window.findChildren<QWidget*>()) {
            if (control->objectName().isEmpty() || control->objectName().startsWith("qt_"))
                continue;
            if (control->focusPolicy() == Qt::NoFocus || control->inherits("QMenu") ||
                control->inherits("QScrollBar") || control->inherits("QHeaderView")) {
                continue;
            }
            const bool hasCaption = !CaptionOf(*control).empty();
            EXPECT_TRUE(hasCaption || !control->accessibleName().isEmpty())
                << form << "." << control->objectName().toStdString() << " has no name to be read";
            if (!control->inherits("QAbstractButton")) continue;
            const QString key =
                QKeySequence::mnemonic(QString::fromStdString(CaptionOf(*control))).toString();
            if (key.isEmpty()) continue;
            EXPECT_TRUE(accessKeys.insert(key).second) << form << " " << key.toStdString();
        }
    }
}

}  // namespace
}  // namespace snippetarium::test
