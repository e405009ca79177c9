#pragma once

#include <QPlainTextEdit>
#include <QTextLayout>
#include <QTimer>
#include <cstdint>
#include <span>
#include <string>

#include "navigator/highlight.h"
#include "navigator/utf16_map.h"

namespace snippetarium {

/// A text box with coloured words and the numbers of its lines, for reading or for writing.
///
/// Colours are worked out in steps of a few milliseconds and given to the lines that can be seen,
/// so that neither showing a long text, nor scrolling in it, nor typing waits for them.
class ColouredText : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit ColouredText(QWidget* parent);

    /// For the margin with the numbers.
    void PaintNumbers(QPaintEvent* event);

  protected:
    /// Shows this text, whose lines end in LF. `skipped` as the highlighter takes it.
    void ShowText(std::string text, std::int32_t languageID,
                  std::span<const TextRange> skipped = {});
    /// Colours what is shown, which is this text.
    void Recolour(std::string text, std::int32_t languageID);
    /// The text is not the one that is being coloured any more: lines keep the colours that they
    /// have until Recolour.
    void SuspendColouring();
    /// Whether there is a margin with numbers.
    void SetNumbered(bool isNumbered);
    bool IsNumbered() const { return isNumbered_; }

    /// The looks of the words of a line, which begins at `begin` in the control's UTF-16 units.
    virtual QList<QTextLayout::FormatRange> FormatsOf(const TextRange& line,
                                                      std::size_t begin) const;
    /// Where the text's bytes are in the control.
    const Utf16Map& Places() const { return places_; }

    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void Begin(std::string text, std::int32_t languageID, std::span<const TextRange> skipped);
    void Resume(std::chrono::milliseconds time);
    void WorkFor(std::chrono::milliseconds time);
    void ColourVisible();
    bool Colour(const QTextBlock& block);
    void MakeRoomFor(const QString& text);
    void MakeMargin(int lines);
    void PlaceNumbers();

    std::string text_;
    Utf16Map places_;
    Highlighter highlighter_;
    QTimer work_;
    QWidget* numbers_;
    bool isNumbered_ = false;
    bool isSuspended_ = false;
    /// What a line's state says when it has its colours; another number for other colours.
    int round_ = 0;
};

}  // namespace snippetarium
