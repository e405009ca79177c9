#include "forms/desktop_layout.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <algorithm>

#include "forms/pane_dock.h"

namespace snippetarium {

namespace {

constexpr int kSmallestWidth = 320;
constexpr int kSmallestHeight = 240;
/// What the desktop's frame may need beside a window's own size.
constexpr int kFrameWidth = 10;
constexpr int kFrameHeight = 40;

constexpr std::int32_t Twips(int pixels) {
    return pixels * DesktopLayout::kTwipsPerPixel;
}

constexpr int Pixels(std::int32_t twips) {
    return twips / DesktopLayout::kTwipsPerPixel;
}

}  // namespace

QRect FitOnScreen(const QRect& place, const QRect& screen) {
    const int width = std::min(std::max(place.width(), kSmallestWidth), screen.width());
    const int height = std::min(std::max(place.height(), kSmallestHeight), screen.height());
    const int left = std::clamp(place.left(), screen.left(), screen.right() + 1 - width);
    const int top = std::clamp(place.top(), screen.top(), screen.bottom() + 1 - height);
    return {left, top, width, height};
}

WindowPlace DesktopLayout::Place() const {
    const bool isMaximized = window_.isMaximized();
    const QRect place =
        isMaximized ? window_.normalGeometry() : QRect(window_.pos(), window_.size());
    return {Twips(place.left()), Twips(place.top()), Twips(place.width()), Twips(place.height()),
            isMaximized};
}

void DesktopLayout::SetPlace(const WindowPlace& place) {
    const QRect wanted(Pixels(place.left), Pixels(place.top), Pixels(place.width),
                       Pixels(place.height));
    const QScreen* screen = QGuiApplication::screenAt(wanted.center());
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    const QRect room = screen->availableGeometry().adjusted(0, 0, -kFrameWidth, -kFrameHeight);
    const QRect fitting = FitOnScreen(wanted, room);
    window_.move(fitting.topLeft());
    window_.resize(fitting.size());
    if (place.isMaximized) window_.setWindowState(window_.windowState() | Qt::WindowMaximized);
}

ClientSize DesktopLayout::Client() const {
    return {Twips(dock_.width()), Twips(dock_.height())};
}

void DesktopLayout::DockPane(Pane pane, Side side, bool isFront) {
    dock_.DockPane(pane, side, isFront);
}

void DesktopLayout::UndockPane(Pane pane) {
    dock_.UndockPane(pane);
}

void DesktopLayout::SetSideWidth(Side side, std::int32_t width) {
    dock_.SetSideWidth(side, Pixels(width));
}

}  // namespace snippetarium
