#pragma once

#include "engine/cancel_poll.h"

struct sqlite3;

namespace snippetarium {

/// Gives a database connection the catalogue's comparison of text: the collation CATNC, which sorts
/// by CompareFolded, and the LIKE operator of LikePattern in place of the built-in one.
///
/// The collation is not put in place of a built-in one: a tool that knew the name but not the rule
/// would write into indexes in the wrong order. Without the collation it fails instead.
///
/// LIKE compares numbers as their text and gives null for a null operand. An invalid pattern ends
/// the statement with LikePattern's text; a match that was cancelled ends it with SQLITE_INTERRUPT.
/// The ESCAPE clause is refused: wildcards are quoted in brackets.
///
/// `poll` is asked during long matches; it may be null, else it must outlive the connection. Throws
/// EngineError Unexpected when the database refuses.
void InstallTextComparison(sqlite3* database, const CancelPoll* poll);

}  // namespace snippetarium
