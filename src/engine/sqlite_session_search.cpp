#include <sqlite3.h>

#include <algorithm>
#include <new>

#include "engine/engine_error.h"
#include "engine/jet_sql.h"
#include "engine/memory_limit.h"
#include "engine/read_snapshot.h"
#include "engine/search_restriction.h"
#include "engine/sql_tokens.h"
#include "engine/sqlite_session.h"

// The searches of a session, and its text index.

namespace snippetarium {

namespace {

/// What a typed text may make the engine take, so that it ends the search and not the program.
constexpr std::int64_t kMostSearchMemory = std::int64_t{512} << 20U;
/// Some millions of topics.
constexpr std::size_t kMostBytesFound = std::size_t{256} << 20U;

}  // namespace

/// For work that a user may cancel, in a moment of its own.
template <typename Find>
auto SqliteSession::Searching(Find&& find) {
    struct Running {
        explicit Running(SqliteSession& searching) : session(searching) {
            session.cancel_.isSearching = true;
        }
        ~Running() {
            session.cancel_.isSearching = false;
            session.candidates_.Clear();
        }
        SqliteSession& session;
    };
    bulkLog_.LetGo();
    const MemoryLimit limit(kMostSearchMemory);
    try {
        const ReadSnapshot snapshot(database_.get());
        const Running running(*this);
        return find();
    } catch (const std::bad_alloc&) {
        throw EngineError(EngineErrorCode::QueryTooComplex,
                          "The search takes too much memory. Make it shorter or narrower.");
    }
}

Recordset SqliteSession::Search(std::string_view text) {
    const Translation translation = TranslateQuery(text);
    return Searching([&] {
        const StatementHandle statement = PrepareSearch(text, translation.sql);
        return ReadRows(statement.get(), kMostBytesFound);
    });
}

/// With the text index where that helps, else as it stands. Not cached: a search text hardly comes
/// twice, and would only push out what does.
StatementHandle SqliteSession::PrepareSearch(std::string_view text, std::string_view sql) {
    try {
        const auto none = [](std::string_view) { return std::nullopt; };
        const auto restricted = RestrictSearch(text, none, *lookup_, candidates_);
        if (restricted) {
            const Translation translation = Translate(*restricted, {});
            const StatementGuard::Scope scope(guard_, StatementPurpose::Search);
            return PrepareStatement(database_.get(), translation.sql);
        }
    } catch (const EngineError& error) {
        if (error.Code() == EngineErrorCode::Cancelled) throw;
        // What is wrong with a search is said of its own text.
    }
    const StatementGuard::Scope scope(guard_, StatementPurpose::Search);
    return PrepareStatement(database_.get(), sql);
}

Recordset SqliteSession::NamedSearch(std::string_view name, std::span<const Parameter> parameters) {
    sqlite3* database = database_.get();
    const auto textOf = [&](std::string_view wanted) -> std::optional<std::string> {
        for (const Parameter& parameter : parameters) {
            const auto* text = std::get_if<std::string>(&parameter.GetValue());
            if (text != nullptr && IsSameSqlName(parameter.Name(), wanted)) return *text;
        }
        return std::nullopt;
    };
    return Searching([&] {
        StatementHandle restricted;
        try {
            const auto body = RestrictSearch(namedQueries_.Body(database, guard_, name), textOf,
                                             *lookup_, candidates_);
            if (body)
                restricted = namedQueries_.BindBody(database, guard_, name, *body, parameters);
        } catch (const EngineError& error) {
            if (error.Code() == EngineErrorCode::Cancelled) throw;
        }
        sqlite3_stmt* statement =
            restricted ? restricted.get() : namedQueries_.Bind(database, guard_, name, parameters);
        return ReadRows(statement, kMostBytesFound);
    });
}

bool SqliteSession::Advance(TextScan& scan) {
    return Searching([&] { return lookup_->Advance(scan); });
}

bool SqliteSession::TendTextIndex(TendingPace pace) {
    if (!care_) return false;
    bulkLog_.LetGo();
    // What is lost of the index by a power cut is made again, so nothing need be waited for.
    if (writeMode_ == WriteMode::Bulk) {
        const bool isMoreToDo = care_->Tend(pace);
        bulkLog_.CheckpointWhenDue();
        return isMoreToDo;
    }
    struct Relaxed {
        explicit Relaxed(sqlite3* handle) : database(handle) {
            RunStatements(database, "PRAGMA synchronous = NORMAL");
        }
        ~Relaxed() {
            sqlite3_exec(database, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
        }
        sqlite3* database;
    } relaxed(database_.get());
    return care_->Tend(pace);
}

}  // namespace snippetarium
