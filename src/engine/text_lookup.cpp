#include "engine/text_lookup.h"

#include <sqlite3.h>

#include <algorithm>
#include <optional>

#include "engine/engine_error.h"
#include "engine/fetch_rows.h"
#include "engine/jet_like.h"
#include "engine/posting_list.h"

namespace snippetarium {

namespace {

constexpr std::size_t kKeptStatements = 48;

std::vector<TextKey> KeysOf(unsigned column, TextComparison comparison,
                            const std::string& pattern) {
    const std::vector<std::string> literals = comparison == TextComparison::Like
                                                  ? LikePattern(pattern).PlainRuns()
                                                  : std::vector<std::string>{pattern};
    std::vector<TextKey> keys = TrigramsOf(literals);
    for (TextKey& key : keys)
        key = TextKeyOf(column, key);
    return keys;
}

std::string Compare(const IndexedTable& table, unsigned column, TextComparison comparison) {
    return std::string(table.columns[column]) +
           (comparison == TextComparison::Like ? " LIKE ?3" : " = ?3");
}

std::string SelectIDs(const IndexedTable& table) {
    return "SELECT " + std::string(table.idColumn) + " FROM " + std::string(table.name) + " WHERE ";
}

/// Common rows of lists with IDs from `firstID` on, or nearly: a list that is much longer than what
/// is left is not worth reading.
std::vector<std::uint32_t> CommonRows(std::vector<std::string>& lists) {
    constexpr std::size_t kWorthReading = 64;
    std::ranges::sort(lists, {}, &std::string::size);
    std::vector<std::uint32_t> rows;
    DecodePostings(lists.front(), 0, rows);
    for (std::size_t i = 1; i < lists.size() && !rows.empty(); ++i) {
        if (lists[i].size() > kWorthReading * (rows.size() + kWorthReading)) break;
        KeepCommon(rows, lists[i]);
    }
    return rows;
}

void SortUnique(std::vector<std::int64_t>& ids) {
    std::ranges::sort(ids);
    const auto rest = std::ranges::unique(ids);
    ids.erase(rest.begin(), rest.end());
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
    const std::vector<TextKey> keys = KeysOf(column, comparison, pattern);
    if (keys.empty()) return std::nullopt;
    std::vector<std::int64_t> ids;
    try {
        const Extent extent = ReadExtent(table);
        if (!extent.isThere) return std::nullopt;
        for (const Segment& segment : extent.segments)
            FindInSegment(segment, keys, ids);
        const std::string compare = Compare(table, column, comparison);
        const std::string idColumn(table.idColumn);
        const std::int64_t numbers[] = {extent.indexedTo, table.number};
        ReadIDs(SelectIDs(table) + idColumn + " > ?1 AND " + compare, numbers, &pattern, ids);
        ReadIDs(SelectIDs(table) + idColumn +
                    " IN (SELECT ownerID FROM tblTextDirty WHERE ownerTableID = ?2) AND " + compare,
                numbers, &pattern, ids);
    } catch (const EngineError& error) {
        if (error.Code() == EngineErrorCode::Corrupted) return std::nullopt;
        throw;
    }
    SortUnique(ids);
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

std::vector<std::int64_t> TextLookup::ChildrenOf(const IndexedTable& table,
                                                 std::vector<std::int64_t> parents) {
    const std::int64_t numbers[] = {static_cast<std::int64_t>(lists_.Add(std::move(parents)))};
    std::vector<std::int64_t> ids;
    ReadIDs(SelectIDs(table) + std::string(table.parentColumn) + " IN tblTextCandidates(?1)",
            numbers, nullptr, ids);
    std::ranges::sort(ids);
    return ids;
}

TextLookup::Extent TextLookup::ReadExtent(const IndexedTable& table) {
    Extent extent;
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
        "SELECT segmentID, firstID FROM tblTextSegment WHERE ownerTableID = ?1 AND state = ?2");
    const StatementRun run(row);
    sqlite3_bind_int64(row, 1, table.number);
    sqlite3_bind_int64(row, 2, static_cast<int>(SegmentState::InUse));
    int result = SQLITE_OK;
    while ((result = sqlite3_step(row)) == SQLITE_ROW)
        extent.segments.push_back({sqlite3_column_int64(row, 0), sqlite3_column_int64(row, 1)});
    if (result != SQLITE_DONE) ThrowEngineError(database_, result);
    if (static_cast<std::int64_t>(extent.segments.size()) != segments) {
        throw EngineError(EngineErrorCode::Corrupted, "A segment of the text index is missing.");
    }
    return extent;
}

void TextLookup::FindInSegment(const Segment& segment, std::span<const TextKey> keys,
                               std::vector<std::int64_t>& ids) {
    std::vector<std::string> lists(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (!ReadList(segment, keys[i], lists[i])) return;
    }
    for (const std::uint32_t row : CommonRows(lists))
        ids.push_back(segment.firstID + row);
}

/// False where the key has no list in this segment.
bool TextLookup::ReadList(const Segment& segment, TextKey key, std::string& postings) {
    sqlite3_stmt* row = Prepare(
        "SELECT blockID, block FROM tblTextBlock WHERE blockID <= ?1 ORDER BY blockID DESC LIMIT "
        "1");
    const StatementRun run(row);
    sqlite3_bind_int64(row, 1, BlockIDOf(segment.segmentID, key));
    const int result = sqlite3_step(row);
    if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
    const std::int64_t behindSegment =
        sqlite3_column_int64(row, 0) - BlockIDOf(segment.segmentID, 0);
    if (result == SQLITE_ROW && behindSegment >= 0) {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(row, 1));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(row, 1));
        const TextBlock block(static_cast<TextKey>(behindSegment), {bytes, size});
        if (block.Covers(key)) {
            const auto found = block.Find(key);
            if (found) postings = *found;
            return found.has_value();
        }
    }
    throw EngineError(EngineErrorCode::Corrupted, "A block of the text index is missing.");
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

std::string PatternOfLiteral(std::string_view literal) {
    std::string pattern = "%";
    for (const char character : literal) {
        const bool isWildcard = character == '%' || character == '_' || character == '[';
        pattern.append(isWildcard ? "[" : "").append(1, character).append(isWildcard ? "]" : "");
    }
    return pattern + "%";
}

}  // namespace snippetarium
