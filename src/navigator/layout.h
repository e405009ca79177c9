#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace snippetarium {

class Database;
class Recordset;

// Where the main window's panes are. All lengths are in twips, 1440 to an inch, 15 to a pixel on a
// screen of 96 dots to the inch.
//
// Each side of the window holds the panes that are open there as tabs, of which one is in front.
// "Shown" is said of the front pane alone: the stored layout knows one pane a side.

/// The navigation panes. The values are the codes of the stored layout; 0 there is none.
enum class Pane : std::uint8_t { Contents = 1, Search = 2, Index = 3, Bookmark = 4 };

/// The order in which panes are visited when the layout is saved and when the configuration moves
/// them: of two shown panes that come to one side, the later one is in front.
inline constexpr std::array kSavingOrder = {Pane::Contents, Pane::Search, Pane::Index,
                                            Pane::Bookmark};
/// The order in which panes are docked.
inline constexpr std::array kDockingOrder = {Pane::Index, Pane::Bookmark, Pane::Contents,
                                             Pane::Search};

enum class Side : std::uint8_t { Left, Right };

/// "left" or "right", as the layout stores it.
std::string_view SideText(Side side);
/// Nothing for any other text: such a pane is not placed.
std::optional<Side> ParseSide(std::string_view text);

/// The whole window on the screen.
struct WindowPlace {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    /// The place is then the one to come back to.
    bool isMaximized = false;

    bool operator==(const WindowPlace&) const = default;
};

/// What is inside the window's frame, its menus and bars.
struct ClientSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Where the page view goes. What is left out stays as it is, for want of room.
struct PagePlace {
    std::int32_t left = 0;
    std::optional<std::int32_t> areaWidth = {};
    std::optional<std::int32_t> areaHeight = {};
    /// The box of the page's text, below the heading.
    std::optional<std::int32_t> textHeight = {};

    bool operator==(const PagePlace&) const = default;
};

/// The layout for as long as the program runs.
struct LayoutState {
    /// The side at which each pane docks: "left" or "right".
    std::string fContentPos = "left";
    std::string fIndexPos = "left";
    std::string fSearchPos = "right";
    std::string fBookmarkPos = "left";
    bool contentsShown = false;
    bool indexShown = false;
    bool searchShown = false;
    bool bookmarkShown = false;
    /// Widths of the pane shown at the left and at the right.
    std::int32_t leftChildWidth = 3600;
    std::int32_t rightChildWidth = 3600;
    /// Whether the text of the page view is wrapped.
    bool wrap = false;
    /// The page view's left edge and right limit, as of the last arrangement.
    std::int32_t pageLeft = 0;
    std::int32_t pageRight = 0;

    const std::string& PositionOf(Pane pane) const;
    void SetPosition(Pane pane, std::string_view side);
    bool IsShown(Pane pane) const;
    void SetShown(Pane pane, bool isShown);
    /// The pane shown there; of several, the last in kSavingOrder.
    std::optional<Pane> ShownAt(Side side) const;
};

/// The main window, as far as its layout goes.
class LayoutWindow {
  public:
    virtual ~LayoutWindow() = default;

    virtual WindowPlace Place() const = 0;
    /// A place that is on no screen any more is to be brought onto one.
    virtual void SetPlace(const WindowPlace& place) = 0;
    virtual ClientSize Client() const = 0;

    /// Puts the pane among that side's tabs, in front of them or not. A pane that is at the other
    /// side leaves it. Called for each arrangement, mostly for panes that are where they belong.
    virtual void DockPane(Pane pane, Side side, bool isFront) = 0;
    /// Takes the pane out of the window. Nothing happens to one that is not there.
    virtual void UndockPane(Pane pane) = 0;
    /// The width of a side that has panes.
    virtual void SetSideWidth(Side side, std::int32_t width) = 0;
    virtual void PlacePage(const PagePlace& place) = 0;
};

/// Where the page view goes between these panes; `state` keeps its two limits.
PagePlace ArrangePage(LayoutState& state, const ClientSize& client);

/// The layout's rules over one window. Nothing here is an event: after a user's action the window
/// calls the operation, which changes the state and arranges the window. Each is guarded.
class Layout {
  public:
    /// Both outlive this.
    Layout(Database& db, LayoutWindow& window) : db_(db), window_(window) {}

    const LayoutState& State() const { return state_; }

    /// Takes the stored layout over and sets the window's place. Where none is stored, the window
    /// keeps its own and no pane is open.
    void Restore();
    /// Docks the open panes and places the page view; for each change of the window's size.
    void Arrange();
    /// Opens the pane at its side, in front. Its width is then the side's.
    void ShowPane(Pane pane);
    /// Closes the pane; the one behind it, the last in kSavingOrder, is then shown.
    void HidePane(Pane pane);
    /// Whether it is among the tabs of its side, in front or not.
    bool IsOpen(Pane pane) const { return isOpen_.at(IndexOf(pane)); }
    /// After a divider was dragged. Nothing becomes narrower than kNarrowestPane.
    void SetSideWidth(Side side, std::int32_t width);
    void SetWrap(bool wrap) { state_.wrap = wrap; }
    /// Moves an open pane there at once; does nothing where it is there.
    void MovePane(Pane pane, Side side);
    /// Writes the layout into the catalogue: not the positions, which the configuration stores. A
    /// catalogue that is closed, or open for reading only, is left alone.
    void Save();

    static constexpr std::int32_t kNarrowestPane = 1500;

  private:
    static std::size_t IndexOf(Pane pane) { return static_cast<std::size_t>(pane) - 1; }
    void TakeOver(const Recordset& row);
    void OpenRememberedPanes();
    std::optional<Pane> LastOpenAt(Side side) const;
    /// Leaves each side that has open panes one that is shown.
    void SettleFronts();
    void ArrangeAll();

    Database& db_;
    LayoutWindow& window_;
    LayoutState state_;
    std::array<bool, 4> isOpen_ = {};
};

}  // namespace snippetarium
