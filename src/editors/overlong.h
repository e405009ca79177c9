#pragma once

#include <string>
#include <string_view>

#include "store/owner.h"

namespace snippetarium {

class Database;

// What an import cut off a text that is longer than its column takes is kept beside it, and export
// puts it back. `part` is the column of the text: "code", "classDI", "codeComment" and so on.

/// What was cut off; empty where nothing was.
std::string OverlongRest(Database& db, const Owner& owner, std::string_view part);

/// After the text has been written anew by hand: what was cut off the old one does not belong to
/// it.
void ForgetOverlong(Database& db, const Owner& owner, std::string_view part);

}  // namespace snippetarium
