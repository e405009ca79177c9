#include "navigator/commands.h"

#include <array>

namespace snippetarium {

namespace {

using enum MenuRole;

// clang-format off
constexpr std::array kMenuRows = {
    MenuRow{"mnuFile",                "&File",                         "", Submenu},
    MenuRow{"mnuFileNew",             "&New",                          "mnuFile", Submenu},
    MenuRow{"mnuFileNewApp",          "&Application",                  "mnuFileNew", Item, Command::NewApplication, "Ctrl+Shift+N"},
    MenuRow{"mnuFileNewClass",        "Clas&s",                        "mnuFileNew", Item, Command::NewClass},
    MenuRow{"mnuFileNewCode",         "Pr&ocedure",                    "mnuFileNew", Item, Command::NewProcedure, "Ctrl+N"},
    MenuRow{"mnuFileImport",          "&Import from Code File",        "mnuFile", Item, Command::Import, "Ctrl+I", true},
    MenuRow{"mnuFileExportCurrent",   "Expor&t Current Code",          "mnuFile", Item, Command::ExportShownPage, "Ctrl+E"},
    MenuRow{"mnuFileExportSel",       "Expo&rt Selected Content",      "mnuFile", Item, Command::ExportSelected},
    MenuRow{"mnuFileExist",           "Add Existing Class",            "mnuFile", Item, Command::AddExistingClass, "", true},
    MenuRow{"mnuFileDelete",          "&Delete Selected Content",      "mnuFile", Item, Command::DeleteSelected},
    MenuRow{"mnuFilePrint",           "&Print Results",                "mnuFile", Item, Command::Print, "Ctrl+P", true},
    MenuRow{"mnuFileExit",            "E&xit",                         "mnuFile", Item, Command::Exit, "Ctrl+Q", true},
    MenuRow{"mnuEdit",                "&Edit",                         "", Submenu},
    MenuRow{"mnuEditDisplay",         "Page",                          "mnuEdit", Submenu},
    MenuRow{"mnuEditDisplayCopy",     "&Copy",                         "mnuEditDisplay", Item, Command::CopyPageText},
    MenuRow{"mnuEditDisplayClear",    "Clea&r",                        "mnuEditDisplay", Item, Command::ClearPage},
    MenuRow{"mnuEditDisplaySelectAll", "&Select All",                  "mnuEditDisplay", Item, Command::SelectAllPageText},
    MenuRow{"mnuEditDisplayWrap",     "&Wrap",                         "mnuEditDisplay", Check, Command::ToggleWrap, "", true},
    MenuRow{"mnuEditDisplayFind",     "&Find",                         "mnuEditDisplay", Item, Command::FindInPage, "Ctrl+F", true},
    MenuRow{"mnuEditApp",             "&Application",                  "mnuEdit", Item, Command::EditApplication, "", true},
    MenuRow{"mnuEditClass",           "Class/&Module",                 "mnuEdit", Item, Command::EditClass},
    MenuRow{"mnuEditCode",            "Pr&ocedure",                    "mnuEdit", Item, Command::EditProcedure},
    MenuRow{"mnuEditLanguage",        "&Language",                     "mnuEdit", Item, Command::EditLanguages, "", true},
    MenuRow{"mnuEditNoise",           "Noise &Words",                  "mnuEdit", Item, Command::EditNoiseWords},
    MenuRow{"mnuIndex",               "&Index",                        "", Submenu},
    MenuRow{"mnuIndexEdit",           "&Edit Selected Index",          "mnuIndex", Item, Command::EditIndexWord},
    MenuRow{"mnuIndexDel",            "&Delete Selected Index",        "mnuIndex", Item, Command::DeleteIndexWord},
    MenuRow{"mnuUtiliti",             "&Utilities",                    "", Submenu},
    MenuRow{"mnuUtilityDBUtilities",  "Data&base Utilities",           "mnuUtiliti", Submenu},
    MenuRow{"mnuUtilityCompactDB",    "Co&mpact and Repair Database",  "mnuUtilityDBUtilities", Item, Command::CompactDatabase},
    MenuRow{"mnuUtilityConfig",       "Config&uration...",             "mnuUtiliti", Item, Command::Configure},
    MenuRow{"mnuHelp",                "&Help",                         "", Submenu},
    MenuRow{"mnuHelpHelp",            "Snippetarium &Help",            "mnuHelp", Item, Command::ShowHelp},
    MenuRow{"mnuHelpAbout",           "&About Snippetarium",           "mnuHelp", Item, Command::ShowAbout},

    MenuRow{"mnuEditHide",            "EditHide",                      "", PopUp},
    MenuRow{"mnuEditHideCopy",        "&Copy",                         "mnuEditHide", Item, Command::CopyPageText},
    MenuRow{"mnuEditHideClear",       "Clea&r",                        "mnuEditHide", Item, Command::ClearPage},
    MenuRow{"mnuEditHideSelect",      "&Select All",                   "mnuEditHide", Item, Command::SelectAllPageText},
    MenuRow{"mnuEditHideWrap",        "&Wrap",                         "mnuEditHide", Check, Command::ToggleWrap, "", true},
    MenuRow{"mnuEditHideFind",        "&Find",                         "mnuEditHide", Item, Command::FindInPage},
    MenuRow{"mnuEditHideEdit",        "&Edit",                         "mnuEditHide", Item, Command::EditShownPage, "", true},
    MenuRow{"mnuEditHideExport",      "Expor&t",                       "mnuEditHide", Item, Command::ExportShownPage},

    MenuRow{"mnuClassHide",           "ClassHide",                     "", PopUp},
    MenuRow{"mnuClassHideEdit",       "&Edit",                         "mnuClassHide", Item, Command::EditNode},
    MenuRow{"mnuClassHideExport",     "Expor&t",                       "mnuClassHide", Item, Command::ExportNode},
    MenuRow{"mnuClassHideDelete",     "&Delete",                       "mnuClassHide", Item, Command::DeleteSelected, "Del"},
    MenuRow{"mnuClassHideRename",     "&Rename",                       "mnuClassHide", Item, Command::RenameNode, "F2"},
    MenuRow{"mnuClassHideAdd",        "Add &New",                      "mnuClassHide", Item, Command::AddNew, "", true},
    MenuRow{"mnuClassHideAddExist",   "Add Exi&sting",                 "mnuClassHide", Item, Command::AddExisting},

    MenuRow{"mnuBkmkHide",            "BookmarkHide",                  "", PopUp},
    MenuRow{"mnuBkmkHideDisplay",     "Displa&y",                      "mnuBkmkHide", Item, Command::ShowBookmark},
    MenuRow{"mnuBkmkHideRemove",      "&Remove",                       "mnuBkmkHide", Item, Command::RemoveBookmark},
    MenuRow{"mnuBkmkHideAdd",         "&Add",                          "mnuBkmkHide", Item, Command::AddBookmark, "Ctrl+D"},

    MenuRow{"mnuZoomHide",            "ZoomHide",                      "", PopUp},
    MenuRow{"mnuZoomHideSelect",      "&Select All",                   "mnuZoomHide", Item, Command::SelectAllZoomText},
    MenuRow{"mnuZoomHideCopy",        "&Copy",                         "mnuZoomHide", Item, Command::CopyZoomText},
    MenuRow{"mnuZoomHideFind",        "&Find",                         "mnuZoomHide", Item, Command::FindInZoom},
};

constexpr std::array kKeyRows = {
    KeyRow{"actShowContents",  "&Contents",           Command::ShowContents,  "Ctrl+1"},
    KeyRow{"actShowIndex",     "&Index",              Command::ShowIndex,     "Ctrl+2"},
    KeyRow{"actShowSearch",    "&Search",             Command::ShowSearch,    "Ctrl+3"},
    KeyRow{"actShowBookmarks", "&Bookmarks",          Command::ShowBookmarks, "Ctrl+4"},
    KeyRow{"actBack",          "&Back",               Command::GoBack,        "Alt+Left"},
    KeyRow{"actForward",       "&Forward",            Command::GoForward,     "Alt+Right"},
    KeyRow{"actQuickSearch",   "&Quick Search",       Command::QuickSearch,   "Ctrl+K"},
    KeyRow{"actUndoDelete",    "&Undo Delete",        Command::UndoDelete,    "Ctrl+Z"},
    KeyRow{"actTrash",         "&Trash...",           Command::ShowTrash,     ""},
    KeyRow{"actCopyPage",      "Copy &Whole Page",    Command::CopyWholePage, "Ctrl+Shift+C"},
    KeyRow{"actZoomWindow",    "&Zoom Window",        Command::ZoomWindow,    "Ctrl+Shift+Z"},
    KeyRow{"actLargerText",    "&Larger Text",        Command::LargerText,    "Ctrl++"},
    KeyRow{"actSmallerText",   "S&maller Text",       Command::SmallerText,   "Ctrl+-"},
    KeyRow{"actNormalText",    "&Normal Text Size",   Command::NormalText,    "Ctrl+0"},
    KeyRow{"actNextPane",      "Ne&xt Pane",          Command::NextPane,      "F6"},
    KeyRow{"actBackToPage",    "Back to the &Page",   Command::BackToPage,    "Esc"},
};
// clang-format on

}  // namespace

std::span<const MenuRow> MenuRows() {
    return kMenuRows;
}

std::span<const KeyRow> KeyRows() {
    return kKeyRows;
}

}  // namespace snippetarium
