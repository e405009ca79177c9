#include "navigator/layout.h"

#include <algorithm>
#include <sstream>

#include "store/database.h"
#include "store/reads_other.h"
#include "store/settings.h"
#include "store/window_layout.h"
#include "support/guard.h"

namespace snippetarium {

// The stored row has 16 bits for the window's place and one pane a side. What it cannot say stands
// in two settings beside it: the place as it is, and the panes that are open behind others. The row
// is what counts: a place that does not agree with it, because another program wrote it, is passed
// over, and so are open panes at a side where the row has none.

namespace {

constexpr std::string_view kPlaceSetting = "window.place";
constexpr std::string_view kPanesSetting = "window.panes";

std::optional<Pane> PaneOfCode(std::int32_t code) {
    if (code < 1 || code > 4) return std::nullopt;
    return static_cast<Pane>(code);
}

std::int32_t CodeOf(std::optional<Pane> pane) {
    return pane ? static_cast<std::int32_t>(*pane) : 0;
}

std::string PlaceText(const WindowPlace& place) {
    std::ostringstream text;
    text << place.left << ' ' << place.top << ' ' << place.width << ' ' << place.height << ' '
         << (place.isMaximized ? 1 : 0);
    return text.str();
}

std::optional<WindowPlace> ParsePlace(const std::string& text) {
    std::istringstream numbers(text);
    WindowPlace place;
    numbers >> place.left >> place.top >> place.width >> place.height >> place.isMaximized;
    return numbers ? std::optional(place) : std::nullopt;
}

/// The true place for the stored one.
WindowPlace TruePlace(Database& db, const WindowPlace& stored) {
    const std::optional<WindowPlace> place = ParsePlace(Setting(db, kPlaceSetting));
    if (!place) return stored;
    const bool agrees =
        SixteenBits(place->left) == stored.left && SixteenBits(place->top) == stored.top &&
        SixteenBits(place->width) == stored.width && SixteenBits(place->height) == stored.height;
    return agrees ? *place : stored;
}

void TakeText(std::string& field, const Recordset& row, std::string_view column) {
    if (const std::string text(row[column].Text()); !text.empty()) field = text;
}

}  // namespace

void Layout::Restore() {
    Guarded(db_.Reporter(), Procedure::RestoreLayout, [&] {
        const Recordset row = WindowSizeRS(db_);
        if (row.EndOfFile()) return;
        const WindowPlace stored{.left = row["tLeft"].Long(),
                                 .top = row["tTop"].Long(),
                                 .width = row["tWidth"].Long(),
                                 .height = row["tHeight"].Long()};
        if (stored.width > 0 && stored.height > 0) window_.SetPlace(TruePlace(db_, stored));
        TakeOver(row);
        OpenRememberedPanes();
        SettleFronts();
    });
}

void Layout::TakeOver(const Recordset& row) {
    state_.wrap = row["wrap"].Boolean();
    state_.leftChildWidth = std::max(row["leftChildWidth"].Long(), kNarrowestPane);
    state_.rightChildWidth = std::max(row["rightChildWidth"].Long(), kNarrowestPane);
    TakeText(state_.fContentPos, row, "fContentPos");
    TakeText(state_.fIndexPos, row, "fIndexPos");
    TakeText(state_.fSearchPos, row, "fSearchPos");
    TakeText(state_.fBookmarkPos, row, "fBookmarkPos");
    for (const std::string_view column : {"leftChildIndex", "rightChildIndex"}) {
        const std::optional<Pane> pane = PaneOfCode(row[column].Long());
        if (!pane) continue;
        state_.SetShown(*pane, true);
        isOpen_.at(IndexOf(*pane)) = true;
    }
}

void Layout::OpenRememberedPanes() {
    std::istringstream codes(Setting(db_, kPanesSetting));
    for (std::int32_t code = 0; codes >> code;) {
        const std::optional<Pane> pane = PaneOfCode(code);
        if (!pane) continue;
        const std::optional<Side> side = ParseSide(state_.PositionOf(*pane));
        if (side && state_.ShownAt(*side)) isOpen_.at(IndexOf(*pane)) = true;
    }
}

void Layout::SettleFronts() {
    for (const Side side : {Side::Left, Side::Right}) {
        const std::optional<Pane> shown = state_.ShownAt(side);
        const std::optional<Pane> front = shown ? shown : LastOpenAt(side);
        for (const Pane pane : kSavingOrder) {
            if (ParseSide(state_.PositionOf(pane)) == side) state_.SetShown(pane, pane == front);
        }
    }
}

std::optional<Pane> Layout::LastOpenAt(Side side) const {
    std::optional<Pane> last;
    for (const Pane pane : kSavingOrder) {
        if (IsOpen(pane) && ParseSide(state_.PositionOf(pane)) == side) last = pane;
    }
    return last;
}

void Layout::Arrange() {
    Guarded(db_.Reporter(), Procedure::ArrangePanes, [&] { ArrangeAll(); });
}

void Layout::ArrangeAll() {
    for (const Pane pane : kDockingOrder) {
        const std::optional<Side> side = ParseSide(state_.PositionOf(pane));
        if (IsOpen(pane) && side) window_.DockPane(pane, *side, state_.IsShown(pane));
    }
    if (state_.ShownAt(Side::Left)) window_.SetSideWidth(Side::Left, state_.leftChildWidth);
    if (state_.ShownAt(Side::Right)) window_.SetSideWidth(Side::Right, state_.rightChildWidth);
    window_.PlacePage(ArrangePage(state_, window_.Client()));
}

void Layout::ShowPane(Pane pane) {
    Guarded(db_.Reporter(), Procedure::ShowPane, [&] {
        const std::optional<Side> side = ParseSide(state_.PositionOf(pane));
        if (side) {
            while (const std::optional<Pane> front = state_.ShownAt(*side))
                state_.SetShown(*front, false);
        }
        isOpen_.at(IndexOf(pane)) = true;
        state_.SetShown(pane, true);
        ArrangeAll();
    });
}

void Layout::HidePane(Pane pane) {
    Guarded(db_.Reporter(), Procedure::HidePane, [&] {
        isOpen_.at(IndexOf(pane)) = false;
        state_.SetShown(pane, false);
        window_.UndockPane(pane);
        SettleFronts();
        ArrangeAll();
    });
}

void Layout::MovePane(Pane pane, Side side) {
    Guarded(db_.Reporter(), Procedure::MovePane, [&] {
        if (ParseSide(state_.PositionOf(pane)) == side) return;
        state_.SetPosition(pane, SideText(side));
        if (!IsOpen(pane)) return;
        SettleFronts();
        ArrangeAll();
    });
}

void Layout::SetSideWidth(Side side, std::int32_t width) {
    std::int32_t& field = side == Side::Left ? state_.leftChildWidth : state_.rightChildWidth;
    field = std::max(width, kNarrowestPane);
}

void Layout::Save() {
    Guarded(db_.Reporter(), Procedure::SaveLayout, [&] {
        if (!db_.GetConnection().IsOpen() || db_.IsReadOnly()) return;
        const WindowPlace place = window_.Place();
        SaveWindowSize(db_, {.width = place.width,
                             .height = place.height,
                             .left = place.left,
                             .top = place.top,
                             .leftChildIndex = CodeOf(state_.ShownAt(Side::Left)),
                             .rightChildIndex = CodeOf(state_.ShownAt(Side::Right)),
                             .wrap = state_.wrap,
                             .leftChildWidth = state_.leftChildWidth,
                             .rightChildWidth = state_.rightChildWidth});
        std::string open;
        for (const Pane pane : kSavingOrder) {
            if (!IsOpen(pane)) continue;
            open += (open.empty() ? "" : " ") + std::to_string(CodeOf(pane));
        }
        StoreSetting(db_, kPanesSetting, open);
        StoreSetting(db_, kPlaceSetting, PlaceText(place));
    });
}

}  // namespace snippetarium
