#pragma once

struct sqlite3_pcache_methods2;

namespace snippetarium {

// When a statement ends, the library tells its cache of pages how many pages the file has, so that
// pages behind the end are forgotten. The cache remembers the highest number it was ever given and,
// where that is above the file's end, looks through all of its pages. Balancing a tree gives a page
// a number far above every file for a moment, while two pages trade places. So each of the many
// small statements of an import that balances a tree goes through the whole cache, thousands of
// pages, to find nothing: a sixth of all that storing costs.
//
// The layer in front of the library's cache knows which number was given for a moment only, and
// passes on the end of the file only where pages may stand behind it.

/// The methods of the layer, for trying them alone.
const sqlite3_pcache_methods2& PageCacheLayer();

/// Puts the layer in front of the cache of all connections. Only what comes before the library's
/// first use counts; later calls change nothing, and the library then does without the layer.
void InstallPageCacheLayer();

}  // namespace snippetarium
