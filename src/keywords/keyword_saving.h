#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "keywords/noise_words.h"
#include "support/host.h"

namespace snippetarium {

class Database;

/// Stores a keyword string as it was typed, with links to its search words. A string without any is
/// stored too. Returns the new keywordID, for the owner's row; 0 on a failure.
std::int32_t SaveKeyword(Database& db, const NoiseWords& noise, std::string_view keyword,
                         std::int32_t separatorID);

/// For a text that nobody typed as a keyword string, such as a comment's: stores its search words,
/// with blanks between them, as the string, with links to them. Stores nothing and returns 0 where
/// no visible ASCII character is among them.
std::int32_t SaveDerivedKeyword(Database& db, const NoiseWords& noise, std::string_view text);

/// The question after an owner was saved without keywords; ownerKind is the word for it, such as
/// "class". Yes is for the editor to act on.
StandardAnswer AskForKeywords(MessageBoxes& messages, std::string_view ownerKind);

/// For the new spelling of a search word: tells the user to enter one, and returns false, where
/// there is none.
bool AcceptNewWord(MessageBoxes& messages, std::string_view entry);

}  // namespace snippetarium
