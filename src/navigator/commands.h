#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace snippetarium {

/// What a menu item, a button or a key does.
enum class MenuCommand : std::uint8_t {
    None,
    // File
    NewApplication,
    NewClass,
    NewProcedure,
    Import,
    ExportShownPage,
    ExportSelected,
    AddExistingClass,
    DeleteSelected,
    Print,
    Exit,
    // the page view
    CopyPageText,
    ClearPage,
    SelectAllPageText,
    ToggleWrap,
    FindInPage,
    EditShownPage,
    CopyWholePage,
    ZoomWindow,
    GoBack,
    GoForward,
    LargerText,
    SmallerText,
    NormalText,
    // editors
    EditApplication,
    EditClass,
    EditProcedure,
    EditLanguages,
    EditNoiseWords,
    // the contents tree
    EditNode,
    ExportNode,
    RenameNode,
    AddNew,
    AddExisting,
    UndoDelete,
    ShowTrash,
    // the index and the bookmarks
    EditIndexWord,
    DeleteIndexWord,
    ShowBookmark,
    RemoveBookmark,
    AddBookmark,
    // the zoom window
    SelectAllZoomText,
    CopyZoomText,
    FindInZoom,
    // utilities and help
    CompactDatabase,
    Configure,
    ShowHelp,
    ShowAbout,
    // panes
    ShowContents,
    ShowIndex,
    ShowSearch,
    ShowBookmarks,
    QuickSearch,
    NextPane,
    BackToPage,
};

/// How an item stands in its menu.
enum class MenuRole : std::uint8_t {
    Item,
    /// Opens the items that name it as their parent.
    Submenu,
    /// A menu of its own, shown on a right click.
    PopUp,
    /// Has a check mark.
    Check,
};

/// One row of the menus.
struct MenuRow {
    /// The item's name: "mnuFileNew".
    std::string_view name;
    /// With "&" before the access key.
    std::string_view caption;
    /// The name of the item above; empty for the menu bar's own and for pop-up menus.
    std::string_view parent;
    MenuRole role = MenuRole::Item;
    MenuCommand command = MenuCommand::None;
    /// "Ctrl+F", as key sequences are written; empty for none.
    std::string_view shortcut = {};
    /// Whether a line divides it from the item before.
    bool isAfterLine = false;
};

/// The menu bar and the pop-up menus, each item behind its parent, in the order in which they are
/// shown.
std::span<const MenuRow> MenuRows();

/// A key that works everywhere in the main window, or a button, whose command has no item in the
/// menus of that name.
struct KeyRow {
    /// The action's name: "actUndoDelete".
    std::string_view name;
    std::string_view caption;
    MenuCommand command = MenuCommand::None;
    std::string_view shortcut;
};
std::span<const KeyRow> KeyRows();

}  // namespace snippetarium
