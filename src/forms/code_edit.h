#pragma once

#include <QTimer>
#include <string>
#include <string_view>

#include "forms/coloured_text.h"

namespace snippetarium {

/// The control in which source code is written.
///
/// Tab and Shift+Tab move the selected lines, Enter keeps the indentation; Ctrl+Tab and
/// Ctrl+Shift+Tab go on to the next control and back. What is done can be undone.
class CodeEdit final : public ColouredText {
    Q_OBJECT
    Q_PROPERTY(bool isNumbered READ IsNumbered WRITE SetNumbered)

  public:
    explicit CodeEdit(QWidget* parent);

    /// Shows this text; there is nothing to be undone then. Where it is shown already, the cursor
    /// stays and what was done can still be undone. Texts here and below have the catalogue's line
    /// ends.
    void SetCode(std::string_view code);
    /// As it was set where nobody has changed it, to the byte.
    std::string Code() const;
    /// Puts the text in the place of all, or into an empty editor. Can be undone.
    void ReplaceCode(std::string_view code);

    /// Which language colours the code; 0 for none.
    void SetLanguage(std::int32_t languageID);

  signals:
    /// Ctrl+F.
    void FindRequested();
    /// A file was dropped here, or pasted. What becomes of it is the window's matter.
    void FileDropped(const QString& path);
    /// Text was put at once where there was none.
    void Filled();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    void OnContentsChange(int position, int removed, int added);
    void ColourAnew();
    void SetFixedFont();
    bool HandleTab(QKeyEvent* event);
    void IndentLines(bool isOutwards);
    void BreakLine();
    QString IndentUnit() const;

    std::int32_t languageID_ = 0;
    QTimer colouring_;
    std::string code_;
    /// What the control made of it.
    std::string shown_;
};

}  // namespace snippetarium
