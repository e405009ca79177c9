#include "cli/node_argument.h"

#include "cli/commands.h"
#include "cli/usage_error.h"
#include "store/database.h"
#include "store/owner_place.h"
#include "support/error.h"

namespace snippetarium {

NodeIDs ReadNodeKey(const std::string& key) {
    const NodeIDs node = ParseNodeKey(key);
    if (KeyOf(node) == key && node.appID != 0) return node;
    throw UsageError("'" + key +
                     "' is no key of a node. Keys look like a12 (an application), a12f34 (a "
                     "class) and a12f34c56 (a procedure).");
}

void RequireNode(Database& db, const NodeIDs& node) {
    const NodeIDs found = PlaceOf(db, OwnerOf(node));
    if (found == node) return;
    const std::string hint =
        found == NodeIDs{} ? "'" + std::string(kProgramName) + " tree' prints the keys it has."
                           : "The key of this " + std::string(KindName(KindOf(node))) + " is '" +
                                 KeyOf(found) + "'.";
    throw Error(error_number::kInvalidCall, "The catalogue has no '" + KeyOf(node) + "'. " + hint);
}

}  // namespace snippetarium
