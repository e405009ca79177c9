#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "support/node_key.h"

namespace snippetarium {

class Database;

struct ListedBookmark {
    NodeIDs node;
    /// "Draw - Grid - Paint": the procedure, its class and its application.
    std::string caption;

    bool operator==(const ListedBookmark&) const = default;
};

/// The bookmark pane without its controls. Each operation is guarded.
class BookmarkList {
  public:
    explicit BookmarkList(Database& db) : db_(db) {}

    /// Reads the bookmarks anew: after the start, and after anything was renamed or deleted.
    void Load();
    const std::vector<ListedBookmark>& Entries() const { return entries_; }
    /// The row of a bookmarked node.
    std::optional<std::size_t> RowOf(const NodeIDs& node) const;

    /// Bookmarks a class or a procedure; the user is told where that is not possible. True when it
    /// is new in the list.
    bool Add(const NodeIDs& node);
    bool Remove(const NodeIDs& node);
    /// The node to show, where it stands in the tree now. All 0 where it was deleted: the user has
    /// been told, and the bookmark is gone.
    NodeIDs Display(const ListedBookmark& bookmark);

  private:
    Database& db_;
    std::vector<ListedBookmark> entries_;
};

}  // namespace snippetarium
