#include "navigator/command_state.h"

namespace snippetarium {

namespace {

/// Whether the command changes the catalogue, or opens an editor whose only purpose that is.
bool NeedsWriting(MenuCommand command) {
    switch (command) {
        case MenuCommand::NewApplication:
        case MenuCommand::NewClass:
        case MenuCommand::NewProcedure:
        case MenuCommand::Import:
        case MenuCommand::AddExistingClass:
        case MenuCommand::DeleteSelected:
        case MenuCommand::RenameNode:
        case MenuCommand::AddNew:
        case MenuCommand::AddExisting:
        case MenuCommand::UndoDelete:
        case MenuCommand::EditIndexWord:
        case MenuCommand::DeleteIndexWord:
        case MenuCommand::RemoveBookmark:
        case MenuCommand::AddBookmark:
        case MenuCommand::CompactDatabase:
        case MenuCommand::Configure:
            return true;
        default:
            return false;
    }
}

/// Whether the command leaves alone what a load or a long job works on.
bool IsHarmless(MenuCommand command) {
    switch (command) {
        case MenuCommand::Exit:
        case MenuCommand::ShowHelp:
        case MenuCommand::ShowAbout:
        case MenuCommand::CopyPageText:
        case MenuCommand::CopyWholePage:
        case MenuCommand::SelectAllPageText:
        case MenuCommand::CopyZoomText:
        case MenuCommand::SelectAllZoomText:
        case MenuCommand::FindInPage:
        case MenuCommand::FindInZoom:
        case MenuCommand::LargerText:
        case MenuCommand::SmallerText:
        case MenuCommand::NormalText:
        case MenuCommand::NextPane:
        case MenuCommand::BackToPage:
            return true;
        default:
            return false;
    }
}

bool HasItsObject(MenuCommand command, const ProgramFacts& facts) {
    const bool hasSelection = facts.selection != NodeIDs{};
    switch (command) {
        case MenuCommand::ExportSelected:
        case MenuCommand::ExportNode:
        case MenuCommand::DeleteSelected:
        case MenuCommand::RenameNode:
        case MenuCommand::EditNode:
        case MenuCommand::AddExisting:
            return hasSelection;
        case MenuCommand::ExportShownPage:
        case MenuCommand::EditShownPage:
            return facts.shownPage.classID != 0;
        case MenuCommand::AddBookmark:
            return facts.selection.classID != 0 || facts.shownPage.classID != 0;
        case MenuCommand::CopyPageText:
            return facts.hasPageSelection;
        case MenuCommand::Print:
        case MenuCommand::ClearPage:
        case MenuCommand::SelectAllPageText:
        case MenuCommand::FindInPage:
        case MenuCommand::CopyWholePage:
        case MenuCommand::ZoomWindow:
            return facts.hasPageText;
        case MenuCommand::EditIndexWord:
        case MenuCommand::DeleteIndexWord:
            return facts.hasIndexWord;
        case MenuCommand::ShowBookmark:
        case MenuCommand::RemoveBookmark:
            return facts.hasBookmark;
        case MenuCommand::UndoDelete:
            return facts.canUndoDelete;
        case MenuCommand::GoBack:
            return facts.canGoBack;
        case MenuCommand::GoForward:
            return facts.canGoForward;
        default:
            return true;
    }
}

}  // namespace

bool IsEnabled(MenuCommand command, const ProgramFacts& facts) {
    if (facts.isBusy && !IsHarmless(command)) return false;
    if (facts.isReadOnly && NeedsWriting(command)) return false;
    return HasItsObject(command, facts);
}

}  // namespace snippetarium
