#include "engine/sqlite_session.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "engine/collation.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/jet_sql.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::size_t kCachedStatements = 128;
/// How many steps of the engine lie between two looks at the cancel poll: some tens of
/// microseconds.
constexpr int kStepsBetweenPolls = 2000;
/// At most this much of an import depends on the power.
constexpr std::chrono::seconds kBulkCheckpointInterval{3};

/// Resets a statement when its run is over, so that its locks and bound texts are not kept.
class StatementRun {
  public:
    explicit StatementRun(sqlite3_stmt* statement) : statement_(statement) {}
    ~StatementRun() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    StatementRun(const StatementRun&) = delete;
    StatementRun& operator=(const StatementRun&) = delete;

  private:
    sqlite3_stmt* statement_;
};

bool IsIdentifier(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '_';
    });
}

std::vector<std::string> ColumnNames(sqlite3_stmt* statement) {
    std::vector<std::string> names;
    const int count = sqlite3_column_count(statement);
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        names.emplace_back(sqlite3_column_name(statement, i));
    return names;
}

void AddRow(sqlite3_stmt* statement, RecordsetBuilder& rows) {
    const int count = sqlite3_column_count(statement);
    for (int i = 0; i < count; ++i) {
        switch (sqlite3_column_type(statement, i)) {
            case SQLITE_NULL:
                rows.AddNull();
                break;
            case SQLITE_INTEGER:
                rows.AddInteger(sqlite3_column_int64(statement, i));
                break;
            case SQLITE_FLOAT:
                rows.AddReal(sqlite3_column_double(statement, i));
                break;
            default: {
                const void* bytes = sqlite3_column_blob(statement, i);
                const int size = sqlite3_column_bytes(statement, i);
                rows.AddText({static_cast<const char*>(bytes), static_cast<std::size_t>(size)});
                break;
            }
        }
    }
}

void BindLiterals(sqlite3* database, sqlite3_stmt* statement, const Translation& translation) {
    int index = 0;
    for (const SqlLiteral& literal : translation.parameters) {
        ++index;
        int result = SQLITE_OK;
        if (const auto* text = std::get_if<std::string>(&literal)) {
            result = sqlite3_bind_text64(statement, index, text->data(), text->size(),
                                         SQLITE_STATIC, SQLITE_UTF8);
        } else if (const auto* integer = std::get_if<std::int64_t>(&literal)) {
            result = sqlite3_bind_int64(statement, index, *integer);
        } else {
            result = sqlite3_bind_double(statement, index, std::get<double>(literal));
        }
        if (result != SQLITE_OK) ThrowEngineError(database, result);
    }
}

void RequireVerb(const Translation& translation, bool isAction) {
    if ((translation.verb != StatementVerb::Select) == isAction) return;
    throw EngineError(EngineErrorCode::InvalidStatement,
                      isAction
                          ? "A statement that changes the catalogue was expected, not a SELECT."
                          : "A SELECT was expected, not a statement that changes the catalogue.");
}

int PollCancel(void* poll) {
    return static_cast<const CancelPoll*>(poll)->IsCancelled() ? 1 : 0;
}

}  // namespace

SqliteSession::SqliteSession(const SessionOptions& options)
    : path_(ToPlatformPath(options.dataSource)), statements_(kCachedStatements) {
    CheckDatabaseFile(path_, options.mode);
    try {
        Open(options.mode);
    } catch (...) {
        database_.reset();
        RemoveEmptySideFiles(path_);
        throw;
    }
}

SqliteSession::~SqliteSession() {
    // The log is emptied into the file by the library when the last handle on it closes.
    namedQueries_.Clear();
    statements_.Clear();
}

void SqliteSession::Open(AccessMode mode) {
    if (mode == AccessMode::ReadWrite) {
        database_ = OpenDatabase(path_, OpenFlag::ReadWrite);
    } else {
        OpenForReading();
    }
    // Opening reads nothing; the first read shows damage, locks and missing rights.
    ScalarText(database_.get(), "SELECT count(*) FROM sqlite_schema");
    InstallTextComparison(database_.get(), &cancel_);
    sqlite3_progress_handler(database_.get(), kStepsBetweenPolls, PollCancel,
                             static_cast<CancelPoll*>(&cancel_));
    RunStatements(database_.get(),
                  "PRAGMA cache_size = -65536; PRAGMA temp_store = MEMORY; PRAGMA mmap_size = 0;");
    guard_.Install(database_.get());
    if (mode == AccessMode::ReadWrite) PrepareForWriting();
}

/// Reading a file in write-ahead mode takes two side files, which only a handle that may write can
/// clear away again. So a file that may be written is opened for writing and then kept from it.
void SqliteSession::OpenForReading() {
    if (IsWritableFile(path_)) {
        database_ = OpenDatabase(path_, OpenFlag::ReadWrite);
        RunStatements(database_.get(), "PRAGMA query_only = ON");
        return;
    }
    // One that may not be written, as on a read-only medium, needs no side files as long as nobody
    // else changes it; whoever does has a log beside it.
    const bool isChanging = std::filesystem::exists(path_ + "-wal");
    database_ = OpenDatabase(path_, isChanging ? OpenFlag::Read : OpenFlag::ReadUnchanging);
}

void SqliteSession::PrepareForWriting() {
    sqlite3* database = database_.get();
    if (ScalarText(database, "PRAGMA journal_mode = WAL") != "wal") {
        throw EngineError(EngineErrorCode::CannotLock,
                          "The catalogue '" + path_ + "' is in use by another program.");
    }
    RunStatements(database, "PRAGMA secure_delete = OFF; PRAGMA wal_autocheckpoint = 1000;");
    SetWriteMode(WriteMode::EachStatement);
}

sqlite3_stmt* SqliteSession::PrepareCached(std::string_view sql, StatementPurpose purpose) {
    const StatementGuard::Scope scope(guard_, purpose);
    return statements_.Get(database_.get(), sql);
}

Recordset SqliteSession::ReadRows(sqlite3_stmt* statement) {
    if (sqlite3_stmt_readonly(statement) == 0) {
        throw EngineError(EngineErrorCode::NotAllowed, "A read must not change the catalogue.");
    }
    const StatementRun run(statement);
    int result = sqlite3_step(statement);
    // Only now: the first step prepares the statement anew where the schema has changed.
    RecordsetBuilder rows(ColumnNames(statement));
    for (; result == SQLITE_ROW; result = sqlite3_step(statement))
        AddRow(statement, rows);
    if (result != SQLITE_DONE) ThrowEngineError(database_.get(), result);
    return rows.Take();
}

Recordset SqliteSession::Query(std::string_view text) {
    if (IsIdentifier(text)) return NamedQuery(text, {});
    const Translation translation = Translate(text, {});
    RequireVerb(translation, false);
    return ReadRows(PrepareCached(translation.sql, StatementPurpose::Query));
}

Recordset SqliteSession::NamedQuery(std::string_view name, std::span<const Parameter> parameters) {
    return ReadRows(namedQueries_.Bind(database_.get(), guard_, name, parameters));
}

Recordset SqliteSession::Search(std::string_view text) {
    const Translation translation = Translate(text, {});
    RequireVerb(translation, false);
    const StatementGuard::Scope scope(guard_, StatementPurpose::Search);
    // Not cached: a search text hardly comes twice, and would only push out what does.
    const StatementHandle statement = PrepareStatement(database_.get(), translation.sql);
    struct Searching {
        explicit Searching(SearchCancel& poll) : cancel(poll) { cancel.isSearching = true; }
        ~Searching() { cancel.isSearching = false; }
        SearchCancel& cancel;
    } searching(cancel_);
    return ReadRows(statement.get());
}

std::int64_t SqliteSession::Act(std::string_view text) {
    const Translation translation = Translate(text, {});
    RequireVerb(translation, true);
    if (translation.verb == StatementVerb::Alter) {
        const StatementGuard::Scope scope(guard_, StatementPurpose::Alter);
        return RunAction(PrepareStatement(database_.get(), translation.sql).get());
    }
    sqlite3_stmt* statement = PrepareCached(translation.sql, StatementPurpose::Action);
    // A schema that changed makes the first step prepare anew, under the same guard.
    const StatementGuard::Scope scope(guard_, StatementPurpose::Action);
    const StatementRun run(statement);
    BindLiterals(database_.get(), statement, translation);
    return RunAction(statement);
}

std::int64_t SqliteSession::RunAction(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result != SQLITE_DONE) ThrowEngineError(database_.get(), result);
    const std::int64_t changed = sqlite3_changes64(database_.get());
    sqlite3_reset(statement);  // ends the statement's transaction, so that a checkpoint can run
    CheckpointFromTimeToTime();
    return changed;
}

void SqliteSession::CheckpointFromTimeToTime() {
    if (writeMode_ != WriteMode::Bulk) return;
    if (std::chrono::steady_clock::now() - lastCheckpoint_ >= kBulkCheckpointInterval) Checkpoint();
}

void SqliteSession::RunScript(std::string_view script) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    // What was prepared before belongs to the old schema.
    namedQueries_.Clear();
    statements_.Clear();
    RunStatements(database_.get(), "BEGIN IMMEDIATE");
    try {
        RunStatements(database_.get(), std::string(script));
        RunStatements(database_.get(), "COMMIT");
    } catch (...) {
        // Some failures have rolled back already; then there is nothing left to do.
        if (sqlite3_get_autocommit(database_.get()) == 0)
            RunStatements(database_.get(), "ROLLBACK");
        throw;
    }
}

void SqliteSession::SetWriteMode(WriteMode mode) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    if (writeMode_ == WriteMode::Bulk && mode == WriteMode::EachStatement) Checkpoint();
    RunStatements(database_.get(), mode == WriteMode::Bulk ? "PRAGMA synchronous = NORMAL"
                                                           : "PRAGMA synchronous = FULL");
    writeMode_ = mode;
    lastCheckpoint_ = std::chrono::steady_clock::now();
}

void SqliteSession::Checkpoint() {
    const int result = sqlite3_wal_checkpoint_v2(database_.get(), nullptr,
                                                 SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    // A reader in another program keeps the log from being emptied; what it holds is safe all the
    // same.
    if (result != SQLITE_OK && (result & 0xFF) != SQLITE_BUSY) {
        ThrowEngineError(database_.get(), result);
    }
    lastCheckpoint_ = std::chrono::steady_clock::now();
}

}  // namespace snippetarium
