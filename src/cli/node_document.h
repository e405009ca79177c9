#pragma once

#include "cli/json.h"
#include "editors/owner_details.h"
#include "support/node_key.h"

namespace snippetarium {

class Database;

/// All that the catalogue has of a node that is there: its fields, whole, its authors, dates and
/// keywords, and what is below it with its keys.
Json WholeNodeDocument(Database& db, const NodeIDs& node);

// Members of such documents.

Json AuthorsDocument(const std::vector<LinkedAuthor>& authors);
/// Null where there are none.
Json KeywordsDocument(const std::optional<OwnerKeywords>& keywords);

}  // namespace snippetarium
