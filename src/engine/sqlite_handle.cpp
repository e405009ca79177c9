#include "engine/sqlite_handle.h"

#include <sqlite3.h>

#include <new>
#include <utility>

#include "engine/collation.h"
#include "engine/engine_error.h"
#include "engine/joined_log.h"
#include "engine/page_cache.h"

namespace snippetarium {

namespace {

struct Failure {
    EngineErrorCode code;
    std::string_view text;
};

// The library has one code for everything that is wrong with a statement's text; its words tell
// more. The first words that occur decide.
// clang-format off
constexpr std::pair<std::string_view, Failure> kFailuresByWords[] = {
    {"no such table",          {EngineErrorCode::NoSuchTable, "A table or query does not exist."}},
    {"no such column",         {EngineErrorCode::WrongParameters, "A column does not exist."}},
    {"has no column",          {EngineErrorCode::WrongParameters, "A column does not exist."}},
    {"no such function",       {EngineErrorCode::NoSuchFunction, "A function does not exist."}},
    {"not authorized",         {EngineErrorCode::NotAllowed, "The statement is not allowed here."}},
    {"may not be",             {EngineErrorCode::NotAllowed, "The statement is not allowed here."}},
    {"were supplied",          {EngineErrorCode::WrongValueCount, "The numbers of columns and of values differ."}},
    {"values for",             {EngineErrorCode::WrongValueCount, "The numbers of columns and of values differ."}},
    {"parser stack overflow",  {EngineErrorCode::QueryTooComplex, "The statement is too complex: make it shorter."}},
    {"too large",              {EngineErrorCode::QueryTooComplex, "The statement is too complex: make it shorter."}},
    {"too many",               {EngineErrorCode::QueryTooComplex, "The statement is too complex: make it shorter."}},
    {"at most",                {EngineErrorCode::QueryTooComplex, "The statement is too complex: make it shorter."}},
    {"pattern",                {EngineErrorCode::InvalidPattern, "A search pattern is not valid."}},
    {"syntax error",           {EngineErrorCode::Syntax, "The statement has a syntax error."}},
    {"incomplete input",       {EngineErrorCode::Syntax, "The statement has a syntax error."}},
    {"unrecognized token",     {EngineErrorCode::Syntax, "The statement has a syntax error."}},
};
// clang-format on

Failure DescribeFailure(int resultCode, std::string_view libraryText) {
    using enum EngineErrorCode;
    switch (resultCode & 0xFF) {  // the low byte is the kind, the rest says more about it
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {CannotLock, "The catalogue is in use by another program. Try again later."};
        case SQLITE_READONLY:
            return {ReadOnly, "The catalogue is read-only, so nothing can be saved in it."};
        case SQLITE_CORRUPT:
            return {
                Corrupted,
                "The catalogue file is damaged. Check it, then restore a backup or recover what "
                "can be read."};
        case SQLITE_NOTADB:
            return {UnrecognisedFormat, "The file is not a catalogue, or it is damaged."};
        case SQLITE_FULL:
            return {DiskFull, "There is not enough space on the disk. Free some and try again."};
        case SQLITE_IOERR:
            return {DiskError, "The disk reported an error while the catalogue was in use."};
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return {CannotOpen,
                    "The catalogue cannot be opened: check that the file and its folder exist and "
                    "that you may read and write both."};
        case SQLITE_CONSTRAINT:
            return {DuplicateValue,
                    "The change was not made because it would break a rule of the table, such as a "
                    "value that may occur only once."};
        case SQLITE_INTERRUPT:
            return {Cancelled, "The operation was cancelled."};
        case SQLITE_AUTH:
            return {NotAllowed, "The statement is not allowed here."};
        case SQLITE_TOOBIG:
            return {QueryTooComplex, "A text or the statement is too long."};
        case SQLITE_MISMATCH:
            return {TypeConversion, "A value is of the wrong kind for its column."};
        default:
            break;
    }
    for (const auto& [words, failure] : kFailuresByWords) {
        if (libraryText.find(words) != std::string_view::npos) return failure;
    }
    return {Unexpected, "The database engine reported a failure."};
}

/// Locks of other programs are waited for this long: they are held for milliseconds, or for as long
/// as that program runs.
constexpr int kBusyTimeoutMilliseconds = 1500;

/// The path as an address, for the one option that only an address can carry.
std::string ImmutableAddress(const std::string& path) {
    std::string address = "file:";
    for (const char character : path) {
        switch (character) {
            case '%':
                address += "%25";
                break;
            case '?':
                address += "%3f";
                break;
            case '#':
                address += "%23";
                break;
            default:
                address += character;
        }
    }
    return address + "?immutable=1";
}

int LibraryFlags(OpenFlag flag) {
    constexpr int kAlways = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    switch (flag) {
        case OpenFlag::Read:
            return kAlways | SQLITE_OPEN_READONLY;
        case OpenFlag::ReadUnchanging:
            return kAlways | SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
        case OpenFlag::ReadWrite:
            return kAlways | SQLITE_OPEN_READWRITE;
        case OpenFlag::Create:
            return kAlways | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
    return kAlways;
}

}  // namespace

void CloseDatabase::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

void FinalizeStatement::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void ThrowEngineError(sqlite3* database, int resultCode) {
    if (resultCode == SQLITE_NOMEM) throw std::bad_alloc();
    const std::string libraryText =
        database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(resultCode);
    const Failure failure = DescribeFailure(resultCode, libraryText);
    if (failure.code == EngineErrorCode::Cancelled)
        throw EngineError(failure.code, std::string(failure.text));
    throw EngineError(failure.code, std::string(failure.text) + " (" + libraryText + ")");
}

DatabaseHandle OpenDatabase(const std::string& path, OpenFlag flag) {
    const std::string address = flag == OpenFlag::ReadUnchanging ? ImmutableAddress(path) : path;
    InstallPageCacheLayer();
    sqlite3* opened = nullptr;
    const int result =
        sqlite3_open_v2(address.c_str(), &opened, LibraryFlags(flag), JoinedLogLayer());
    DatabaseHandle database(opened);
    if (result != SQLITE_OK) ThrowEngineError(opened, result);
    sqlite3_busy_timeout(opened, kBusyTimeoutMilliseconds);
    InstallTextComparison(opened, nullptr);
    return database;
}

StatementHandle PrepareStatement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    const int result = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                          SQLITE_PREPARE_PERSISTENT, &prepared, &tail);
    StatementHandle statement(prepared);
    if (result != SQLITE_OK) ThrowEngineError(database, result);
    const std::string_view rest = sql.substr(static_cast<std::size_t>(tail - sql.data()));
    if (statement == nullptr || rest.find_first_not_of("; \t\r\n") != std::string_view::npos) {
        throw EngineError(EngineErrorCode::TextAfterStatement,
                          "Exactly one statement was expected, with nothing behind it.");
    }
    return statement;
}

void RunStatements(sqlite3* database, const std::string& sql) {
    const int result = sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) ThrowEngineError(database, result);
}

std::string ScalarText(sqlite3* database, std::string_view sql) {
    const StatementHandle statement = PrepareStatement(database, sql);
    const int result = sqlite3_step(statement.get());
    if (result == SQLITE_DONE) return {};
    if (result != SQLITE_ROW) ThrowEngineError(database, result);
    const unsigned char* text = sqlite3_column_text(statement.get(), 0);
    const int size = sqlite3_column_bytes(statement.get(), 0);
    return text == nullptr
               ? std::string()
               : std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
}

}  // namespace snippetarium
