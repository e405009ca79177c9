#pragma once

#include <QLabel>

namespace snippetarium {

/// The heading of a page: rich text as wide as the view and as high as it needs to be. A layout
/// would ask a plain label several times for its height at several widths, and each answer lays the
/// text out twice; this one finds it once for a text and a width, and has no other size.
class PageHeadingLabel final : public QLabel {
    Q_OBJECT

  public:
    explicit PageHeadingLabel(QWidget* parent) : QLabel(parent) {}

    void ShowHtml(const QString& html);

    QSize sizeHint() const override { return {0, height_}; }
    QSize minimumSizeHint() const override { return sizeHint(); }
    bool hasHeightForWidth() const override { return false; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void FitHeight();

    int height_ = 0;
};

}  // namespace snippetarium
