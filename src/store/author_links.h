#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "store/owner.h"

namespace snippetarium {

class Database;

// Authors and their links to owners. One author row serves all who name the same person; it is
// found and used again, and goes when a deletion removes its last link.
//
// A failure is reported, and what was written before it stays. Whether an owner or an author of an
// ID exists is not looked at.

/// A part that is absent is the empty text. Each counts by its first 50 characters, and letter case
/// does not count.
struct AuthorName {
    std::string first = {};
    std::string middle = {};
    std::string last = {};

    bool operator==(const AuthorName&) const = default;
};

/// The author of that name, added where there is none; 0 on a failure.
std::int32_t FindOrAddAuthor(Database& db, const AuthorName& name);

/// Adds the links that are missing, in the order of the list. Others stay. IDs below 1 are skipped:
/// the first entry of an empty list is one (support/arrays.h).
void LinkAuthors(Database& db, const Owner& owner, std::span<const std::int32_t> authorIDs);

/// Adds one link without looking whether it is there.
void AddAuthorLink(Database& db, const Owner& owner, std::int32_t authorID);

/// Puts one author in the place of another. Where the owner is linked to both, the old link goes.
void RelinkAuthor(Database& db, const Owner& owner, std::int32_t oldAuthorID,
                  std::int32_t newAuthorID);

/// Shows under every owner that is linked to the author.
void UpdateAuthorName(Database& db, std::int32_t authorID, const AuthorName& name);

/// Removes the author links of some owners, and the authors that nobody else is linked to. A stage
/// of a deletion: a failure is reported, and false returned. `ownerIDs` as in store/link_removal.h.
bool RemoveAuthorLinks(Database& db, OwnerKind kind, std::string_view ownerIDs);

/// Removes the links of some owners to one author. The author stays, also without any link.
/// `ownerIDs` as in store/link_removal.h.
void UnlinkAuthor(Database& db, OwnerKind kind, std::string_view ownerIDs, std::int32_t authorID);

}  // namespace snippetarium
