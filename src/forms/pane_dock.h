#pragma once

#include <QSplitter>
#include <map>

#include "navigator/layout.h"

class QTabWidget;

namespace snippetarium {

/// The inside of the main window: the page view, and at each side of it the panes docked there as
/// tabs, with dividers that can be dragged. A side without panes takes no room. Widths are in
/// pixels of the layout, which do not change with the screen's scale.
class PaneDock final : public QSplitter {
    Q_OBJECT

  public:
    explicit PaneDock(QWidget* page);

    /// Makes a pane known; it is not shown yet.
    void AddPane(Pane pane, QWidget* widget, const QIcon& icon);

    void DockPane(Pane pane, Side side, bool isFront);
    void UndockPane(Pane pane);
    void SetSideWidth(Side side, int width);
    QTabWidget* SideTabs(Side side) const { return side == Side::Left ? left_ : right_; }

  signals:
    /// The user pressed the pane's close button, or put its tab in front.
    void PaneCloseRequested(Pane pane);
    void PaneRaised(Pane pane);
    void SideResized(Side side, int width);
    void Resized();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Entry {
        QWidget* widget = nullptr;
        QIcon icon;
    };

    QTabWidget* MakeSide(const char* name, const QString& accessibleName);
    Pane PaneAt(const QTabWidget* tabs, int index) const;
    void ShowSides();
    /// Where a side is too narrow for all titles, the tabs behind the front one show their icons
    /// alone.
    static void FitTitles(QTabWidget& tabs);

    QTabWidget* left_;
    QTabWidget* right_;
    QWidget* page_;
    QWidget* shelf_;  // holds the panes that are not docked
    std::map<Pane, Entry> panes_;
    bool isArranging_ = false;
};

}  // namespace snippetarium
