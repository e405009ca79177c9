#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace snippetarium {

/// The sizes are those of the texts that are stored: a longer value is cut before it is looked up.
enum class QueryParameterKind : std::uint8_t { Long, Text50, Text255, LongText };

struct QueryParameter {
    std::string_view name;
    QueryParameterKind kind = QueryParameterKind::Long;

    bool operator==(const QueryParameter&) const = default;
};

/// A stored query as the program knows it. What it reads is written in the catalogue file.
struct StoredQuery {
    std::string_view name;
    /// In the order in which they are handed over: "codeName T255, classID I".
    std::string_view parameters;
};

/// Every stored query of a catalogue, by the table that each mainly reads.
std::span<const StoredQuery> StoredQueries();

/// Null when there is none of that name; letter case does not count.
const StoredQuery* FindStoredQuery(std::string_view name);

/// Takes a declaration apart: names and kinds I (Long), T50, T255 and L (LongText).
///
///     "codeName T255, classID I"  ->  {codeName, Text255}, {classID, Long}
///
/// The names are parts of the text that was passed. Throws Error for a kind that does not exist, a
/// name that is no plain word, and one that occurs twice.
std::vector<QueryParameter> ParseQueryParameters(std::string_view declaration);

/// The names of a catalogue's tables, in the order in which they are made.
std::span<const std::string_view> CatalogueTables();

}  // namespace snippetarium
