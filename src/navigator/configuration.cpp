#include "navigator/configuration.h"

#include <string_view>

#include "store/database.h"
#include "store/window_layout.h"
#include "support/guard.h"

namespace snippetarium {

namespace {

Side SideOf(const Recordset& row, std::string_view column) {
    return ParseSide(row[column].Text()).value_or(Side::Left);
}

Side ChosenFor(const PaneSides& sides, Pane pane) {
    switch (pane) {
        case Pane::Contents:
            return sides.content;
        case Pane::Search:
            return sides.search;
        case Pane::Index:
            return sides.index;
        case Pane::Bookmark:
            break;
    }
    return sides.bookmark;
}

}  // namespace

PaneSides ReadPaneSides(Database& db) {
    return Guarded(db.Reporter(), Procedure::ReadPaneSides, [&] {
        PaneSides sides;
        const Recordset row = db.GetConnection().Execute(
            "SELECT fContentPos, fIndexPos, fSearchPos, fBookmarkPos FROM tblWindowSize "
            "WHERE w_hID = 1;");
        if (row.EndOfFile()) return sides;
        sides.content = SideOf(row, "fContentPos");
        sides.index = SideOf(row, "fIndexPos");
        sides.search = SideOf(row, "fSearchPos");
        sides.bookmark = SideOf(row, "fBookmarkPos");
        return sides;
    });
}

void StorePaneSides(Database& db, const PaneSides& sides, Layout& layout) {
    Guarded(db.Reporter(), Procedure::StorePaneSides, [&] {
        SavePanePositions(db, {.content = std::string(SideText(sides.content)),
                               .search = std::string(SideText(sides.search)),
                               .index = std::string(SideText(sides.index)),
                               .bookmark = std::string(SideText(sides.bookmark))});
        for (const Pane pane : kSavingOrder)
            layout.MovePane(pane, ChosenFor(sides, pane));
    });
}

}  // namespace snippetarium
