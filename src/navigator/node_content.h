#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "support/node_key.h"

namespace snippetarium {

class Database;

// What a deletion of a node takes along, how it is asked about, and the deletion itself.

/// What is below a node and goes with it.
struct NodeContent {
    /// Without class 1, which stays wherever it stands.
    std::size_t classes = 0;
    std::size_t procedures = 0;
};

/// Application 1 and class 1, which take in what belongs nowhere else: they are emptied and stay.
bool IsPermanent(const NodeIDs& node);

NodeContent ContentOf(Database& db, const NodeIDs& node);

/// "Delete the class 'Grid' with its 3 procedures?" `name` is the node's as it is to be shown.
std::string DeletionQuestion(const NodeIDs& node, std::string_view name,
                             const NodeContent& content);

/// Deletes the node with all that is in it, or empties it; what it was is in the trash then. Shows
/// its progress. A stage that fails is reported (store/deletion.h).
void DeleteNode(Database& db, const NodeIDs& node);

}  // namespace snippetarium
