#pragma once

#include "navigator/commands.h"
#include "support/node_key.h"

namespace snippetarium {

/// What decides whether a command can be given.
struct ProgramFacts {
    /// The current selection of the contents tree, and what the page view shows; all 0 for none.
    NodeIDs selection = {};
    NodeIDs shownPage = {};
    bool hasPageText = false;
    bool hasPageSelection = false;
    bool hasIndexWord = false;
    bool hasBookmark = false;
    bool canUndoDelete = false;
    bool canGoBack = false;
    bool canGoForward = false;
    /// Whether the catalogue is open for reading only.
    bool isReadOnly = false;
    /// While the contents are being loaded or a long job runs.
    bool isBusy = false;
};

/// Whether the command is offered. Where the menus explain a refusal in words ("Please select an
/// application."), the command stays offered.
bool IsEnabled(MenuCommand command, const ProgramFacts& facts);

}  // namespace snippetarium
