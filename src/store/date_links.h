#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "store/owner.h"
#include "support/calendar.h"

namespace snippetarium {

class Database;

// Dates and their links to owners. One date row serves all who name the same day; it is found and
// used again, and goes when a deletion removes its last link.
//
// A failure is reported, and what was written before it stays: links that were removed to be
// replaced are then gone. Whether the owner exists is not looked at.

/// Gives the owner these dates in place of those it has; an empty list removes all. An entry that
/// is no date (support/date_text.h) is skipped. Date rows that lost their last link here stay.
void ReplaceDateLinks(Database& db, const Owner& owner, std::span<const std::string> dates);

/// What every write of an owner does with its date list: as ReplaceDateLinks, but a list whose
/// first entry is empty (support/arrays.h) says nothing about the dates, and they stay as they are.
void ReplaceGivenDateLinks(Database& db, const Owner& owner, std::span<const std::string> dates);

/// The row of that date, added where there is none; 0 on a failure.
std::int32_t FindOrAddDate(Database& db, const DateTime& date);

/// Removes the date links of some owners, and the dates that nobody else is linked to. A stage of a
/// deletion: a failure is reported, and false returned. `ownerIDs` as in store/link_removal.h.
bool RemoveDateLinks(Database& db, OwnerKind kind, std::string_view ownerIDs);

}  // namespace snippetarium
