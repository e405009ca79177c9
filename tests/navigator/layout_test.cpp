#include "navigator/layout.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "navigator/configuration.h"
#include "store/database.h"
#include "tests/navigator/fake_window.h"
#include "tests/store/write_fixture.h"

namespace snippetarium::test {
namespace {

constexpr std::int32_t kNothing = -1;

struct ArrangeCase {
    bool isLeftShown;
    bool isRightShown;
    ClientSize client;
    PagePlace place;
    std::int32_t pageRight;
};

TEST(ArrangePage, LeavesThePageWhatThePanesLeave) {
    // The left pane is 4000 wide, the right one 3000.
    // clang-format off
    const ArrangeCase cases[] = {
        {false, false, {10000, 8000}, {-60,  9960, 7950, 6950}, 9850},
        {true,  false, {10000, 8000}, {3940, 5960, 7950, 6950}, 9850},
        {false, true,  {10000, 8000}, {-60,  6960, 7950, 6950}, 6850},
        {true,  true,  {10000, 8000}, {3940, 2960, 7950, 6950}, 6850},
        {true,  true,  {7091,  8000}, {3940, 51,   7950, 6950}, 3941},
        {true,  true,  {7090,  8000}, {3940, kNothing, kNothing, 6950}, 3940},
        {true,  true,  {100,   1051}, {3940, kNothing, kNothing, 1}, -3050},
        {false, false, {10000, 1050}, {-60,  9960, 1000, kNothing}, 9850},
    };
    // clang-format on
    for (const ArrangeCase& test : cases) {
        LayoutState state;
        state.contentsShown = test.isLeftShown;
        state.searchShown = test.isRightShown;
        state.leftChildWidth = 4000;
        state.rightChildWidth = 3000;
        const PagePlace place = ArrangePage(state, test.client);
        SCOPED_TRACE(std::to_string(test.client.width) + " x " +
                     std::to_string(test.client.height));
        EXPECT_EQ(place.left, test.place.left);
        EXPECT_EQ(place.areaWidth.value_or(kNothing), test.place.areaWidth);
        EXPECT_EQ(place.areaHeight.value_or(kNothing), test.place.areaHeight);
        EXPECT_EQ(place.textHeight.value_or(kNothing), test.place.textHeight);
        EXPECT_EQ(state.pageLeft, test.place.left);
        EXPECT_EQ(state.pageRight, test.pageRight);
    }
}

class LayoutTest : public WriteFixture {
  protected:
    LayoutTest() { StartAnew(); }

    /// As the next start of the program would.
    void StartAnew() {
        window_ = FakeWindow();
        layout_.emplace(db_, window_);
        layout_->Restore();
        layout_->Arrange();
    }
    /// Which panes are open where, the shown one in capitals: "Ci|S".
    std::string Picture() const {
        std::string picture;
        for (const Side side : {Side::Left, Side::Right}) {
            if (side == Side::Right) picture += '|';
            for (const Pane pane : kSavingOrder) {
                if (!layout_->IsOpen(pane)) continue;
                if (layout_->State().PositionOf(pane) != SideText(side)) continue;
                const char letter = " csib"[static_cast<std::size_t>(pane)];
                const bool isShown = layout_->State().IsShown(pane);
                picture += isShown ? static_cast<char>(letter - 'a' + 'A') : letter;
            }
        }
        return picture;
    }
    std::string SavedCodes() {
        layout_->Save();
        return Select("SELECT leftChildIndex, rightChildIndex FROM tblWindowSize").at(0);
    }

    FakeWindow window_;
    std::optional<Layout> layout_;
};

TEST_F(LayoutTest, KeepsTheWindowWhereNothingIsStored) {
    ExecuteSQL(db_, "DELETE FROM tblWindowSize");
    StartAnew();
    EXPECT_EQ(window_.TakeLog(), Log{"page"});
    EXPECT_EQ(Picture(), "|");
    layout_->Save();
    EXPECT_EQ(Select("SELECT w_hID, tWidth, leftChildIndex, fSearchPos FROM tblWindowSize"),
              Rows{"1|12000|0|right"});
}

TEST_F(LayoutTest, ShowsWhatTheStoredRowSays) {
    const struct {
        const char* row;
        const char* picture;
        const char* saved;
    } cases[] = {
        {"leftChildIndex = 1, rightChildIndex = 2", "C|S", "1|2"},
        {"leftChildIndex = 0, rightChildIndex = 0", "|", "0|0"},
        {"leftChildIndex = 5, rightChildIndex = -1", "|", "0|0"},
        {"leftChildIndex = NULL, rightChildIndex = 3", "I|", "3|0"},
        // Two of one side: the later one of contents, search, index, bookmark is in front.
        {"leftChildIndex = 3, rightChildIndex = 1", "cI|", "3|0"},
        {"leftChildIndex = 4, rightChildIndex = 3", "iB|", "4|0"},
        {"leftChildIndex = 1, rightChildIndex = 2, fSearchPos = 'left'", "cS|", "2|0"},
        // A pane whose position is no side is not placed.
        {"leftChildIndex = 1, rightChildIndex = 2, fContentPos = 'top'", "|S", "0|2"},
    };
    for (const auto& test : cases) {
        db_.GetConnection().RunScript(
            "DELETE FROM tblSetting; UPDATE tblWindowSize SET fContentPos = 'left', fSearchPos = "
            "'right'; UPDATE tblWindowSize SET " +
            std::string(test.row));
        StartAnew();
        EXPECT_EQ(Picture(), test.picture) << test.row;
        EXPECT_EQ(SavedCodes(), test.saved) << test.row;
    }
}

/// Every sequence of showing, hiding and moving panes, up to a length: the window has what the
/// state says, each side with panes has one in front, and the next start brings the same back.
class EverySequence : public LayoutTest {
  protected:
    void Try(int steps) {
        Check();
        if (steps == 0) return;
        for (const Pane pane : kSavingOrder) {
            for (int action = 0; action < 3; ++action) {
                const LayoutState before = layout_->State();
                const std::string trail = trail_;
                const Layout layout = *layout_;
                const FakeWindow window = window_;
                trail_ += {"+-~"[action], "csib"[static_cast<std::size_t>(pane) - 1], ' '};
                Act(pane, action);
                Try(steps - 1);
                trail_ = trail;
                window_ = window;
                layout_.reset();
                layout_.emplace(layout);
            }
        }
    }

  private:
    void Act(Pane pane, int action) {
        const bool isLeft = layout_->State().PositionOf(pane) == "left";
        switch (action) {
            case 0:
                layout_->ShowPane(pane);
                EXPECT_TRUE(layout_->State().IsShown(pane)) << trail_;
                break;
            case 1:
                layout_->HidePane(pane);
                break;
            default:
                layout_->MovePane(pane, isLeft ? Side::Right : Side::Left);
        }
    }

    void Check() {
        for (const Side side : {Side::Left, Side::Right}) {
            const std::vector<Pane>& tabs = window_.tabs[side];
            const std::optional<Pane> shown = layout_->State().ShownAt(side);
            ASSERT_EQ(tabs.empty(), !shown) << trail_ << Picture();
            ASSERT_TRUE(tabs.empty() || tabs.back() == shown) << trail_ << Picture();
            ASSERT_EQ(std::ranges::count_if(
                          tabs, [&](Pane pane) { return layout_->State().IsShown(pane); }),
                      tabs.empty() ? 0 : 1)
                << trail_ << Picture();
        }
    }

    std::string trail_;
};

TEST_F(EverySequence, LeavesOnePaneInFrontAtEachSideThatHasAny) {
    Try(3);
}

TEST_F(LayoutTest, ComesBackAtTheNextStartWithThePanesBehind) {
    for (const Pane pane : {Pane::Bookmark, Pane::Search, Pane::Index, Pane::Contents})
        layout_->ShowPane(pane);
    layout_->SetSideWidth(Side::Left, 5000);
    layout_->SetSideWidth(Side::Right, 10);
    layout_->SetWrap(true);
    window_.place = {.left = -50000, .top = 20, .width = 60000, .height = 40000};
    window_.place.isMaximized = true;
    EXPECT_EQ(Picture(), "Cib|S");
    const WindowPlace place = window_.place;
    layout_->Save();
    EXPECT_EQ(Select("SELECT tLeft, tWidth, wrap, rightChildWidth FROM tblWindowSize"),
              Rows{"-32768|32767|1|1500"});
    StartAnew();
    EXPECT_EQ(Picture(), "Cib|S");
    EXPECT_EQ(window_.place, place);
    EXPECT_TRUE(layout_->State().wrap);
    EXPECT_EQ(layout_->State().leftChildWidth, 5000);

    // Another program, which knows the row alone, has moved the window.
    ExecuteSQL(db_, "UPDATE tblWindowSize SET tLeft = 300, leftChildIndex = 0 WHERE w_hID = 1;");
    StartAnew();
    EXPECT_EQ(window_.place,
              (WindowPlace{.left = 300, .top = 20, .width = 32767, .height = 32767}));
    EXPECT_EQ(Picture(), "|S");
}

TEST_F(LayoutTest, IsConfiguredWithOneStatementAndMovesWhatIsOpen) {
    layout_->ShowPane(Pane::Index);
    layout_->ShowPane(Pane::Search);
    PaneSides sides = ReadPaneSides(db_);
    EXPECT_EQ(sides, (PaneSides{.search = Side::Right}));
    sides = {
        .content = Side::Right, .index = Side::Left, .search = Side::Left, .bookmark = Side::Right};
    ExpectStatements({{"OK",
                       [&](Database& db) { StorePaneSides(db, sides, *layout_); },
                       {"UPDATE tblWindowSize SET fContentPos = 'right', fSearchPos = 'left', "
                        "fIndexPos = 'left', fBookmarkPos = 'right';"}}});
    EXPECT_EQ(Picture(), "sI|C");
    EXPECT_EQ(ReadPaneSides(db_), sides);
    EXPECT_EQ(layout_->State().fBookmarkPos, "right");
}

}  // namespace
}  // namespace snippetarium::test
