#pragma once

#include <string>
#include <string_view>

#include "editors/class_record.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

// What the editors ask before something is lost that nobody sees go. Each function returns false
// where the user wants to go back to the editor.

/// A text of the owner that an import had to cut, and that the user changed: what was cut off does
/// not belong to it any more. `part` is its column, `what` the word for it.
bool MayForgetOverlong(Database& db, const Owner& owner, std::string_view part,
                       std::string_view what);

/// A code that is longer than the catalogue takes is cut, where the user says so.
bool FitOrCut(Database& db, std::string& code);

/// Procedures whose markers were in the stored text of the class and are not in the new one: their
/// markers are put at the end of the text, unless the user wants to do without them.
bool KeepMarkers(Database& db, ClassRecord& record, const ClassRecord& stored);

}  // namespace snippetarium
