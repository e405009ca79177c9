#pragma once

#include <memory>

#include "forms/child_pane.h"
#include "navigator/page.h"
#include "navigator/page_history.h"

class QPlainTextEdit;

namespace snippetarium {

class Database;

namespace Ui {
class fPage;
}

/// The page view: a heading and the text of an application, a class or a procedure.
class fPage final : public ChildPane {
    Q_OBJECT

  public:
    fPage(Database& db, QWidget* parent);
    ~fPage() override;

    /// Takes over what the catalogue keeps for the view, once it is open.
    void ReadSettings();

    /// Shows the node's page; all 0 clears the view. The page that is shown already is read anew.
    void ShowPage(const NodeIDs& node);
    const NodeIDs& Shown() const { return page_.node; }
    const Page& ShownPage() const { return page_; }
    /// The control that holds the text.
    QPlainTextEdit& Text() const;
    bool HasText() const { return !page_.text.empty(); }
    bool HasSelection() const;

    PageHistory& History() { return history_; }
    const PageHistory& History() const { return history_; }

    /// Marks the words in the page that is shown, until it is another.
    void MarkWords(const QStringList& words);

    void SetWrap(bool wrap);
    void Copy();
    void SelectAll();
    void Clear();
    /// Puts the whole text, with what the heading repeats, on the clipboard.
    void CopyWhole();
    /// The print dialog, then the page's text or its selection on the printer.
    void Print();

    /// Changes the size of the text by this many steps of a point; 0 goes back to the usual size.
    void ChangeTextSize(int steps);

    void FocusFirst() override;

  signals:
    /// A heading line or a marker leads to another node.
    void NodeRequested(const NodeIDs& node);
    void SelectionChanged();
    void MenuRequested(const QPoint& globalPosition);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QString HeadingHtml() const;
    /// What stands in the text box of a page without text.
    QString TextInPlaceOfNone() const;
    void ApplyTextSize();

    Database& db_;
    std::unique_ptr<Ui::fPage> ui_;
    Page page_;
    PageHistory history_;
    int textSteps_ = 0;
    QString hint_;
};

}  // namespace snippetarium
