#include "forms/main_menus.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "forms/qt_text.h"

namespace snippetarium {

namespace {

QString Caption(std::string_view caption) {
    return QCoreApplication::translate("Menus", std::string(caption).c_str());
}

}  // namespace

MainMenus::MainMenus(QMainWindow* window) : QObject(window), window_(window) {
    for (const MenuRow& row : MenuRows())
        AddRow(row);
    for (const KeyRow& row : KeyRows())
        AddKey(row);
}

void MainMenus::AddRow(const MenuRow& row) {
    const bool isMenu = row.role == MenuRole::Submenu || row.role == MenuRole::PopUp;
    if (isMenu) return AddMenu(row);
    QMenu* const menu = menus_.at(row.parent);
    if (row.isAfterLine) menu->addSeparator();
    QAction* const action = menu->addAction(Caption(row.caption));
    action->setCheckable(row.role == MenuRole::Check);
    action->setShortcut(QKeySequence(ToQt(row.shortcut)));
    Remember(action, row.name, row.command);
}

void MainMenus::AddMenu(const MenuRow& row) {
    auto* menu = new QMenu(Caption(row.caption), window_);
    menu->setObjectName(ToQt(row.name));
    menu->setToolTipsVisible(true);
    if (!row.parent.empty()) {
        QMenu* const parent = menus_.at(row.parent);
        if (row.isAfterLine) parent->addSeparator();
        parent->addMenu(menu);
    } else if (row.role == MenuRole::Submenu) {
        window_->menuBar()->addMenu(menu);
    }
    connect(menu, &QMenu::aboutToShow, this, &MainMenus::AboutToShow);
    menus_.emplace(row.name, menu);
}

void MainMenus::AddKey(const KeyRow& row) {
    auto* action = new QAction(Caption(row.caption), window_);
    action->setShortcut(QKeySequence(ToQt(row.shortcut)));
    window_->addAction(action);
    Remember(action, row.name, row.command);
}

void MainMenus::Remember(QAction* action, std::string_view name, MenuCommand command) {
    action->setObjectName(ToQt(name));
    connect(action, &QAction::triggered, this, [this, command] { emit Triggered(command); });
    actions_.emplace(name, action);
    byCommand_.emplace(command, action);
}

QMenu* MainMenus::PopUp(std::string_view name) const {
    return menus_.at(name);
}

QAction* MainMenus::Action(std::string_view name) const {
    const auto found = actions_.find(name);
    return found == actions_.end() ? nullptr : found->second;
}

void MainMenus::LendKeys(std::string_view popUp, QWidget* widget) const {
    for (QAction* action : PopUp(popUp)->actions()) {
        if (action->shortcut().isEmpty()) continue;
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        widget->addAction(action);
    }
}

void MainMenus::EnableBy(const std::function<bool(MenuCommand)>& isEnabled) {
    for (const auto& [command, action] : byCommand_)
        action->setEnabled(isEnabled(command));
}

void MainMenus::SetChecked(MenuCommand command, bool isChecked) {
    const auto [first, last] = byCommand_.equal_range(command);
    for (auto at = first; at != last; ++at)
        at->second->setChecked(isChecked);
}

}  // namespace snippetarium
