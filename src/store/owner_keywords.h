#pragma once

#include "engine/on_progress.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

/// Deletes the keyword strings of an owner and of everything below it, with their links to search
/// words, and the search words that no other keyword string has. The owners themselves stay, also
/// without keywords. A stage of a deletion: a failure is reported, and false returned. `onProgress`
/// may be empty.
bool DeleteOwnerKeywords(Database& db, const Owner& owner, const OnProgress& onProgress = {});

}  // namespace snippetarium
