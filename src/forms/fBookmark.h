#pragma once

#include <memory>

#include "forms/child_pane.h"
#include "navigator/bookmark_list.h"

namespace snippetarium {

class Database;

namespace Ui {
class fBookmark;
}

/// The bookmark pane.
class fBookmark final : public ChildPane {
    Q_OBJECT

  public:
    fBookmark(Database& db, QWidget* parent);
    ~fBookmark() override;

    /// Reads the bookmarks anew, as soon as the pane can be seen; the one that was selected stays
    /// so.
    void Load();

    bool HasBookmark() const;
    /// False where it was not added; the user has been told why.
    bool Add(const NodeIDs& node);
    void RemoveSelected();
    void DisplaySelected();

    void FocusFirst() override;

  signals:
    void NodeRequested(const NodeIDs& node);
    void SelectionChanged();
    void MenuRequested(const QPoint& globalPosition);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Read();
    const ListedBookmark* Selected() const;
    void List(const NodeIDs& selected);

    Database& db_;
    BookmarkList bookmarks_;
    std::unique_ptr<Ui::fBookmark> ui_;
    /// Whether the list is to be read when the pane is shown.
    bool isStale_ = false;
};

}  // namespace snippetarium
