#pragma once

#include <string_view>

#include "support/node_key.h"

namespace snippetarium {

class Database;

// What a person may enter, whatever the field belongs to. Each function returns whether the entry
// is good, and where it is not has told the user why. Names have rules of their own besides
// (store/name_rules.h).

/// Tells the user why an entry is refused. Returns false.
bool RefuseEntry(Database& db, std::string_view message);

/// Refuses what is more than one word.
bool RefuseSeveralWords(Database& db);

/// A name is one line: no line break, tab or other control character. An import takes names with
/// line breaks as they come, so a name that stays as it is is not asked about.
bool IsOneLine(Database& db, std::string_view name);

/// `what` is the field for the message, such as "code".
bool FitsLongText(Database& db, std::string_view what, std::string_view text);

/// Application 1 and class 1 take in what belongs to no other, and stay as they are. What is in
/// them may be edited.
bool MayEditNode(Database& db, const NodeIDs& node);

}  // namespace snippetarium
