#pragma once

#include <functional>
#include <string_view>

namespace snippetarium {

class Database;

// The keywords of a deletion go before its procedures. To take each deleted keyword from its
// procedure would write that row and three indexes anew just before they go too, a third of the
// time of a large deletion. So classes of which every procedure is going to be deleted stand in
// tblClassesToEmpty meanwhile, and their procedures keep the IDs of their keywords.
//
// Such an ID must never meet a keyword that is given it again. So the triggers of the catalogue
// take it away when its class leaves the list, and from a procedure that is still there when a new
// keyword gets its ID: no failure of the deletion, and no kill, comes between.

/// Runs a deletion of all procedures of some classes, which returns whether everything was done.
/// `classIDs` is what stands between the brackets of IN. Returns false when something failed, which
/// has been reported.
bool EmptyClasses(Database& db, std::string_view classIDs, const std::function<bool()>& deletion);

/// Ends what a deletion began that was killed. Throws EngineError.
void ForgetClassesToEmpty(Database& db);

}  // namespace snippetarium
