#include "forms/pane_dock.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QTabBar>
#include <QTabWidget>

namespace snippetarium {

namespace {

constexpr int kNarrowestPage = 160;

}  // namespace

PaneDock::PaneDock(QWidget* page)
    : left_(MakeSide("tabLeft", tr("Panes at the left"))),
      right_(MakeSide("tabRight", tr("Panes at the right"))),
      page_(page),
      shelf_(new QWidget(page)) {
    setObjectName("paneDock");
    shelf_->hide();
    addWidget(left_);
    addWidget(page_);
    addWidget(right_);
    page_->setMinimumWidth(kNarrowestPage);
    setStretchFactor(1, 1);
    setChildrenCollapsible(false);
    setHandleWidth(5);
    connect(this, &QSplitter::splitterMoved, this, [this](int, int handle) {
        const Side side = handle == 1 ? Side::Left : Side::Right;
        emit SideResized(side, SideTabs(side)->width());
    });
}

QTabWidget* PaneDock::MakeSide(const char* name, const QString& accessibleName) {
    auto* tabs = new QTabWidget;
    tabs->setObjectName(name);
    tabs->setAccessibleName(accessibleName);
    tabs->setTabsClosable(true);
    tabs->setDocumentMode(true);
    tabs->setElideMode(Qt::ElideRight);
    tabs->setUsesScrollButtons(true);
    tabs->setMinimumWidth(Layout::kNarrowestPane / 15);
    tabs->hide();
    tabs->installEventFilter(this);
    connect(tabs, &QTabWidget::tabCloseRequested, this,
            [this, tabs](int index) { emit PaneCloseRequested(PaneAt(tabs, index)); });
    connect(tabs, &QTabWidget::currentChanged, this, [this, tabs](int index) {
        FitTitles(*tabs);
        if (index >= 0 && !isArranging_) emit PaneRaised(PaneAt(tabs, index));
    });
    return tabs;
}

void PaneDock::AddPane(Pane pane, QWidget* widget, const QIcon& icon) {
    widget->setParent(shelf_);
    panes_[pane] = {widget, icon};
}

Pane PaneDock::PaneAt(const QTabWidget* tabs, int index) const {
    const QWidget* const widget = tabs->widget(index);
    for (const auto& [pane, entry] : panes_) {
        if (entry.widget == widget) return pane;
    }
    return Pane::Contents;
}

void PaneDock::DockPane(Pane pane, Side side, bool isFront) {
    const QScopedValueRollback arranging(isArranging_, true);
    const Entry& entry = panes_.at(pane);
    QTabWidget* const tabs = SideTabs(side);
    if (tabs->indexOf(entry.widget) < 0) {
        UndockPane(pane);
        const int index = tabs->addTab(entry.widget, entry.icon, entry.widget->windowTitle());
        tabs->setTabToolTip(index, entry.widget->windowTitle());
        tabs->tabBar()->setAccessibleTabName(index, entry.widget->windowTitle());
    }
    if (isFront) tabs->setCurrentWidget(entry.widget);
    ShowSides();
}

void PaneDock::UndockPane(Pane pane) {
    const QScopedValueRollback arranging(isArranging_, true);
    QWidget* const widget = panes_.at(pane).widget;
    for (QTabWidget* tabs : {left_, right_}) {
        const int index = tabs->indexOf(widget);
        if (index < 0) continue;
        tabs->removeTab(index);
        widget->setParent(shelf_);
    }
    ShowSides();
}

void PaneDock::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    emit Resized();
}

void PaneDock::ShowSides() {
    left_->setVisible(left_->count() > 0);
    right_->setVisible(right_->count() > 0);
    FitTitles(*left_);
    FitTitles(*right_);
}

bool PaneDock::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) FitTitles(static_cast<QTabWidget&>(*watched));
    return QSplitter::eventFilter(watched, event);
}

void PaneDock::FitTitles(QTabWidget& tabs) {
    for (int tab = 0; tab < tabs.count(); ++tab)
        tabs.setTabText(tab, tabs.widget(tab)->windowTitle());
    if (tabs.tabBar()->sizeHint().width() <= tabs.width()) return;
    for (int tab = 0; tab < tabs.count(); ++tab) {
        if (tab != tabs.currentIndex()) tabs.setTabText(tab, {});
    }
}

void PaneDock::SetSideWidth(Side side, int width) {
    const QTabWidget* const tabs = SideTabs(side);
    if (tabs->isHidden() || tabs->width() == width) return;
    QList<int> widths = sizes();
    const qsizetype at = side == Side::Left ? 0 : 2;
    widths[1] += widths[at] - width;
    widths[at] = width;
    setSizes(widths);
}

}  // namespace snippetarium
