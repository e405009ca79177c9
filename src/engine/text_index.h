#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace snippetarium {

// The text index.
//
// "x LIKE '%literal%'" asks for a text anywhere in another one, which no index of the engine below
// can answer: it would read every text of the catalogue. The text index knows, for every three
// characters that follow each other (a trigram, folded as the catalogue compares texts), which rows
// hold them. A row that holds a literal holds all its trigrams; so the rows that are in the lists
// of all of them are the candidates, few more than those that really hold it, and only these are
// read.
//
// The index lives in segments. A segment covers some rows of one table with all their indexed
// columns, is written once and never changes. Rows that were changed since are noted in a table by
// triggers, rows added since are those with IDs above the highest one that is indexed: both are
// read as they are, and so a write costs next to nothing. Now and then new segments are made of
// them, and many small segments merged into a large one (TextIndexCare). Rows that were deleted, or
// changed, leave their trigrams in their segments. That does no harm, since a candidate only counts
// when its text has been looked at.
//
// A damaged part of the index is noticed wherever it is read, and then texts are read as if there
// were no index.

/// A table whose texts are indexed, as the owner of the tables describes it. All IDs are positive
/// and fit into 32 bits.
struct IndexedTable {
    /// What the index calls the table: a small number of its own.
    std::int32_t number = 0;
    std::string_view name;
    std::string_view idColumn;
    /// At most 8.
    std::span<const std::string_view> columns;
    /// Where each row belongs to a row of another indexed table: the column that holds that row's
    /// ID, and the table. Else empty.
    std::string_view parentColumn = {};
    std::string_view parentTable = {};
};

/// IDs in ascending order: those of all rows whose text holds a literal, and maybe of others, also
/// of rows that do not exist any more. Nothing where the index cannot tell: every row may hold it.
using TextCandidates = std::optional<std::vector<std::int64_t>>;

/// One indexed column.
struct TextColumn {
    std::string_view table;
    std::string_view column;
};

enum class TendingPace : std::uint8_t {
    /// Some 10 milliseconds a call; a few rows may wait.
    WhenIdle,
    /// Larger steps, for whoever waits for the end; no row is left waiting.
    ToTheEnd,
};

/// How far the index of one table is.
struct TextIndexState {
    std::int32_t table = 0;
    std::int64_t rows = 0;
    /// Rows that are not in a segment, or not as they are now.
    std::int64_t waitingRows = 0;
    std::int64_t segments = 0;
    std::int64_t bytes = 0;
};

}  // namespace snippetarium
