#include "navigator/commands.h"

#include <array>

namespace snippetarium {

namespace {

using enum MenuRole;

// clang-format off
constexpr std::array kMenuRows = {
    MenuRow{"mnuFile",                "&File",                         "", Submenu},
    MenuRow{"mnuFileNew",             "&New",                          "mnuFile", Submenu},
    MenuRow{"mnuFileNewApp",          "&Application",                  "mnuFileNew", Item, MenuCommand::NewApplication, "Ctrl+Shift+N"},
    MenuRow{"mnuFileNewClass",        "Clas&s",                        "mnuFileNew", Item, MenuCommand::NewClass},
    MenuRow{"mnuFileNewCode",         "Pr&ocedure",                    "mnuFileNew", Item, MenuCommand::NewProcedure, "Ctrl+N"},
    MenuRow{"mnuFileImport",          "&Import from Code File",        "mnuFile", Item, MenuCommand::Import, "Ctrl+I", true},
    MenuRow{"mnuFileExportCurrent",   "Expor&t Current Code",          "mnuFile", Item, MenuCommand::ExportShownPage, "Ctrl+E"},
    MenuRow{"mnuFileExportSel",       "Expo&rt Selected Content",      "mnuFile", Item, MenuCommand::ExportSelected},
    MenuRow{"mnuFileExist",           "Add Existing Class",            "mnuFile", Item, MenuCommand::AddExistingClass, "", true},
    MenuRow{"mnuFileDelete",          "&Delete Selected Content",      "mnuFile", Item, MenuCommand::DeleteSelected},
    MenuRow{"mnuFilePrint",           "&Print Results",                "mnuFile", Item, MenuCommand::Print, "Ctrl+P", true},
    MenuRow{"mnuFileExit",            "E&xit",                         "mnuFile", Item, MenuCommand::Exit, "Ctrl+Q", true},
    MenuRow{"mnuEdit",                "&Edit",                         "", Submenu},
    MenuRow{"mnuEditDisplay",         "Page",                          "mnuEdit", Submenu},
    MenuRow{"mnuEditDisplayCopy",     "&Copy",                         "mnuEditDisplay", Item, MenuCommand::CopyPageText},
    MenuRow{"mnuEditDisplayClear",    "Clea&r",                        "mnuEditDisplay", Item, MenuCommand::ClearPage},
    MenuRow{"mnuEditDisplaySelectAll", "&Select All",                  "mnuEditDisplay", Item, MenuCommand::SelectAllPageText},
    MenuRow{"mnuEditDisplayWrap",     "&Wrap",                         "mnuEditDisplay", Check, MenuCommand::ToggleWrap, "", true},
    MenuRow{"mnuEditDisplayFind",     "&Find",                         "mnuEditDisplay", Item, MenuCommand::FindInPage, "Ctrl+F", true},
    MenuRow{"mnuEditApp",             "&Application",                  "mnuEdit", Item, MenuCommand::EditApplication, "", true},
    MenuRow{"mnuEditClass",           "Class/&Module",                 "mnuEdit", Item, MenuCommand::EditClass},
    MenuRow{"mnuEditCode",            "Pr&ocedure",                    "mnuEdit", Item, MenuCommand::EditProcedure},
    MenuRow{"mnuEditLanguage",        "&Language",                     "mnuEdit", Item, MenuCommand::EditLanguages, "", true},
    MenuRow{"mnuEditNoise",           "Noise &Words",                  "mnuEdit", Item, MenuCommand::EditNoiseWords},
    MenuRow{"mnuIndex",               "&Index",                        "", Submenu},
    MenuRow{"mnuIndexEdit",           "&Edit Selected Index",          "mnuIndex", Item, MenuCommand::EditIndexWord},
    MenuRow{"mnuIndexDel",            "&Delete Selected Index",        "mnuIndex", Item, MenuCommand::DeleteIndexWord},
    MenuRow{"mnuUtiliti",             "&Utilities",                    "", Submenu},
    MenuRow{"mnuUtilityDBUtilities",  "Data&base Utilities",           "mnuUtiliti", Submenu},
    MenuRow{"mnuUtilityCompactDB",    "Co&mpact and Repair Database",  "mnuUtilityDBUtilities", Item, MenuCommand::CompactDatabase},
    MenuRow{"mnuUtilityConfig",       "Config&uration...",             "mnuUtiliti", Item, MenuCommand::Configure},
    MenuRow{"mnuHelp",                "&Help",                         "", Submenu},
    MenuRow{"mnuHelpHelp",            "Snippetarium &Help",            "mnuHelp", Item, MenuCommand::ShowHelp},
    MenuRow{"mnuHelpAbout",           "&About Snippetarium",           "mnuHelp", Item, MenuCommand::ShowAbout},

    MenuRow{"mnuEditHide",            "EditHide",                      "", PopUp},
    MenuRow{"mnuEditHideCopy",        "&Copy",                         "mnuEditHide", Item, MenuCommand::CopyPageText},
    MenuRow{"mnuEditHideClear",       "Clea&r",                        "mnuEditHide", Item, MenuCommand::ClearPage},
    MenuRow{"mnuEditHideSelect",      "&Select All",                   "mnuEditHide", Item, MenuCommand::SelectAllPageText},
    MenuRow{"mnuEditHideWrap",        "&Wrap",                         "mnuEditHide", Check, MenuCommand::ToggleWrap, "", true},
    MenuRow{"mnuEditHideFind",        "&Find",                         "mnuEditHide", Item, MenuCommand::FindInPage},
    MenuRow{"mnuEditHideEdit",        "&Edit",                         "mnuEditHide", Item, MenuCommand::EditShownPage, "", true},
    MenuRow{"mnuEditHideExport",      "Expor&t",                       "mnuEditHide", Item, MenuCommand::ExportShownPage},

    MenuRow{"mnuClassHide",           "ClassHide",                     "", PopUp},
    MenuRow{"mnuClassHideEdit",       "&Edit",                         "mnuClassHide", Item, MenuCommand::EditNode},
    MenuRow{"mnuClassHideExport",     "Expor&t",                       "mnuClassHide", Item, MenuCommand::ExportNode},
    MenuRow{"mnuClassHideDelete",     "&Delete",                       "mnuClassHide", Item, MenuCommand::DeleteSelected, "Del"},
    MenuRow{"mnuClassHideRename",     "&Rename",                       "mnuClassHide", Item, MenuCommand::RenameNode, "F2"},
    MenuRow{"mnuClassHideAdd",        "Add &New",                      "mnuClassHide", Item, MenuCommand::AddNew, "", true},
    MenuRow{"mnuClassHideAddExist",   "Add Exi&sting",                 "mnuClassHide", Item, MenuCommand::AddExisting},

    MenuRow{"mnuBkmkHide",            "BookmarkHide",                  "", PopUp},
    MenuRow{"mnuBkmkHideDisplay",     "Displa&y",                      "mnuBkmkHide", Item, MenuCommand::ShowBookmark},
    MenuRow{"mnuBkmkHideRemove",      "&Remove",                       "mnuBkmkHide", Item, MenuCommand::RemoveBookmark},
    MenuRow{"mnuBkmkHideAdd",         "&Add",                          "mnuBkmkHide", Item, MenuCommand::AddBookmark, "Ctrl+D"},

    MenuRow{"mnuZoomHide",            "ZoomHide",                      "", PopUp},
    MenuRow{"mnuZoomHideSelect",      "&Select All",                   "mnuZoomHide", Item, MenuCommand::SelectAllZoomText},
    MenuRow{"mnuZoomHideCopy",        "&Copy",                         "mnuZoomHide", Item, MenuCommand::CopyZoomText},
    MenuRow{"mnuZoomHideFind",        "&Find",                         "mnuZoomHide", Item, MenuCommand::FindInZoom},
};

constexpr std::array kKeyRows = {
    KeyRow{"actShowContents",  "&Contents",           MenuCommand::ShowContents,  "Ctrl+1"},
    KeyRow{"actShowIndex",     "&Index",              MenuCommand::ShowIndex,     "Ctrl+2"},
    KeyRow{"actShowSearch",    "&Search",             MenuCommand::ShowSearch,    "Ctrl+3"},
    KeyRow{"actShowBookmarks", "&Bookmarks",          MenuCommand::ShowBookmarks, "Ctrl+4"},
    KeyRow{"actBack",          "&Back",               MenuCommand::GoBack,        "Alt+Left"},
    KeyRow{"actForward",       "&Forward",            MenuCommand::GoForward,     "Alt+Right"},
    KeyRow{"actQuickSearch",   "&Quick Search",       MenuCommand::QuickSearch,   "Ctrl+K"},
    KeyRow{"actUndoDelete",    "&Undo Delete",        MenuCommand::UndoDelete,    "Ctrl+Z"},
    KeyRow{"actTrash",         "&Trash...",           MenuCommand::ShowTrash,     ""},
    KeyRow{"actCopyPage",      "Copy &Whole Page",    MenuCommand::CopyWholePage, "Ctrl+Shift+C"},
    KeyRow{"actZoomWindow",    "&Zoom Window",        MenuCommand::ZoomWindow,    "Ctrl+Shift+Z"},
    KeyRow{"actLargerText",    "&Larger Text",        MenuCommand::LargerText,    "Ctrl++"},
    KeyRow{"actSmallerText",   "S&maller Text",       MenuCommand::SmallerText,   "Ctrl+-"},
    KeyRow{"actNormalText",    "&Normal Text Size",   MenuCommand::NormalText,    "Ctrl+0"},
    KeyRow{"actNextPane",      "Ne&xt Pane",          MenuCommand::NextPane,      "F6"},
    KeyRow{"actBackToPage",    "Back to the &Page",   MenuCommand::BackToPage,    "Esc"},
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
