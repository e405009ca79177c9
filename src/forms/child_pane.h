#pragma once

#include <QWidget>

namespace snippetarium {

/// A child of the main window: a navigation pane or the page view. Closing one hides it, unless the
/// whole program is ending.
class ChildPane : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool ParentUnloading READ IsParentUnloading WRITE SetParentUnloading)

  public:
    using QWidget::QWidget;

    /// Set on every pane just before the main window closes it.
    bool IsParentUnloading() const { return isParentUnloading_; }
    void SetParentUnloading(bool isUnloading) { isParentUnloading_ = isUnloading; }

    /// Gives the focus to the control that one starts with.
    virtual void FocusFirst() = 0;

  signals:
    void HideRequested();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    bool isParentUnloading_ = false;
};

}  // namespace snippetarium
