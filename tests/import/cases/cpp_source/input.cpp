#include "grid.h"

namespace paint {
namespace {

// One step.
constexpr int Step(int x) { return x + 1; }

class Cursor final : public Base<int(int)> {
public:
    Cursor() : x_{0}, y_(0) {}
    ~Cursor() override = default;
    bool operator==(const Cursor& other) const { return x_ == other.x_; }
    template <typename T> T As() const
    {
        return T{x_, y_};
    }
private:
    int x_{0};
    int y_ = 0;
};

}  // namespace

/// Draws all.
template <class Canvas>
void Grid<Canvas>::Draw(const std::function<void(int)>& each) const noexcept
{
    auto draw = [&](int i) { each(i); };
    draw(R"(})" [0]);
}

Grid::Grid(int width) try : width_(width) {
} catch (const Error&) {
    throw;
}

std::ostream& operator<<(std::ostream& out, const Grid& grid) { return out; }

}  // namespace paint

TEST(Grid, Draws)
{
    EXPECT_TRUE(true);
}
