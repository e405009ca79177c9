#pragma once

#include <QPlainTextEdit>
#include <QTimer>
#include <string>

#include "navigator/highlight.h"
#include "navigator/page.h"
#include "navigator/utf16_map.h"

namespace snippetarium {

/// The text box of the page view: a source text with coloured words and the numbers of its lines.
///
/// Colours are worked out in steps of a few milliseconds and given to the lines that can be seen,
/// so that neither showing a long text nor scrolling in it waits for them.
class PageText final : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit PageText(QWidget* parent);

    void ShowPage(const Page& page);

    /// For the margin with the numbers.
    void PaintNumbers(QPaintEvent* event);
    int NumbersWidth() const;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void WorkOn();
    void ColourVisible();
    bool Colour(const QTextBlock& block);
    void PlaceNumbers();

    std::string text_;
    Utf16Map places_;
    Highlighter highlighter_;
    QTimer work_;
    QWidget* numbers_;
    bool hasNumbers_ = false;
    /// What a line's state says when it has its colours; another number for other colours.
    int round_ = 0;
};

}  // namespace snippetarium
