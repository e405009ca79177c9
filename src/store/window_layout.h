#pragma once

#include <cstdint>
#include <string>

namespace snippetarium {

class Database;

// The window layout, one row of the catalogue. Lengths are in twips (1440 to an inch). A failure is
// reported, and the row stays as it was.

struct WindowSize {
    /// Size and place of the main window. The columns hold 16 bits: what is beyond is written as
    /// the number nearest to it.
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t left = 0;
    std::int32_t top = 0;
    /// Which pane is shown at that side: 1 contents, 2 search, 3 index, 4 bookmark, 0 none.
    std::int32_t leftChildIndex = 0;
    std::int32_t rightChildIndex = 0;
    bool wrap = false;
    std::int32_t leftChildWidth = 0;
    std::int32_t rightChildWidth = 0;
};

/// The number nearest to it that 16 bits hold, as the row has it.
std::int32_t SixteenBits(std::int32_t number);

/// At which side each pane docks: "left" or "right".
struct PanePositions {
    std::string content = {};
    std::string search = {};
    std::string index = {};
    std::string bookmark = {};
};

/// Writes the row, or adds it where it is missing.
void SaveWindowSize(Database& db, const WindowSize& size);
void SavePanePositions(Database& db, const PanePositions& positions);

}  // namespace snippetarium
