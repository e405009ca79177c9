#pragma once

namespace snippetarium {

// The library writes its log in small pieces, two calls of the system for each page that a
// statement has changed: 24 bytes that say which page it is, and the page. Statements that commit
// by themselves change a dozen pages each, in one stretch of the log. Joined, they are one call.
//
// Nothing is held back beyond the statement: what a statement writes is in the log's file before
// the library tells anybody that it is committed. So a kill of the program loses as little as
// before, and other programs see the same. A connection that writes through it must not write pages
// before their commit (PRAGMA cache_spill = OFF): after a rollback such pages would still be held,
// and be written later over what others have committed there since.

/// The name of the layer between the library and the system that joins the pieces, for opening a
/// database with it. Registers it at the first call; null where the library refuses that, which
/// means its usual layer.
const char* JoinedLogLayer();

}  // namespace snippetarium
