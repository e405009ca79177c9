#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/recordset.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

/// A topic as a list shows it. The names below its level are empty.
struct ListedTopic {
    std::string procedureName;
    std::string className;
    std::string appName;
    /// The IDs of the topic and of what holds it; 0 below its level.
    NodeIDs ids;

    bool operator==(const ListedTopic&) const = default;
};

/// The deepest level of a listed topic, and its ID there.
Topic TopicOf(const ListedTopic& topic);

/// The topics that a search found, in the order of its rows, and which of them is selected. It
/// stands behind the list of the search form and behind that of the topics of an index word.
class TopicList {
  public:
    const std::vector<ListedTopic>& Topics() const { return topics_; }
    /// What a list keeps for its item: "a1", "c2" or "f3".
    std::string KeyAt(std::size_t index) const { return TopicKey(TopicOf(topics_.at(index))); }

    /// Nothing is selected afterwards.
    void Replace(std::vector<ListedTopic> topics);
    /// Throws std::out_of_range where the list is shorter.
    void Select(std::size_t index);
    /// The key of the selected topic; empty when none is, and there is nothing to display.
    std::string SelectedKey() const { return selected_ ? KeyAt(*selected_) : std::string(); }

  private:
    std::vector<ListedTopic> topics_;
    std::optional<std::size_t> selected_;
};

/// Fills the list from a search's rows, whose columns are read by name. False when there is no row;
/// the list then stays as it was, and so it does on a failure.
bool ListSearchResults(Database& db, Recordset found, TopicList& list);

/// Fills the list with what bears a word of the index. False as in ListSearchResults.
bool ListTopicsOfWord(Database& db, std::string_view word, TopicList& list);

/// Where a topic stands in the contents tree now; all 0 when it is gone, and on a failure. `key` is
/// a topic's: "f56" gives {12, 34, 56}.
NodeIDs TopicNode(Database& db, std::string_view key);

}  // namespace snippetarium
