#pragma once

#include "navigator/layout.h"

class QMainWindow;
class QRect;

namespace snippetarium {

class PaneDock;

/// The main window as the layout sees it. A pixel of the layout is 15 twips; a screen that is
/// scaled has fewer of them, so a stored layout means the same on every screen.
class DesktopLayout final : public LayoutWindow {
  public:
    static constexpr int kTwipsPerPixel = 15;

    DesktopLayout(QMainWindow& window, PaneDock& dock) : window_(window), dock_(dock) {}

    WindowPlace Place() const override;
    void SetPlace(const WindowPlace& place) override;
    ClientSize Client() const override;
    void DockPane(Pane pane, Side side, bool isFront) override;
    void UndockPane(Pane pane) override;
    void SetSideWidth(Side side, std::int32_t width) override;
    /// The page view fills what the panes leave it.
    void PlacePage(const PagePlace&) override {}

  private:
    QMainWindow& window_;
    PaneDock& dock_;
};

/// The same place, or the nearest one of at most the screen's size that lies on it.
QRect FitOnScreen(const QRect& place, const QRect& screen);

}  // namespace snippetarium
