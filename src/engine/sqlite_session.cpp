#include "engine/sqlite_session.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "engine/collation.h"
#include "engine/database_file.h"
#include "engine/engine_error.h"
#include "engine/fetch_rows.h"
#include "engine/jet_sql.h"
#include "engine/open_for_reading.h"
#include "engine/sqlite_cursor.h"
#include "engine/table_layout.h"
#include "support/ascii_search.h"
#include "support/paths.h"

namespace snippetarium {

namespace {

constexpr std::size_t kCachedStatements = 128;
/// How many steps of the engine lie between two looks at the cancel poll: some tens of
/// microseconds.
constexpr int kStepsBetweenPolls = 2000;
constexpr std::string_view kQueryTable = "tblNamedQuery";

bool IsIdentifier(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               (character >= '0' && character <= '9') || character == '_';
    });
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

std::string NotCopiedText(const std::string& path, const std::string& reason) {
    return "What was saved last is stored, but only in the file '" + LogPath(path) +
           "': it could not be copied into the catalogue itself. " + reason +
           " Until then keep both files together. The copying is tried again with what is saved "
           "next, and when the catalogue is closed or opened.";
}

int PollCancel(void* poll) {
    return static_cast<const CancelPoll*>(poll)->IsCancelled() ? 1 : 0;
}

std::int32_t ReadVersion(sqlite3* database) {
    return std::stoi(ScalarText(database, "PRAGMA user_version"));
}

}  // namespace

SqliteSession::SqliteSession(const SessionOptions& options)
    : path_(ToPlatformPath(options.dataSource)), statements_(kCachedStatements) {
    CheckDatabaseFile(path_, options.mode);
    // The first read would already undo what a crash left half made.
    if (HasPendingJournal(path_)) {
        RequireKnownVersion(path_, VersionInHeader(path_), options.versions);
    }
    try {
        Open(options);
    } catch (...) {
        database_.reset();
        RemoveEmptySideFiles(path_);
        throw;
    }
}

SqliteSession::~SqliteSession() {
    // The log is emptied into the file by the library when the last handle on it closes.
    lookup_.reset();
    care_.reset();
    namedQueries_.Clear();
    statements_.Clear();
}

void SqliteSession::Open(const SessionOptions& options) {
    const bool isForWriting = options.mode == AccessMode::ReadWrite;
    database_ = isForWriting ? OpenDatabase(path_, OpenFlag::ReadWrite) : OpenForReading(path_);
    // A file that is refused must not change, also not by taking in what a crash left in its log.
    KeepLogOnClose(database_.get(), HasPendingLog(path_));
    // Opening reads nothing; this first read also shows damage, locks and missing rights.
    RequireKnownVersion(path_, ReadVersion(database_.get()), options.versions);
    KeepLogOnClose(database_.get(), false);
    InstallTextComparison(database_.get(), &cancel_);
    sqlite3_progress_handler(database_.get(), kStepsBetweenPolls, PollCancel,
                             static_cast<CancelPoll*>(&cancel_));
    RunStatements(database_.get(),
                  "PRAGMA cache_size = -65536; PRAGMA temp_store = MEMORY; PRAGMA mmap_size = 0;");
    guard_.Install(database_.get());
    candidates_.Install(database_.get());
    lookup_.emplace(database_.get(), guard_, candidates_, options.textTables);
    if (!isForWriting) return;
    PrepareForWriting();
    care_.emplace(database_.get(), options.textTables);
}

void SqliteSession::PrepareForWriting() {
    sqlite3* database = database_.get();
    if (ScalarText(database, "PRAGMA journal_mode = WAL") != "wal") {
        throw EngineError(EngineErrorCode::CannotLock,
                          "The catalogue '" + path_ + "' is in use by another program.");
    }
    // What is written before its commit would be held by the joined log, also behind a rollback.
    RunStatements(database,
                  "PRAGMA secure_delete = OFF; PRAGMA wal_autocheckpoint = 1000; "
                  "PRAGMA cache_spill = OFF;");
    SetWriteMode(WriteMode::EachStatement);
}

sqlite3_stmt* SqliteSession::PrepareCached(std::string_view sql, StatementPurpose purpose) {
    const StatementGuard::Scope scope(guard_, purpose);
    return statements_.Get(database_.get(), sql);
}

Recordset SqliteSession::ReadRows(sqlite3_stmt* statement, std::size_t mostBytes) {
    if (sqlite3_stmt_readonly(statement) == 0) {
        throw EngineError(EngineErrorCode::NotAllowed, "A read must not change the catalogue.");
    }
    return FetchRows(database_.get(), statement, mostBytes);
}

Translation SqliteSession::TranslateQuery(std::string_view text) {
    Translation translation = Translate(text, {});
    RequireVerb(translation, false);
    return translation;
}

Recordset SqliteSession::Query(std::string_view text) {
    if (IsIdentifier(text)) return NamedQuery(text, {});
    const Translation translation = TranslateQuery(text);
    return ReadRows(PrepareCached(translation.sql, StatementPurpose::Query));
}

Recordset SqliteSession::NamedQuery(std::string_view name, std::span<const Parameter> parameters) {
    return ReadRows(namedQueries_.Bind(database_.get(), guard_, name, parameters));
}

std::unique_ptr<RowCursor> SqliteSession::OpenCursor(std::string_view sql,
                                                     std::span<const BoundValue> values) {
    return std::make_unique<SqliteCursor>(database_.get(),
                                          PrepareCached(sql, StatementPurpose::Query), values);
}

std::int64_t SqliteSession::Act(std::string_view text) {
    TranslationOptions options;
    options.keyColumnsOf = [this](std::string_view table) {
        const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
        return KeyWithoutRowNumbers(database_.get(), table);
    };
    const Translation translation = Translate(text, options);
    RequireVerb(translation, true);
    if (translation.verb == StatementVerb::Alter) {
        const StatementGuard::Scope scope(guard_, StatementPurpose::Alter);
        return RunAction(PrepareStatement(database_.get(), translation.sql).get());
    }
    bulkLog_.HoldPlace();
    sqlite3_stmt* statement = PrepareCached(translation.sql, StatementPurpose::Action);
    // A schema that changed makes the first step prepare anew, under the same guard.
    const StatementGuard::Scope scope(guard_, StatementPurpose::Action);
    const StatementRun run(statement);
    BindLiterals(database_.get(), statement, translation);
    const std::int64_t changed = RunAction(statement);
    NoteAction(translation.sql);
    if (writeMode_ == WriteMode::Bulk && care_ && care_->NoteWritten(text.size())) {
        bulkLog_.LetGo();
        const StatementGuard::Scope ownStatements(guard_, StatementPurpose::Internal);
        care_->TendWhileWriting();
    }
    return changed;
}

std::int64_t SqliteSession::RunAction(sqlite3_stmt* statement) {
    int result = sqlite3_step(statement);
    // With a place held in the log the library waits for no other program's lock, and refuses where
    // that has written.
    if ((result & 0xFF) == SQLITE_BUSY && bulkLog_.LetGo()) {
        sqlite3_reset(statement);
        result = sqlite3_step(statement);
    }
    if (result != SQLITE_DONE) ThrowEngineError(database_.get(), result);
    const std::int64_t changed = sqlite3_changes64(database_.get());
    sqlite3_reset(statement);  // ends the statement's transaction, so that a checkpoint can run
    bulkLog_.CheckpointWhenDue();
    return changed;
}

void SqliteSession::RunScript(std::string_view script) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    // What was prepared before belongs to the old schema.
    namedQueries_.Clear();
    statements_.Clear();
    if (lookup_) lookup_->Clear();
    if (care_) care_->Forget();
    bulkLog_.LetGo();
    InTransaction([&] { RunStatements(database_.get(), std::string(script)); });
}

void SqliteSession::RunTransaction(std::span<const BoundStatement> statements) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    bulkLog_.LetGo();
    InTransaction([&] {
        for (const BoundStatement& statement : statements)
            RunBound(statement);
    });
    for (const BoundStatement& statement : statements)
        NoteAction(statement.sql);
    bulkLog_.CheckpointWhenDue();
}

void SqliteSession::RunBound(const BoundStatement& statement) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Action);
    sqlite3_stmt* const prepared = statements_.Get(database_.get(), statement.sql);
    const StatementRun run(prepared);
    BindValues(database_.get(), prepared, statement.values);
    const int result = sqlite3_step(prepared);
    if (result != SQLITE_DONE) ThrowEngineError(database_.get(), result);
}

/// A query that was changed is not to be run as it was.
void SqliteSession::NoteAction(std::string_view sql) {
    if (FindIgnoringAsciiCase(sql, kQueryTable) != std::string_view::npos) namedQueries_.Clear();
}

template <typename Body>
void SqliteSession::InTransaction(Body&& body) {
    RunStatements(database_.get(), "BEGIN IMMEDIATE");
    try {
        std::forward<Body>(body)();
        RunStatements(database_.get(), "COMMIT");
    } catch (...) {
        // Some failures have rolled back already; then there is nothing left to do.
        if (sqlite3_get_autocommit(database_.get()) == 0)
            RunStatements(database_.get(), "ROLLBACK");
        throw;
    }
}

std::int32_t SqliteSession::UserVersion() {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    return ReadVersion(database_.get());
}

void SqliteSession::SetWriteMode(WriteMode mode) {
    const StatementGuard::Scope scope(guard_, StatementPurpose::Internal);
    const WriteMode previous = std::exchange(writeMode_, mode);
    bulkLog_.End();
    if (previous == WriteMode::Bulk && mode == WriteMode::EachStatement && care_)
        care_->EndWriting();
    RunStatements(database_.get(), mode == WriteMode::Bulk ? "PRAGMA synchronous = NORMAL"
                                                           : "PRAGMA synchronous = FULL");
    if (mode == WriteMode::Bulk) bulkLog_.Begin(database_.get());
    // Last, so that the mode holds even if this fails: the next single edit makes the whole log
    // safe with it.
    if (previous == WriteMode::Bulk && mode == WriteMode::EachStatement) Checkpoint();
}

void SqliteSession::Checkpoint() {
    bulkLog_.LetGo();
    const int result = sqlite3_wal_checkpoint_v2(database_.get(), nullptr,
                                                 SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    // A reader in another program keeps the log from being emptied; what it holds is safe all the
    // same.
    if (result == SQLITE_OK || (result & 0xFF) == SQLITE_BUSY) return;
    try {
        ThrowEngineError(database_.get(), result);
    } catch (const EngineError& error) {
        throw EngineError(error.Code(), NotCopiedText(path_, error.Description()));
    }
}

}  // namespace snippetarium
