#pragma once

#include <string_view>

#include "keywords/noise_words.h"

namespace snippetarium {

class Database;

// Editing single search words, of the index or of one keyword string. Each operation returns
// whether it was done; where it may not be, or the user decided otherwise, nothing is written.

/// Whether the entry can be a search word, blanks around it aside: one word of at most 50
/// characters that does not begin with a digit and is no noise word. The user has been told where
/// not.
bool CheckSearchWord(Database& db, const NoiseWords& noise, std::string_view entry);

/// Another spelling for a word of the index, for all who are found by it. Asks where the index has
/// the new one already: the two then become one. The keyword strings stay as they are. The entry is
/// to be checked before.
bool RenameIndexWord(Database& db, std::string_view word, std::string_view entry);

/// Asks first. Nobody is found by the word any more; the keyword strings stay as they are.
bool RemoveIndexWord(Database& db, std::string_view word);

}  // namespace snippetarium
