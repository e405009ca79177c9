#pragma once

#include "navigator/layout.h"

namespace snippetarium {

class Database;

/// What the configuration dialog lets the user choose: the side of each pane.
struct PaneSides {
    Side content = Side::Left;
    Side index = Side::Left;
    Side search = Side::Left;
    Side bookmark = Side::Left;

    bool operator==(const PaneSides&) const = default;
};

/// The stored choice. A pane whose stored position is no side counts as left; so do all on a
/// failure, which is reported.
PaneSides ReadPaneSides(Database& db);

/// OK: stores all four, and moves the panes whose side changed, those that are open at once.
void StorePaneSides(Database& db, const PaneSides& sides, Layout& layout);

}  // namespace snippetarium
