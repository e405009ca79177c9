#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "engine/recordset.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

// The rows behind keywords: keyword strings, search words, the links between them, noise words.
// What a keyword string's search words are is decided above this.
//
// Texts come as they were typed; their quotes are doubled here. A search word is at most 50
// characters long: a longer one is cut, and so finds the row it was stored in. An empty one is
// refused. IDs of keywords and search words are the maximum plus one.
//
// A failure is reported; what gives an ID then gives 0, what gives rows a closed recordset, and
// what was written before it stays.

/// Returns the new keywordID.
std::int32_t AddKeyword(Database& db, std::string_view keyword, std::int32_t separatorID);
void UpdateKeyword(Database& db, std::int32_t keywordID, std::string_view keyword,
                   std::int32_t separatorID);
/// The row of an owner that exists already gets the keyword, or none.
void SetOwnerKeyword(Database& db, const Owner& owner, std::int32_t keywordID);
void ClearOwnerKeyword(Database& db, const Owner& owner);
/// Every keyword string: keywordID, keyword, separatorID, and the separator's text (null for an
/// unknown one).
Recordset KeywordsWithSeparators(Database& db);

/// Links the keyword to each word, to its row where it has one, else to a new one. Empty words are
/// passed over.
void LinkKeywordSearchWords(Database& db, std::int32_t keywordID,
                            std::span<const std::string_view> words);
/// 0 when there is no such search word. Letter case does not count.
std::int32_t FindSearchWord(Database& db, std::string_view word);
/// Returns the new searchWordID.
std::int32_t AddSearchWord(Database& db, std::string_view word);
/// Does nothing where the link is there already.
void LinkSearchWord(Database& db, std::int32_t keywordID, std::int32_t searchWordID);
/// Where another row has that word already, the two become that one with the keywords of both: two
/// rows of one word would both stand in the index.
void RenameSearchWord(Database& db, std::int32_t searchWordID, std::string_view word);

/// The two search words of a link that is moved from one to the other.
struct SearchWordChange {
    std::int32_t oldSearchWordID = 0;
    std::int32_t newSearchWordID = 0;
};
/// Where the keyword is linked to both, the old link goes.
void RelinkSearchWord(Database& db, std::int32_t keywordID, SearchWordChange change);
void DeleteSearchWord(Database& db, std::int32_t searchWordID);
/// The search words equal to these, links first.
void DeleteSearchWords(Database& db, std::span<const std::string> words);

/// A row for each word that has none. Noise words are cut to 255 characters.
void AddNoiseWordRows(Database& db, std::span<const std::string> words);
void DeleteNoiseWordRow(Database& db, std::string_view word);

}  // namespace snippetarium
