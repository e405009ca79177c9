#include "navigator/bookmark_list.h"

#include <algorithm>

#include "editors/field_rules.h"
#include "navigator/node.h"
#include "search/topic_list.h"
#include "store/bookmarks.h"
#include "store/database.h"
#include "store/reads_other.h"
#include "support/guard.h"
#include "support/message_boxes.h"

namespace snippetarium {

namespace {

Topic TopicFor(const NodeIDs& node) {
    return node.codeID != 0 ? Topic{TopicLevel::Procedure, node.codeID}
                            : Topic{TopicLevel::Class, node.classID};
}

}  // namespace

void BookmarkList::Load() {
    Guarded(db_.Reporter(), Procedure::LoadBookmarks, [&] {
        entries_.clear();
        for (Recordset row = Favorite(db_); !row.EndOfFile(); row.MoveNext()) {
            const NodeIDs node{row["appID"].Long(), row["classID"].Long(), row["codeID"].Long()};
            std::string caption =
                std::string(row["className"].Text()) + " - " + std::string(row["appName"].Text());
            if (node.codeID != 0) caption = std::string(row["codeName"].Text()) + " - " + caption;
            entries_.push_back({node, caption});
        }
    });
}

std::optional<std::size_t> BookmarkList::RowOf(const NodeIDs& node) const {
    const auto found = std::ranges::find(entries_, node, &ListedBookmark::node);
    if (found == entries_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - entries_.begin());
}

bool BookmarkList::Add(const NodeIDs& node) {
    return Guarded(db_.Reporter(), Procedure::AddListedBookmark, [&] {
        if (node.classID == 0)
            return RefuseEntry(db_, "Classes and procedures can be bookmarked, not applications.");
        if (!AddBookmark(db_, KeyOf(node))) {
            return RefuseEntry(
                db_, node.codeID != 0 ? "This procedure is bookmarked already."
                                      : "This class is bookmarked already, or a procedure of it.");
        }
        Load();
        return true;
    });
}

bool BookmarkList::Remove(const NodeIDs& node) {
    return Guarded(db_.Reporter(), Procedure::RemoveListedBookmark, [&] {
        const bool wasThere = DeleteBookmark(db_, KeyOf(node));
        Load();
        return wasThere;
    });
}

NodeIDs BookmarkList::Display(const ListedBookmark& bookmark) {
    return Guarded(db_.Reporter(), Procedure::DisplayBookmark, [&] {
        const NodeIDs node = TopicNode(db_, TopicKey(TopicFor(bookmark.node)));
        if (node != NodeIDs{}) return node;
        // Copied: it may be one of the list that is read anew.
        const NodeIDs gone = bookmark.node;
        ShowErrorMessage(db_.GetHost().messages, "This Class or Code has been deleted.",
                         kErrorTitle);
        Remove(gone);
        return NodeIDs();
    });
}

}  // namespace snippetarium
