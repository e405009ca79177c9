#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/segment_builder.h"
#include "engine/sqlite_handle.h"
#include "engine/text_index.h"
#include "engine/text_lookup.h"

namespace snippetarium {

// The tables of the text index as those who write it see them. Every function throws EngineError
// and is one part of the transaction that its caller has open.

/// A segment as its row tells.
struct TextSegment {
    std::int64_t segmentID = 0;
    std::int32_t table = 0;
    SegmentState state = SegmentState::InUse;
    std::int64_t firstID = 0;
    std::int64_t rows = 0;
    std::int64_t bytes = 0;
};

/// True where the catalogue has an index of this table.
bool HasTextIndex(sqlite3* database, const IndexedTable& table);
std::vector<TextSegment> ReadTextSegments(sqlite3* database);
/// Adds a segment's row; returns the ID that it was given.
std::int64_t AddTextSegment(sqlite3* database, const TextSegment& segment);
/// Writes what may change in a segment's row: its state, firstID, rows and bytes.
void UpdateTextSegment(sqlite3* database, const TextSegment& segment);
/// Counts the table's segments in use anew.
void CountTextSegments(sqlite3* database, std::int32_t table);

/// Writes blocks of one segment.
class TextBlockTable {
  public:
    explicit TextBlockTable(sqlite3* database);

    void Write(std::int64_t segmentID, TextKey firstKey, std::string_view block);
    /// The size of all that was written.
    std::int64_t Bytes() const { return bytes_; }

  private:
    sqlite3* database_;
    StatementHandle insert_;
    std::int64_t bytes_ = 0;
};

/// Reads segments from their first block to their last.
class TextBlockReader {
  public:
    using Visit = std::function<void(TextKey key, std::string_view postings)>;

    explicit TextBlockReader(sqlite3* database);

    /// Visits the lists of the block that begins with a key, 0 for a segment's first; returns what
    /// the next one begins with. Throws EngineError Corrupted where it is missing or damaged.
    TextKey Read(std::int64_t segmentID, TextKey firstKey, const Visit& visit);

  private:
    sqlite3* database_;
    StatementHandle select_;
};

/// How many rows of a table wait to be taken in, at least: those with IDs above what is indexed,
/// deleted ones included, and those that were changed.
std::int64_t CountWaitingRows(sqlite3* database, const IndexedTable& table);

/// Makes a segment of rows that wait, as many as hold so many bytes of text, new ones first.
void TakeInWaitingRows(sqlite3* database, const IndexedTable& table, SegmentBuilder& builder,
                       std::size_t mostBytes);

/// Removes some blocks of a segment that is leaving, or that nobody finished, and with the last of
/// them its row.
void RemoveSomeBlocks(sqlite3* database, std::int64_t segmentID);

}  // namespace snippetarium
