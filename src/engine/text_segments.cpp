#include "engine/text_segments.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "engine/engine_error.h"
#include "engine/fetch_rows.h"

namespace snippetarium {

namespace {

/// Runs a statement of ours with whole numbers as its values.
class NumberStatement {
  public:
    NumberStatement(sqlite3* database, const std::string& sql,
                    std::initializer_list<std::int64_t> numbers)
        : database_(database), statement_(PrepareStatement(database, sql)) {
        int index = 0;
        for (const std::int64_t number : numbers)
            sqlite3_bind_int64(statement_.get(), ++index, number);
    }

    bool Next() {
        const int result = sqlite3_step(statement_.get());
        if (result != SQLITE_ROW && result != SQLITE_DONE) ThrowEngineError(database_, result);
        return result == SQLITE_ROW;
    }
    void Run() {
        while (Next()) {
        }
    }
    std::int64_t Number(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    std::string_view Text(int column) const {
        const auto* text =
            reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
        const int size = sqlite3_column_bytes(statement_.get(), column);
        return text == nullptr ? std::string_view()
                               : std::string_view(text, static_cast<std::size_t>(size));
    }

  private:
    sqlite3* database_;
    StatementHandle statement_;
};

std::int64_t ReadNumber(sqlite3* database, const std::string& sql,
                        std::initializer_list<std::int64_t> numbers) {
    NumberStatement row(database, sql, numbers);
    return row.Next() ? row.Number(0) : 0;
}

constexpr const char* kIndexedTo = "SELECT indexedTo FROM tblTextIndex WHERE ownerTableID = ?1";

std::string SelectTexts(const IndexedTable& table) {
    std::string sql = "SELECT t." + std::string(table.idColumn);
    for (const std::string_view column : table.columns)
        sql += ", t." + std::string(column);
    return sql;
}

struct TakenRows {
    std::int64_t firstID = 0;
    std::int64_t lastID = 0;
    std::int64_t count = 0;
    /// The limit was not met: there are no more.
    bool areAll = false;
};

TakenRows ReadRows(NumberStatement& row, const IndexedTable& table, SegmentBuilder& builder,
                   std::size_t mostBytes) {
    TakenRows taken;
    while (row.Next()) {
        taken.lastID = row.Number(0);
        if (taken.count++ == 0) taken.firstID = taken.lastID;
        for (unsigned column = 0; column < table.columns.size(); ++column) {
            builder.Add(static_cast<std::uint32_t>(taken.lastID), column,
                        row.Text(static_cast<int>(column) + 1));
        }
        if (builder.TextSize() >= mostBytes) return taken;
    }
    taken.areAll = true;
    return taken;
}

void WriteSegment(sqlite3* database, const IndexedTable& table, const TakenRows& taken,
                  SegmentBuilder& builder) {
    TextSegment segment{.table = table.number, .firstID = taken.firstID, .rows = taken.count};
    segment.segmentID = AddTextSegment(database, segment);
    TextBlockTable blocks(database);
    builder.Write(static_cast<std::uint32_t>(taken.firstID),
                  [&](TextKey firstKey, std::string_view block) {
                      blocks.Write(segment.segmentID, firstKey, block);
                  });
    segment.bytes = blocks.Bytes();
    UpdateTextSegment(database, segment);
    CountTextSegments(database, table.number);
}

bool TakeInNewRows(sqlite3* database, const IndexedTable& table, SegmentBuilder& builder,
                   std::size_t mostBytes) {
    const std::string id(table.idColumn);
    NumberStatement row(database,
                        SelectTexts(table) + " FROM " + std::string(table.name) + " t WHERE t." +
                            id + " > ?1 ORDER BY t." + id,
                        {ReadNumber(database, kIndexedTo, {table.number})});
    const TakenRows taken = ReadRows(row, table, builder, mostBytes);
    if (taken.count == 0) return false;
    WriteSegment(database, table, taken, builder);
    NumberStatement(database, "UPDATE tblTextIndex SET indexedTo = ?2 WHERE ownerTableID = ?1",
                    {table.number, taken.lastID})
        .Run();
    return true;
}

void TakeInChangedRows(sqlite3* database, const IndexedTable& table, SegmentBuilder& builder,
                       std::size_t mostBytes) {
    const std::string id(table.idColumn);
    NumberStatement row(database,
                        SelectTexts(table) + " FROM tblTextDirty d CROSS JOIN " +
                            std::string(table.name) + " t ON t." + id +
                            " = d.ownerID WHERE d.ownerTableID = ?1 ORDER BY d.ownerID",
                        {table.number});
    const TakenRows taken = ReadRows(row, table, builder, mostBytes);
    if (taken.count > 0) WriteSegment(database, table, taken, builder);
    // Rows that do not exist any more were passed over and need no mark either.
    NumberStatement(database,
                    "DELETE FROM tblTextDirty WHERE ownerTableID = ?1 AND (?2 OR ownerID <= ?3)",
                    {table.number, taken.areAll ? 1 : 0, taken.lastID})
        .Run();
}

}  // namespace

bool HasTextIndex(sqlite3* database, const IndexedTable& table) {
    return NumberStatement(database, kIndexedTo, {table.number}).Next();
}

std::vector<TextSegment> ReadTextSegments(sqlite3* database) {
    NumberStatement row(database,
                        "SELECT segmentID, ownerTableID, state, firstID, rows, bytes "
                        "FROM tblTextSegment ORDER BY segmentID",
                        {});
    std::vector<TextSegment> segments;
    while (row.Next()) {
        segments.push_back({row.Number(0), static_cast<std::int32_t>(row.Number(1)),
                            static_cast<SegmentState>(row.Number(2)), row.Number(3), row.Number(4),
                            row.Number(5)});
    }
    return segments;
}

std::int64_t AddTextSegment(sqlite3* database, const TextSegment& segment) {
    // A segment's row goes after its last block, so the blocks of an ID that comes back are gone.
    const std::int64_t segmentID =
        ReadNumber(database, "SELECT coalesce(max(segmentID), 0) + 1 FROM tblTextSegment", {});
    NumberStatement(database, "INSERT INTO tblTextSegment VALUES (?1, ?2, ?3, ?4, ?5, ?6)",
                    {segmentID, segment.table, static_cast<int>(segment.state), segment.firstID,
                     segment.rows, segment.bytes})
        .Run();
    return segmentID;
}

void UpdateTextSegment(sqlite3* database, const TextSegment& segment) {
    NumberStatement(database,
                    "UPDATE tblTextSegment SET state = ?2, firstID = ?3, rows = ?4, bytes = ?5 "
                    "WHERE segmentID = ?1",
                    {segment.segmentID, static_cast<int>(segment.state), segment.firstID,
                     segment.rows, segment.bytes})
        .Run();
}

void CountTextSegments(sqlite3* database, std::int32_t table) {
    NumberStatement(database,
                    "UPDATE tblTextIndex SET segments = (SELECT count(*) FROM tblTextSegment "
                    "WHERE ownerTableID = ?1 AND state = ?2) WHERE ownerTableID = ?1",
                    {table, static_cast<int>(SegmentState::InUse)})
        .Run();
}

TextBlockTable::TextBlockTable(sqlite3* database)
    : database_(database),
      insert_(PrepareStatement(database, "INSERT INTO tblTextBlock VALUES (?1, ?2)")) {}

void TextBlockTable::Write(std::int64_t segmentID, TextKey firstKey, std::string_view block) {
    sqlite3_bind_int64(insert_.get(), 1, BlockIDOf(segmentID, firstKey));
    sqlite3_bind_blob64(insert_.get(), 2, block.data(), block.size(), SQLITE_STATIC);
    const int result = sqlite3_step(insert_.get());
    if (result != SQLITE_DONE) ThrowEngineError(database_, result);
    sqlite3_reset(insert_.get());
    bytes_ += static_cast<std::int64_t>(block.size());
}

TextBlockReader::TextBlockReader(sqlite3* database)
    : database_(database),
      select_(PrepareStatement(database, "SELECT block FROM tblTextBlock WHERE blockID = ?1")) {}

TextKey TextBlockReader::Read(std::int64_t segmentID, TextKey firstKey, const Visit& visit) {
    const StatementRun run(select_.get());
    sqlite3_bind_int64(select_.get(), 1, BlockIDOf(segmentID, firstKey));
    const int result = sqlite3_step(select_.get());
    if (result == SQLITE_DONE) {
        throw EngineError(EngineErrorCode::Corrupted, "A block of the text index is missing.");
    }
    if (result != SQLITE_ROW) ThrowEngineError(database_, result);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(select_.get(), 0));
    const TextBlock block(firstKey,
                          {static_cast<const char*>(sqlite3_column_blob(select_.get(), 0)), size});
    block.ForEach(visit);
    return block.End();
}

std::int64_t CountWaitingRows(sqlite3* database, const IndexedTable& table) {
    const std::int64_t lastID = ReadNumber(
        database, "SELECT max(" + std::string(table.idColumn) + ") FROM " + std::string(table.name),
        {});
    const std::int64_t added = lastID - ReadNumber(database, kIndexedTo, {table.number});
    return std::max<std::int64_t>(added, 0) +
           ReadNumber(database, "SELECT count(*) FROM tblTextDirty WHERE ownerTableID = ?1",
                      {table.number});
}

void TakeInWaitingRows(sqlite3* database, const IndexedTable& table, SegmentBuilder& builder,
                       std::size_t mostBytes) {
    if (!TakeInNewRows(database, table, builder, mostBytes))
        TakeInChangedRows(database, table, builder, mostBytes);
}

void RemoveSomeBlocks(sqlite3* database, std::int64_t segmentID) {
    constexpr std::int64_t kMostBlocks = 500;
    const std::int64_t last = BlockIDOf(segmentID + 1, 0) - 1;
    NumberStatement(database,
                    "DELETE FROM tblTextBlock WHERE blockID IN (SELECT blockID FROM tblTextBlock "
                    "WHERE blockID BETWEEN ?1 AND ?2 LIMIT ?3)",
                    {BlockIDOf(segmentID, 0), last, kMostBlocks})
        .Run();
    if (sqlite3_changes64(database) == kMostBlocks) return;
    NumberStatement(database, "DELETE FROM tblTextSegment WHERE segmentID = ?1", {segmentID}).Run();
}

}  // namespace snippetarium
