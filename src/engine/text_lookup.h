#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/candidate_table.h"
#include "engine/search_conditions.h"
#include "engine/sqlite_handle.h"
#include "engine/statement_cache.h"
#include "engine/statement_guard.h"
#include "engine/text_block.h"
#include "engine/text_index.h"
#include "engine/text_scan.h"

namespace snippetarium {

// Where the text index lies in the catalogue. The tables are empty or missing where it has none.
//
//     tblTextIndex(ownerTableID, indexedTo, segments)
//         for each table that is indexed: the highest ID that is, and the number of segments in use
//     tblTextSegment(segmentID, ownerTableID, state, firstID, rows, bytes)
//     tblTextBlock(blockID, block)
//         the lists of a segment: segmentID * 2^32 + the block's first key
//     tblTextDirty(ownerTableID, ownerID)
//         rows up to indexedTo that were added or changed since, noted by triggers

/// The state of a segment. Only those in use count for searches.
enum class SegmentState : std::uint8_t { Unfinished = 0, InUse = 1, Leaving = 2 };

constexpr std::int64_t BlockIDOf(std::int64_t segmentID, TextKey key) {
    return segmentID << 32 | key;
}

/// Finds rows by their texts, with the help of the index. Everything that it reads must be of one
/// moment, so whoever calls it has a transaction open.
class TextLookup {
  public:
    TextLookup(sqlite3* database, StatementGuard& guard, CandidateTable& lists,
               std::span<const IndexedTable> tables);

    std::span<const IndexedTable> Tables() const { return tables_; }

    /// The rows of which this column may be like the pattern, or equal to it: TextCandidates. Rows
    /// that are not in a segment are looked at here. Throws EngineError, also for a pattern that is
    /// none; but where the index is damaged, it just cannot tell.
    TextCandidates Find(const IndexedTable& table, unsigned column, TextComparison comparison,
                        const std::string& pattern);
    /// The same piece by piece.
    bool Advance(TextScan& scan) { return scan.Advance(*this); }
    /// Of these rows, those for which the comparison holds.
    std::vector<std::int64_t> Check(const IndexedTable& table, unsigned column,
                                    TextComparison comparison, const std::string& pattern,
                                    std::vector<std::int64_t> candidates);
    /// The rows for which the comparison holds; reads them all.
    std::vector<std::int64_t> Read(const IndexedTable& table, unsigned column,
                                   TextComparison comparison, const std::string& pattern);
    /// All numbers up to the highest ID, for a table whose rows are going to be read all, or nearly
    /// all: in the order of their IDs they are read as they lie in the file. Nothing where most of
    /// these numbers would be none of a row, or nobody knows.
    TextCandidates EveryID(const IndexedTable& table);
    /// The rows of a table that belong to these rows of its parent.
    std::vector<std::int64_t> ChildrenOf(const IndexedTable& table,
                                         std::vector<std::int64_t> parents);

    /// The statements that it keeps belong to a schema that is going to change.
    void Clear() { statements_.Clear(); }

    // What a scan is made of. Corrupted is thrown where the index is not whole.

    /// The column's table, null where it is not indexed, and its number there.
    std::pair<const IndexedTable*, unsigned> Find(const TextColumn& column) const;
    TextExtent ReadExtent(const IndexedTable& table);
    /// The first of the rows that are in no segment, and of those that were changed since they
    /// went into one, with IDs above this one: no more than may be looked at in one go.
    std::vector<std::int64_t> NewRows(const IndexedTable& table, std::int64_t behind);
    std::vector<std::int64_t> ChangedRows(const IndexedTable& table, std::int64_t behind);
    /// About how many bytes the list of a key has; nothing where it has none. A list that had to be
    /// read for this is handed over.
    std::optional<std::size_t> SizeOfList(const TextExtent::Segment& segment, TextKey key,
                                          std::optional<std::string>& postings);
    /// Empty where the key has none.
    std::string ReadList(const TextExtent::Segment& segment, TextKey key);
    /// Visits the lists of these keys, which ascend; returns how many bytes were read.
    std::size_t VisitLists(const TextExtent::Segment& segment, std::span<const TextKey> keys,
                           const std::function<void(std::string_view postings)>& visit);
    /// Visits the lists of the keys from `key` up to `end`; returns how many bytes were read. Stops
    /// when these are more than `mostBytes`.
    std::size_t ForEachList(const TextExtent::Segment& segment, TextKey key, TextKey end,
                            const std::function<void(std::string_view postings)>& visit,
                            std::size_t mostBytes = std::numeric_limits<std::size_t>::max());

  private:
    sqlite3_stmt* Prepare(const std::string& sql);
    std::int64_t FindBlock(const TextExtent::Segment& segment, TextKey key, std::size_t& size);
    void ReadIDs(const std::string& sql, std::span<const std::int64_t> numbers,
                 const std::string* text, std::vector<std::int64_t>& ids);

    sqlite3* database_;
    StatementGuard& guard_;
    CandidateTable& lists_;
    std::span<const IndexedTable> tables_;
    StatementCache statements_;
};

}  // namespace snippetarium
