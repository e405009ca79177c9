#include "navigator/command_state.h"

namespace snippetarium {

namespace {

/// Whether the command changes the catalogue, or opens an editor whose only purpose that is.
bool NeedsWriting(Command command) {
    switch (command) {
        case Command::NewApplication:
        case Command::NewClass:
        case Command::NewProcedure:
        case Command::Import:
        case Command::AddExistingClass:
        case Command::DeleteSelected:
        case Command::RenameNode:
        case Command::AddNew:
        case Command::AddExisting:
        case Command::UndoDelete:
        case Command::EditIndexWord:
        case Command::DeleteIndexWord:
        case Command::RemoveBookmark:
        case Command::AddBookmark:
        case Command::CompactDatabase:
        case Command::Configure:
            return true;
        default:
            return false;
    }
}

/// Whether the command leaves alone what a load or a long job works on.
bool IsHarmless(Command command) {
    switch (command) {
        case Command::Exit:
        case Command::ShowHelp:
        case Command::ShowAbout:
        case Command::CopyPageText:
        case Command::CopyWholePage:
        case Command::SelectAllPageText:
        case Command::CopyZoomText:
        case Command::SelectAllZoomText:
        case Command::FindInPage:
        case Command::FindInZoom:
        case Command::LargerText:
        case Command::SmallerText:
        case Command::NormalText:
        case Command::NextPane:
        case Command::BackToPage:
            return true;
        default:
            return false;
    }
}

bool HasItsObject(Command command, const ProgramFacts& facts) {
    const bool hasSelection = facts.selection != NodeIDs{};
    switch (command) {
        case Command::ExportSelected:
        case Command::ExportNode:
        case Command::DeleteSelected:
        case Command::RenameNode:
        case Command::EditNode:
        case Command::AddExisting:
            return hasSelection;
        case Command::ExportShownPage:
        case Command::EditShownPage:
            return facts.shownPage.classID != 0;
        case Command::AddBookmark:
            return facts.selection.classID != 0 || facts.shownPage.classID != 0;
        case Command::CopyPageText:
            return facts.hasPageSelection;
        case Command::Print:
        case Command::ClearPage:
        case Command::SelectAllPageText:
        case Command::FindInPage:
        case Command::CopyWholePage:
        case Command::ZoomWindow:
            return facts.hasPageText;
        case Command::EditIndexWord:
        case Command::DeleteIndexWord:
            return facts.hasIndexWord;
        case Command::ShowBookmark:
        case Command::RemoveBookmark:
            return facts.hasBookmark;
        case Command::UndoDelete:
            return facts.canUndoDelete;
        case Command::GoBack:
            return facts.canGoBack;
        case Command::GoForward:
            return facts.canGoForward;
        default:
            return true;
    }
}

}  // namespace

bool IsEnabled(Command command, const ProgramFacts& facts) {
    if (facts.isBusy && !IsHarmless(command)) return false;
    if (facts.isReadOnly && NeedsWriting(command)) return false;
    return HasItsObject(command, facts);
}

}  // namespace snippetarium
