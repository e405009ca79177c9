#include <algorithm>
#include <limits>

#include "navigator/layout.h"

namespace snippetarium {

namespace {

// What the page view keeps free for its borders and its heading. At the left edge of the window it
// slides a little under the edge, which hides its border.
constexpr std::int32_t kHiddenBorder = 60;
constexpr std::int32_t kAreaMargin = 40;
constexpr std::int32_t kAreaBottom = 50;
constexpr std::int32_t kHeadingHeight = 1050;
constexpr std::int32_t kLeastWidth = 90;

/// One pane's fields of the state.
template <typename State>
auto* PositionIn(State& state, Pane pane) {
    switch (pane) {
        case Pane::Contents:
            return &state.fContentPos;
        case Pane::Search:
            return &state.fSearchPos;
        case Pane::Index:
            return &state.fIndexPos;
        case Pane::Bookmark:
            break;
    }
    return &state.fBookmarkPos;
}

template <typename State>
auto* ShownIn(State& state, Pane pane) {
    switch (pane) {
        case Pane::Contents:
            return &state.contentsShown;
        case Pane::Search:
            return &state.searchShown;
        case Pane::Index:
            return &state.indexShown;
        case Pane::Bookmark:
            break;
    }
    return &state.bookmarkShown;
}

}  // namespace

std::string_view SideText(Side side) {
    return side == Side::Left ? "left" : "right";
}

std::optional<Side> ParseSide(std::string_view text) {
    if (text == "left") return Side::Left;
    if (text == "right") return Side::Right;
    return std::nullopt;
}

const std::string& LayoutState::PositionOf(Pane pane) const {
    return *PositionIn(*this, pane);
}

void LayoutState::SetPosition(Pane pane, std::string_view side) {
    *PositionIn(*this, pane) = side;
}

bool LayoutState::IsShown(Pane pane) const {
    return *ShownIn(*this, pane);
}

void LayoutState::SetShown(Pane pane, bool isShown) {
    *ShownIn(*this, pane) = isShown;
}

std::optional<Pane> LayoutState::ShownAt(Side side) const {
    std::optional<Pane> last;
    for (const Pane pane : kSavingOrder) {
        if (IsShown(pane) && ParseSide(PositionOf(pane)) == side) last = pane;
    }
    return last;
}

PagePlace ArrangePage(LayoutState& state, const ClientSize& client) {
    PagePlace place{.left = -kHiddenBorder};
    std::int32_t width = client.width;
    if (state.ShownAt(Side::Left)) {
        place.left += state.leftChildWidth;
        width -= state.leftChildWidth;
    }
    if (state.ShownAt(Side::Right)) width -= state.rightChildWidth;
    if (width > kLeastWidth) {
        place.areaWidth = width - kAreaMargin;
        place.areaHeight = client.height - kAreaBottom;
    }
    if (client.height > kHeadingHeight) place.textHeight = client.height - kHeadingHeight;
    state.pageLeft = place.left;
    state.pageRight = place.left + width - kLeastWidth;
    return place;
}

}  // namespace snippetarium
