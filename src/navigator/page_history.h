#pragma once

#include <cstddef>
#include <vector>

#include "support/node_key.h"

namespace snippetarium {

/// The pages that were shown, in their order, and which of them is shown now.
class PageHistory {
  public:
    /// A page is shown that was not reached by Back or Forward; what was ahead is forgotten. The
    /// page that is shown already is not noted twice.
    void Visit(const NodeIDs& node);

    bool CanGoBack() const { return current_ > 1; }
    bool CanGoForward() const { return current_ < pages_.size(); }
    /// The page that is shown now; all 0 where there is none.
    NodeIDs Current() const;
    // Where there is no way, the current page.
    NodeIDs Back();
    NodeIDs Forward();

    /// Forgets a node that was deleted, with all below it.
    void Forget(const NodeIDs& top);
    /// A node is now at another place of the tree.
    void Replace(const NodeIDs& before, const NodeIDs& now);

    static constexpr std::size_t kMostPages = 200;

  private:
    void RemoveRepeats();

    std::vector<NodeIDs> pages_;
    std::size_t current_ = 0;  // one behind the current page
};

}  // namespace snippetarium
