#include "engine/table_salvage.h"

#include <sqlite3.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <string_view>

#include "engine/engine_error.h"
#include "engine/fetch_rows.h"
#include "support/utf8.h"

namespace snippetarium {

// A table is a tree of pages. Its leaves hold the rows in the order of their numbers, the pages
// above say which numbers are where, and long texts go on in chains of pages of their own. Reading
// the rows in order ends at the first damaged page. So a table is read
//
//   1. forward from its smallest number, up to damage;
//   2. backward from its greatest number, down to damage;
//   3. in between number by number. Looking a number up walks from the root to one leaf, past every
//      damaged page that is not on that way. As soon as a number can be told, be it that its row is
//      there or that there is none, reading goes on forward from it, up to the next damage.
//
// What cannot be read is then just the rows with a damaged page on their own way.
//
// Where the very end of a table is damaged, step 2 gives no upper end for step 3. Then the counter
// of the IDs, or the table's indexes, which name the numbers too, tell how far to look.

namespace {

constexpr std::int64_t kNoNumber = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kAboveAll = std::numeric_limits<std::int64_t>::max();
/// How far to look behind damage at the end of a table when nothing tells where its end was: a page
/// of the tree's second level leads to so many small rows.
constexpr std::int64_t kBlindLookUps = 100'000;
/// IDs have 32 bits. A greater number can only be damage, and looking for it would take for ever.
constexpr std::int64_t kGreatestId = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kStepsBetweenReports = 1000;
constexpr std::size_t kListedSuspects = 100;
/// What a disk puts in place of a sector that it lost. No source text holds it.
constexpr std::string_view kLostBytes("\0\0\0\0\0\0\0\0", 8);

bool IsDamage(int resultCode) {
    switch (resultCode & 0xFF) {
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_IOERR:
            return true;
        default:
            return false;
    }
}

/// A statement on the damaged database; nothing where damage makes even that impossible.
StatementHandle TryPrepare(sqlite3* database, const std::string& sql) {
    try {
        return PrepareStatement(database, sql);
    } catch (const EngineError&) {
        return nullptr;
    }
}

/// The first number that a statement gives, as far as it can be told.
std::optional<std::int64_t> TryReadNumber(sqlite3* database, const std::string& sql) {
    const StatementHandle statement = TryPrepare(database, sql);
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return std::nullopt;
    if (sqlite3_column_type(statement.get(), 0) == SQLITE_NULL) return std::nullopt;
    return sqlite3_column_int64(statement.get(), 0);
}

bool IsSuspect(sqlite3_stmt* row) {
    for (int i = 0; i < sqlite3_column_count(row); ++i) {
        if (sqlite3_column_type(row, i) != SQLITE_TEXT) continue;
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(row, i));
        const std::string_view text(bytes, static_cast<std::size_t>(sqlite3_column_bytes(row, i)));
        if (!IsValidUtf8(text) || text.find(kLostBytes) != std::string_view::npos) return true;
    }
    return false;
}

std::string InsertText(const TableLayout& layout) {
    const std::size_t count = layout.columns.size() + (layout.hasRowNumbers ? 1 : 0);
    std::string places = "?";
    for (std::size_t i = 1; i < count; ++i)
        places += ", ?";
    return "INSERT OR IGNORE INTO " + layout.name + "(" + layout.ColumnList() + ") VALUES (" +
           places + ")";
}

std::string KeyDescending(const TableLayout& layout) {
    std::string order;
    for (const std::string& column : layout.keyColumns) {
        order += (order.empty() ? "" : ", ") + column + " DESC";
    }
    return order;
}

}  // namespace

std::int64_t SalvagedTable::UnreadableCount() const {
    std::int64_t count = 0;
    for (const RowRange& range : unreadable)
        count += range.last - range.first + 1;
    return count;
}

std::optional<std::int64_t> TryReadCounter(sqlite3* database, const std::string& table) {
    const std::optional<std::int64_t> counter =
        TryReadNumber(database, "SELECT seq FROM sqlite_sequence WHERE name = '" + table + "'");
    if (counter.value_or(0) < 1 || *counter > kGreatestId) return std::nullopt;
    return counter;
}

TableSalvage::TableSalvage(sqlite3* source, sqlite3* target, const TableLayout& layout,
                           const CancelPoll* poll)
    : source_(source),
      target_(target),
      layout_(layout),
      poll_(poll),
      insert_(PrepareStatement(target, InsertText(layout))),
      done_(kNoNumber),
      above_(kAboveAll) {
    result_.name = layout.name;
    const std::string select = "SELECT " + layout.ColumnList() + " FROM " + layout.name;
    if (layout.hasRowNumbers) {
        const std::string above = select + " NOT INDEXED WHERE rowid > ?1 ORDER BY rowid";
        forward_ = TryPrepare(source, above);
        backward_ = TryPrepare(source, above + " DESC");
        lookUp_ = TryPrepare(source, select + " NOT INDEXED WHERE rowid = ?1");
    } else {
        forward_ = TryPrepare(source, select);
        backward_ = TryPrepare(source, select + " ORDER BY " + KeyDescending(layout));
    }
}

SalvagedTable TableSalvage::Run(const OnProgress& onProgress) {
    onProgress_ = &onProgress;
    Report();
    expectedRows_ = TryReadNumber(source_, "SELECT max(rowid) FROM " + layout_.name).value_or(0);
    layout_.hasRowNumbers ? ReadByNumber() : ReadByKey();
    return result_;
}

void TableSalvage::ReadByNumber() {
    if (ReadForward() == Outcome::End) return;
    done_ = std::max<std::int64_t>(done_, 0);  // IDs begin with 1
    ReadBackward();
    if (above_ == kAboveAll) above_ = HighestNumber() + 1;
    ReadBetween();
}

TableSalvage::Outcome TableSalvage::ReadForward() {
    if (!forward_) return Outcome::Damage;
    const StatementRun run(forward_.get());
    sqlite3_bind_int64(forward_.get(), 1, done_);
    for (;;) {
        const Outcome outcome = Step(forward_.get());
        if (outcome != Outcome::Row) return outcome;
        const std::int64_t number = sqlite3_column_int64(forward_.get(), 0);
        if (number >= above_) return Outcome::End;
        // A page that damage put in a wrong place can lead back, and round for ever.
        if (number <= done_) return Outcome::Damage;
        Save(forward_.get());
        done_ = number;
    }
}

TableSalvage::Outcome TableSalvage::ReadBackward() {
    if (!backward_) return Outcome::Damage;
    const StatementRun run(backward_.get());
    sqlite3_bind_int64(backward_.get(), 1, done_);
    for (;;) {
        const Outcome outcome = Step(backward_.get());
        if (outcome != Outcome::Row) return outcome;
        const std::int64_t number = sqlite3_column_int64(backward_.get(), 0);
        if (number >= above_ || number <= done_) return Outcome::Damage;
        Save(backward_.get());
        above_ = number;
    }
}

void TableSalvage::ReadBetween() {
    while (done_ + 1 < above_) {
        const Outcome outcome = LookUp(done_ + 1);
        ++done_;
        if (outcome == Outcome::Damage) {
            MarkUnreadable(done_);
        } else if (ReadForward() == Outcome::End) {
            return;
        }
    }
}

TableSalvage::Outcome TableSalvage::LookUp(std::int64_t number) {
    if (!lookUp_) return Outcome::Damage;
    const StatementRun run(lookUp_.get());
    sqlite3_bind_int64(lookUp_.get(), 1, number);
    const Outcome outcome = Step(lookUp_.get());
    if (outcome == Outcome::Row) Save(lookUp_.get());
    return outcome;
}

void TableSalvage::ReadByKey() {
    if (ReadAll(forward_.get()) == Outcome::End) return;
    result_.hasUncountedLoss = true;
    ReadAll(backward_.get());
}

TableSalvage::Outcome TableSalvage::ReadAll(sqlite3_stmt* statement) {
    if (statement == nullptr) return Outcome::Damage;
    for (;;) {
        const Outcome outcome = Step(statement);
        if (outcome != Outcome::Row) return outcome;
        Save(statement);
    }
}

TableSalvage::Outcome TableSalvage::Step(sqlite3_stmt* statement) {
    if (++steps_ % kStepsBetweenReports == 0) Report();
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW) return Outcome::Row;
    if (result == SQLITE_DONE) return Outcome::End;
    if (IsDamage(result)) return Outcome::Damage;
    ThrowEngineError(source_, result);
}

/// The number up to which rows may stand in a table whose end cannot be read.
std::int64_t TableSalvage::HighestNumber() const {
    std::int64_t highest = std::max<std::int64_t>(done_, 0);
    const std::optional<std::int64_t> counter = TryReadCounter(source_, layout_.name);
    bool isKnown = counter.has_value();
    highest = std::max(highest, counter.value_or(0));

    StatementHandle index = TryPrepare(
        source_, "SELECT name FROM pragma_index_list('" + layout_.name + "') WHERE NOT partial");
    while (index && sqlite3_step(index.get()) == SQLITE_ROW) {
        const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(index.get(), 0));
        const StatementHandle numbers =
            TryPrepare(source_, "SELECT rowid FROM " + layout_.name + " INDEXED BY " + name);
        int result = SQLITE_ERROR;
        while (numbers && (result = sqlite3_step(numbers.get())) == SQLITE_ROW) {
            highest = std::max<std::int64_t>(highest, sqlite3_column_int64(numbers.get(), 0));
        }
        isKnown = isKnown || result == SQLITE_DONE;
    }
    return std::min(isKnown ? highest : highest + kBlindLookUps, kGreatestId);
}

void TableSalvage::Save(sqlite3_stmt* row) {
    const StatementRun run(insert_.get());
    const int count = sqlite3_column_count(row);
    for (int i = 0; i < count; ++i) {
        sqlite3_bind_value(insert_.get(), i + 1, sqlite3_column_value(row, i));
    }
    const int result = sqlite3_step(insert_.get());
    if (result != SQLITE_DONE) ThrowEngineError(target_, result);
    const std::int64_t number = layout_.hasRowNumbers ? sqlite3_column_int64(row, 0) : 0;
    if (sqlite3_changes64(target_) == 0) {
        // It breaks a rule of its table, so what was read is not what was once written. Rows
        // without numbers come twice when they are read from both ends.
        if (layout_.hasRowNumbers) MarkUnreadable(number);
        return;
    }
    ++result_.savedRows;
    if (!IsSuspect(row)) return;
    if (!layout_.hasRowNumbers) {
        result_.hasUncountedLoss = true;
    } else if (result_.suspect.size() < kListedSuspects) {
        result_.suspect.push_back(number);
    }
}

void TableSalvage::MarkUnreadable(std::int64_t number) {
    if (!result_.unreadable.empty() && result_.unreadable.back().last + 1 == number) {
        result_.unreadable.back().last = number;
    } else {
        result_.unreadable.push_back({number, number});
    }
}

void TableSalvage::Report() {
    if (poll_ != nullptr && poll_->IsCancelled()) {
        throw EngineError(EngineErrorCode::Cancelled, "The recovery was cancelled.");
    }
    if (onProgress_ == nullptr || !*onProgress_) return;
    const double share = expectedRows_ <= 0 ? 0.0
                                            : static_cast<double>(result_.savedRows) /
                                                  static_cast<double>(expectedRows_);
    (*onProgress_)(std::min(share, 1.0));
}

}  // namespace snippetarium
