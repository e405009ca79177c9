#include "engine/text_lookup.h"

#include <sqlite3.h>

#include <algorithm>
#include <numeric>
#include <optional>

#include "engine/engine_error.h"
#include "engine/fetch_rows.h"
#include "engine/jet_like.h"
#include "engine/posting_list.h"

namespace snippetarium {

namespace {

constexpr std::size_t kKeptStatements = 48;
constexpr std::int64_t kRowsInOneGo = 64;

std::string Compare(const IndexedTable& table, unsigned column, TextComparison comparison) {
    return std::string(table.columns[column]) +
           (comparison == TextComparison::Like ? " LIKE ?3" : " = ?3");
}

std::string SelectIDs(const IndexedTable& table) {
    return "SELECT " + std::string(table.idColumn) + " FROM " + std::string(table.name) + " WHERE ";
}

[[noreturn]] void ThrowMissing() {
    throw EngineError(EngineErrorCode::Corrupted, "A block of the text index is missing.");
}

}  // namespace

TextLookup::TextLookup(sqlite3* database, StatementGuard& guard, CandidateTable& lists,
                       std::span<const IndexedTable> tables)
    : database_(database),
      guard_(guard),
      lists_(lists),
      tables_(tables),
      statements_(kKeptStatements) {}

sqlite3_stmt* TextLookup::Prepare(const std::string& sql) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    return statements_.Get(database_, sql);
}

TextCandidates TextLookup::Find(const IndexedTable& table, unsigned column,
                                TextComparison comparison, const std::string& pattern) {
    TextScan scan({table.name, table.columns[column]}, comparison, pattern);
    while (scan.Advance(*this)) {
    }
    return scan.Candidates();
}

std::pair<const IndexedTable*, unsigned> TextLookup::Find(const TextColumn& column) const {
    for (const IndexedTable& table : tables_) {
        const auto found = std::ranges::find(table.columns, column.column);
        if (table.name != column.table || found == table.columns.end()) continue;
        return {&table, static_cast<unsigned>(found - table.columns.begin())};
    }
    return {nullptr, 0};
}

std::vector<std::int64_t> TextLookup::NewRows(const IndexedTable& table, std::int64_t behind) {
    const std::string idColumn(table.idColumn);
    const std::int64_t numbers[] = {behind, kRowsInOneGo};
    std::vector<std::int64_t> ids;
    ReadIDs(SelectIDs(table) + idColumn + " > ?1 ORDER BY " + idColumn + " LIMIT ?2", numbers,
            nullptr, ids);
    return ids;
}

std::vector<std::int64_t> TextLookup::ChangedRows(const IndexedTable& table, std::int64_t behind) {
    const std::int64_t numbers[] = {behind, kRowsInOneGo, table.number};
    std::vector<std::int64_t> ids;
    ReadIDs(
        "SELECT ownerID FROM tblTextDirty WHERE ownerTableID = ?3 AND ownerID > ?1 "
        "ORDER BY ownerID LIMIT ?2",
        numbers, nullptr, ids);
    return ids;
}

std::vector<std::int64_t> TextLookup::Check(const IndexedTable& table, unsigned column,
                                            TextComparison comparison, const std::string& pattern,
                                            std::vector<std::int64_t> candidates) {
    const std::int64_t numbers[] = {static_cast<std::int64_t>(lists_.Add(std::move(candidates)))};
    std::vector<std::int64_t> ids;
    ReadIDs(SelectIDs(table) + std::string(table.idColumn) + " IN tblTextCandidates(?1) AND " +
                Compare(table, column, comparison),
            numbers, &pattern, ids);
    return ids;
}

std::vector<std::int64_t> TextLookup::Read(const IndexedTable& table, unsigned column,
                                           TextComparison comparison, const std::string& pattern) {
    std::vector<std::int64_t> ids;
    ReadIDs(SelectIDs(table) + Compare(table, column, comparison), {}, &pattern, ids);
    return ids;
}

TextCandidates TextLookup::EveryID(const IndexedTable& table) {
    const TextExtent extent = ReadExtent(table);
    std::int64_t indexed = 0;
    for (const TextExtent::Segment& segment : extent.segments)
        indexed += segment.rows;
    std::vector<std::int64_t> ids;
    ReadIDs("SELECT max(" + std::string(table.idColumn) + ") FROM " + std::string(table.name), {},
            nullptr, ids);
    const std::int64_t highest = ids.front();
    if (highest > 2 * indexed) return std::nullopt;
    ids.resize(static_cast<std::size_t>(highest));
    std::iota(ids.begin(), ids.end(), std::int64_t{1});
    return ids;
}

std::vector<std::int64_t> TextLookup::ChildrenOf(const IndexedTable& table,
                                                 std::vector<std::int64_t> parents) {
    const std::int64_t numbers[] = {static_cast<std::int64_t>(lists_.Add(std::move(parents)))};
    std::vector<std::int64_t> ids;
    ReadIDs(SelectIDs(table) + std::string(table.parentColumn) + " IN tblTextCandidates(?1)",
            numbers, nullptr, ids);
    std::ranges::sort(ids);
    return ids;
}

TextExtent TextLookup::ReadExtent(const IndexedTable& table) {
    TextExtent extent;
    std::int64_t segments = 0;
    try {
        sqlite3_stmt* row =
            Prepare("SELECT indexedTo, segments FROM tblTextIndex WHERE ownerTableID = ?1");
        const StatementRun run(row);
        sqlite3_bind_int64(row, 1, table.number);
        const int result = sqlite3_step(row);
        if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
        extent.isThere = result == SQLITE_ROW;
        extent.indexedTo = sqlite3_column_int64(row, 0);
        segments = sqlite3_column_int64(row, 1);
    } catch (const EngineError& error) {
        // A catalogue of before there was an index, open for reading.
        if (error.Code() != EngineErrorCode::NoSuchTable) throw;
        return extent;
    }
    sqlite3_stmt* row = Prepare(
        "SELECT segmentID, firstID, rows, bytes FROM tblTextSegment "
        "WHERE ownerTableID = ?1 AND state = ?2 ORDER BY firstID DESC");
    const StatementRun run(row);
    sqlite3_bind_int64(row, 1, table.number);
    sqlite3_bind_int64(row, 2, static_cast<int>(SegmentState::InUse));
    int result = SQLITE_OK;
    while ((result = sqlite3_step(row)) == SQLITE_ROW)
        extent.segments.push_back({sqlite3_column_int64(row, 0), sqlite3_column_int64(row, 1),
                                   sqlite3_column_int64(row, 2), sqlite3_column_int64(row, 3)});
    if (result != SQLITE_DONE) ThrowEngineError(database_, result);
    if (static_cast<std::int64_t>(extent.segments.size()) != segments) {
        throw EngineError(EngineErrorCode::Corrupted, "A segment of the text index is missing.");
    }
    return extent;
}

/// The block that covers the key, and its size.
std::int64_t TextLookup::FindBlock(const TextExtent::Segment& segment, TextKey key,
                                   std::size_t& size) {
    sqlite3_stmt* row = Prepare(
        "SELECT blockID, length(block) FROM tblTextBlock WHERE blockID <= ?1 "
        "ORDER BY blockID DESC LIMIT 1");
    const StatementRun run(row);
    sqlite3_bind_int64(row, 1, BlockIDOf(segment.segmentID, key));
    const int result = sqlite3_step(row);
    if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
    const std::int64_t blockID = sqlite3_column_int64(row, 0);
    if (result == SQLITE_DONE || blockID < BlockIDOf(segment.segmentID, 0)) ThrowMissing();
    size = static_cast<std::size_t>(sqlite3_column_int64(row, 1));
    return blockID;
}

std::optional<std::size_t> TextLookup::SizeOfList(const TextExtent::Segment& segment, TextKey key,
                                                  std::optional<std::string>& postings) {
    std::size_t size = 0;
    const std::int64_t blockID = FindBlock(segment, key, size);
    // A list that is longer than a page begins its block.
    if (size > kLargestSharedTextBlock && blockID == BlockIDOf(segment.segmentID, key) && key > 0) {
        return size;
    }
    postings = ReadList(segment, key);
    return postings->empty() ? std::nullopt : std::optional(postings->size());
}

std::string TextLookup::ReadList(const TextExtent::Segment& segment, TextKey key) {
    std::string list;
    VisitLists(segment, {&key, 1}, [&](std::string_view postings) { list = postings; });
    return list;
}

std::size_t TextLookup::VisitLists(const TextExtent::Segment& segment,
                                   std::span<const TextKey> keys,
                                   const std::function<void(std::string_view postings)>& visit) {
    std::size_t size = 0;
    for (auto key = keys.begin(); key != keys.end();) {
        sqlite3_stmt* row = Prepare(
            "SELECT blockID, block FROM tblTextBlock WHERE blockID <= ?1 "
            "ORDER BY blockID DESC LIMIT 1");
        const StatementRun run(row);
        sqlite3_bind_int64(row, 1, BlockIDOf(segment.segmentID, *key));
        const int result = sqlite3_step(row);
        if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
        const std::int64_t behindSegment =
            sqlite3_column_int64(row, 0) - BlockIDOf(segment.segmentID, 0);
        if (result == SQLITE_DONE || behindSegment < 0) ThrowMissing();
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, 1));
        const auto blockSize = static_cast<std::size_t>(sqlite3_column_bytes(row, 1));
        const TextBlock block(static_cast<TextKey>(behindSegment), {bytes, blockSize});
        if (!block.Covers(*key)) ThrowMissing();
        for (; key != keys.end() && block.Covers(*key); ++key) {
            if (const auto postings = block.Find(*key)) visit(*postings);
        }
        size += blockSize;
    }
    return size;
}

std::size_t TextLookup::ForEachList(const TextExtent::Segment& segment, TextKey key, TextKey end,
                                    const std::function<void(std::string_view postings)>& visit,
                                    std::size_t mostBytes) {
    std::size_t size = 0;
    std::int64_t next = FindBlock(segment, key, size);
    sqlite3_stmt* row = Prepare(
        "SELECT blockID, block FROM tblTextBlock WHERE blockID >= ?1 AND blockID < ?2 "
        "ORDER BY blockID");
    const StatementRun run(row);
    sqlite3_bind_int64(row, 1, next);
    sqlite3_bind_int64(row, 2, BlockIDOf(segment.segmentID, end));
    size = 0;
    int result = SQLITE_OK;
    while ((result = sqlite3_step(row)) == SQLITE_ROW) {
        if (sqlite3_column_int64(row, 0) != next) break;
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, 1));
        const auto blockSize = static_cast<std::size_t>(sqlite3_column_bytes(row, 1));
        const auto firstKey = static_cast<TextKey>(next - BlockIDOf(segment.segmentID, 0));
        const TextBlock block(firstKey, {bytes, blockSize});
        block.ForEach([&](TextKey found, std::string_view postings) {
            if (found >= key && found < end) visit(postings);
        });
        next = BlockIDOf(segment.segmentID, block.End());
        size += blockSize;
        if (size > mostBytes) return size;
    }
    if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
    if (next < BlockIDOf(segment.segmentID, end)) ThrowMissing();
    return size;
}

/// Appends the first column of all rows. `numbers` are the values of ?1 and ?2 and `text` of ?3, as
/// far as the statement has them.
void TextLookup::ReadIDs(const std::string& sql, std::span<const std::int64_t> numbers,
                         const std::string* text, std::vector<std::int64_t>& ids) {
    sqlite3_stmt* row = Prepare(sql);
    const StatementRun run(row);
    int index = 0;
    for (const std::int64_t number : numbers)
        sqlite3_bind_int64(row, ++index, number);
    if (text != nullptr)
        sqlite3_bind_text64(row, 3, text->data(), text->size(), SQLITE_STATIC, SQLITE_UTF8);
    int result = SQLITE_OK;
    while ((result = sqlite3_step(row)) == SQLITE_ROW)
        ids.push_back(sqlite3_column_int64(row, 0));
    if (result != SQLITE_DONE) ThrowEngineError(database_, result);
}

}  // namespace snippetarium
