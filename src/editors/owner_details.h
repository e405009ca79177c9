#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "keywords/noise_words.h"
#include "store/author_links.h"
#include "store/owner.h"

namespace snippetarium {

class Database;

// What an application, a class or a procedure can have besides its own fields: authors, dates and
// a keyword string.

struct LinkedAuthor {
    std::int32_t authorID = 0;
    AuthorName name = {};
};

/// A keyword string as it was typed, and which separator stands between its entries.
struct KeywordEntry {
    std::string text = {};
    std::int32_t separatorID = 1;

    bool operator==(const KeywordEntry&) const = default;
};

struct OwnerKeywords {
    KeywordEntry entry;
    std::string separatorDescription;
    /// The words by which the owner is found, with blanks between them.
    std::string searchWords;
};

struct OwnerDetails {
    /// In the order in which they were linked.
    std::vector<LinkedAuthor> authors;
    /// In the catalogue's form, the earliest first.
    std::vector<std::string> dates;
    std::optional<OwnerKeywords> keywords;
};

/// Nothing of all three where there is no such owner, and on a failure.
OwnerDetails LoadOwnerDetails(Database& db, const Owner& owner);

/// What is to be put in the place of what the owner has; what is left out stays.
struct DetailChanges {
    std::optional<std::vector<AuthorName>> authors = {};
    std::optional<std::vector<std::string>> dates = {};
    /// A blank text takes the keywords away.
    std::optional<KeywordEntry> keywords = {};
};

/// Whether the changes may be stored: every author has a name that fits, every date is one, and the
/// separator is known. Where not, the user has been told why.
bool CheckDetailChanges(Database& db, const DetailChanges& changes);

/// To be checked before. Keywords that no owner has any more are removed, with the search words
/// that only they had; authors and dates stay for others to use.
void SaveDetailChanges(Database& db, const NoiseWords& noise, const Owner& owner,
                       const DetailChanges& changes);

}  // namespace snippetarium
