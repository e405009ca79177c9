#pragma once

#include <QObject>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "navigator/commands.h"

class QAction;
class QMainWindow;
class QMenu;
class QWidget;

namespace snippetarium {

/// The menu bar, the pop-up menus and the keys of the main window, made from the tables of
/// navigator/commands.h. Several items may stand for one command.
class MainMenus final : public QObject {
    Q_OBJECT

  public:
    explicit MainMenus(QMainWindow* window);

    QMenu* PopUp(std::string_view name) const;
    /// Null where no item has the name.
    QAction* Action(std::string_view name) const;

    /// Makes the keys of a pop-up menu's items work while the widget or one inside it has the
    /// focus.
    void LendKeys(std::string_view popUp, QWidget* widget) const;

    /// Enables and disables every item by its command.
    void EnableBy(const std::function<bool(MenuCommand)>& isEnabled);
    /// Checks all check items of the command.
    void SetChecked(MenuCommand command, bool isChecked);

  signals:
    void Triggered(MenuCommand command);
    /// A menu opens: what its items depend on may have changed.
    void AboutToShow();

  private:
    void AddRow(const MenuRow& row);
    void AddMenu(const MenuRow& row);
    void AddKey(const KeyRow& row);
    void Remember(QAction* action, std::string_view name, MenuCommand command);

    QMainWindow* window_;
    std::map<std::string_view, QMenu*> menus_;
    std::map<std::string_view, QAction*> actions_;
    std::multimap<MenuCommand, QAction*> byCommand_;
};

}  // namespace snippetarium
